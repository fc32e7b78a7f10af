// SPDX-License-Identifier: MIT
#include "support/TestFloatProperty.h"

#include "properties/PropertyModel.h"
#include "properties/PropertyViewMaker.h"

namespace TES::Test {

namespace {

class Factory : public IPropertyFactory
{
public:
    QString type() const override { return AbstractFloatProperty::Type(); }
    Property *createProperty(PropertyModel *model, QString const &id,
                             std::map<QString, QVariant>) const override
    {
        return new TestFloatProperty(model, id);
    }
    PropertyViewNameCell *createView(Property *property) const override
    {
        return PropertyViewMaker::MakeCell(type(), property);
    }
};

} // namespace

QVariant TestFloatProperty::getValue() const
{
    return QVariant(_value);
}

void TestFloatProperty::Register()
{
    static Factory factory;
    PropertyModel::AddFactory(&factory);
}

bool TestFloatProperty::_setValue(QVariant const &value)
{
    _value = value.toFloat();
    return true;
}

} // namespace TES::Test
