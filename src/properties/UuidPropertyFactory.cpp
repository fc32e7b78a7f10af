#include "properties/UuidPropertyFactory.h"

#include "properties/PropertyViewMaker.h"
#include "properties/UuidProperty.h"

namespace TES {

QString UuidPropertyFactory::type() const
{
    return UuidProperty::Type();
}

Property *UuidPropertyFactory::createProperty(PropertyModel *model, QString const &id,
                                              std::map<QString, QVariant>) const
{
    return new UuidProperty(model, id);
}

PropertyViewNameCell *UuidPropertyFactory::createView(Property *property) const
{
    return PropertyViewMaker::MakeCell(type(), property);
}

} // namespace TES
