#include "properties/ComboPropertyFactory.h"

#include "properties/ComboProperty.h"
#include "properties/PropertyViewMaker.h"

namespace TES {

QString ComboPropertyFactory::type() const
{
    return AbstractComboProperty::Type();
}

Property *ComboPropertyFactory::createProperty(PropertyModel *model, QString const &id,
                                               std::map<QString, QVariant>) const
{
    return new ComboProperty(model, id);
}

PropertyViewNameCell *ComboPropertyFactory::createView(Property *property) const
{
    return PropertyViewMaker::MakeCell(type(), property);
}

} // namespace TES
