#include "properties/HexPropertyFactory.h"

#include "properties/HexProperty.h"
#include "properties/PropertyViewMaker.h"

namespace TES {

QString HexPropertyFactory::type() const
{
    return AbstractHexProperty::Type();
}

Property *HexPropertyFactory::createProperty(PropertyModel *model, QString const &id,
                                             std::map<QString, QVariant>) const
{
    return new HexProperty(model, id);
}

PropertyViewNameCell *HexPropertyFactory::createView(Property *property) const
{
    return PropertyViewMaker::MakeCell(type(), property);
}

} // namespace TES
