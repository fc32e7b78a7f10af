#include "properties/IntegerPropertyFactory.h"

#include "properties/IntegerProperty.h"
#include "properties/PropertyViewMaker.h"

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

PropertyViewNameCell *IntegerPropertyFactory::createView(Property *property) const
{
    return PropertyViewMaker::MakeCell(type(), property);
}

} // namespace TES
