// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

namespace TES {

// A scoped writer of a caller's bool: false while locked, true once released. It holds back
// no event by itself; the flag means what its owner makes it mean. Kept for plug-ins.
class TES_EXPORT EventLock
{
public:
    explicit EventLock(bool *flag);
    virtual ~EventLock();

    void lock();
    void unlock();
    // The flag as it stands: true once released.
    bool isLocked() const;

private:
    bool *_flag;
};

} // namespace TES
