// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>
#include <QVariant>

#include <map>

namespace TES {

class Property;
class PropertyModel;
class PropertyViewNameCell;

// Makes the properties of one type name for PropertyModel::addProperty. Factories are
// registered with PropertyModel::AddFactory and live until the process ends; the registry
// does not own them, and nobody deletes one through this interface.
class TES_EXPORT IPropertyFactory
{
public:
    // The type name under which the factory registers; the type() of what it creates.
    virtual QString type() const = 0;
    // A new property with the given id for the model, which takes ownership. Null refuses.
    virtual Property *createProperty(PropertyModel *model, QString const &id,
                                     std::map<QString, QVariant> params) const = 0;
    // A new name cell for the property, owned by the caller.
    virtual PropertyViewNameCell *createView(Property *property) const = 0;

protected:
    ~IPropertyFactory() = default;
};

} // namespace TES
