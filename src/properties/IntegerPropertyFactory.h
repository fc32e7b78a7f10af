#pragma once

#include "properties/IPropertyFactory.h"

namespace TES {

// Makes IntegerProperty objects for PropertyModel::addProperty under the type name
// "integer". The host registers one instance when the library loads.
class TES_EXPORT IntegerPropertyFactory : public IPropertyFactory
{
public:
    QString type() const override;
    // A new IntegerProperty; the parameters are not used.
    Property *createProperty(PropertyModel *model, QString const &id,
                             std::map<QString, QVariant> params) const override;
    // A new name cell of the type, owned by the caller.
    PropertyViewNameCell *createView(Property *property) const override;
};

} // namespace TES
