// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>
#include <QVariant>

namespace TES {

class KeyValueMap;

// Told of every set on the KeyValueMaps it is added to, even one that stores the value the
// key already held. Not told of clear, remove or load. The maps do not own their listeners
// and never delete one.
class TES_EXPORT IKeyValueMapListener
{
public:
    // After the new value is stored; the old value is invalid for a new key.
    virtual void keyValueChanged(KeyValueMap const *map, QString const &key,
                                 QVariant const &oldValue, QVariant const &newValue)
        = 0;

protected:
    ~IKeyValueMapListener() = default;
};

} // namespace TES
