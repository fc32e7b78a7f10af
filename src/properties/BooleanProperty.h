#pragma once

#include "properties/AbstractBooleanProperty.h"

namespace TES {

// The boolean property that keeps its value, a bool, in a field. Created by
// BooleanPropertyFactory under the type name "boolean".
class TES_EXPORT BooleanProperty : public AbstractBooleanProperty
{
public:
    BooleanProperty(PropertyModel *model, QString const &id);

    QVariant getValue() const override;

protected:
    bool _setValue(QVariant const &value) override;

private:
    bool _value = false;
};

} // namespace TES
