// SPDX-License-Identifier: MIT
#pragma once

#include "properties/AbstractFloatProperty.h"
#include "properties/IPropertyFactory.h"

namespace TES::Test {

// What a plug-in writes to get a float, which the host leaves to plug-ins: the storage, and a
// factory under the type name "float".
class TestFloatProperty : public AbstractFloatProperty
{
public:
    using AbstractFloatProperty::AbstractFloatProperty;
    QVariant getValue() const override;

    // Registers the factory once per process; later calls do nothing.
    static void Register();

protected:
    bool _setValue(QVariant const &value) override;

private:
    float _value = 0.0f;
};

} // namespace TES::Test
