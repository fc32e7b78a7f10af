#include "properties/BooleanPropertyFactory.h"

#include "properties/BooleanProperty.h"

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

PropertyViewNameCell *BooleanPropertyFactory::createView(Property *) const
{
    return nullptr;
}

} // namespace TES
