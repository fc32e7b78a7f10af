// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QVariant>

namespace TES {

// An optional extra check on the values a property accepts, consulted by Property::setValue
// after the type, limit and equality tests. The owner of the property creates and keeps it;
// the property only points to it.
class TES_EXPORT PropertyValidator
{
public:
    PropertyValidator();
    virtual ~PropertyValidator();

    // Whether the value may be stored. Only called while the validator is enabled.
    virtual bool validate(QVariant const &value) const = 0;
    // A disabled validator lets every value through.
    virtual bool getEnabled() const;
    virtual void setEnabled(bool enabled);

private:
    bool _enabled = true;
};

} // namespace TES
