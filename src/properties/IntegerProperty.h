#pragma once

#include "properties/AbstractIntegerProperty.h"

namespace TES {

// The integer property that keeps its value, an int, in a field. Created by
// IntegerPropertyFactory under the type name "integer".
class TES_EXPORT IntegerProperty : public AbstractIntegerProperty
{
public:
    IntegerProperty(PropertyModel *model, QString const &id);

    QVariant getValue() const override;

protected:
    bool _setValue(QVariant const &value) override;

private:
    int _value = 0;
};

} // namespace TES
