// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace TES {

enum class PropertyOwnerType { OwnerNone = 0, OwnerCategory = 1, OwnerGroup = 2 };

// The category or group that lists a property, returned by value from
// PropertyModel::findOwner and Property::owner. An empty id goes with OwnerNone.
struct PropertyOwner
{
    QString id;
    PropertyOwnerType type = PropertyOwnerType::OwnerNone;
};

} // namespace TES
