#include "properties/TextPropertyFactory.h"

#include "properties/PropertyViewMaker.h"
#include "properties/TextProperty.h"

namespace TES {

QString TextPropertyFactory::type() const
{
    return AbstractTextProperty::Type();
}

Property *TextPropertyFactory::createProperty(PropertyModel *model, QString const &id,
                                              std::map<QString, QVariant>) const
{
    return new TextProperty(model, id);
}

PropertyViewNameCell *TextPropertyFactory::createView(Property *property) const
{
    return PropertyViewMaker::MakeCell(type(), property);
}

} // namespace TES
