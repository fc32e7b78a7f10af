#include "properties/ButtonPropertyFactory.h"

#include "properties/ButtonProperty.h"
#include "properties/PropertyViewMaker.h"

namespace TES {

QString ButtonPropertyFactory::type() const
{
    return ButtonProperty::Type();
}

Property *ButtonPropertyFactory::createProperty(PropertyModel *model, QString const &id,
                                                std::map<QString, QVariant>) const
{
    return new ButtonProperty(model, id);
}

PropertyViewNameCell *ButtonPropertyFactory::createView(Property *property) const
{
    return PropertyViewMaker::MakeCell(type(), property);
}

} // namespace TES
