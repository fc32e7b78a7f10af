#include "properties/BooleanPropertyFactory.h"

#include "properties/BooleanProperty.h"
#include "properties/PropertyViewMaker.h"

namespace TES {

QString BooleanPropertyFactory::type() const
{
    return AbstractBooleanProperty::Type();
}

Property *BooleanPropertyFactory::createProperty(PropertyModel *model, QString const &id,
                                                 std::map<QString, QVariant>) const
{
    return new BooleanProperty(model, id);
}

PropertyViewNameCell *BooleanPropertyFactory::createView(Property *property) const
{
    return PropertyViewMaker::MakeCell(type(), property);
}

} // namespace TES
