#include "properties/IntegerPropertyFactory.h"

#include "properties/IntegerProperty.h"

namespace TES {

QString IntegerPropertyFactory::type() const
{
    return AbstractIntegerProperty::Type();
}

Property *IntegerPropertyFactory::createProperty(PropertyModel *model, QString const &id,
                                                 std::map<QString, QVariant>) const
{
    return new IntegerProperty(model, id);
}

PropertyViewNameCell *IntegerPropertyFactory::createView(Property *) const
{
    return nullptr;
}

} // namespace TES
