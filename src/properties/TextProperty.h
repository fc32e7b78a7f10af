#pragma once

#include "properties/AbstractTextProperty.h"

namespace TES {

// The text property that keeps its value, a string, in a field. Created by
// TextPropertyFactory under the type name "text".
class TES_EXPORT TextProperty : public AbstractTextProperty
{
public:
    TextProperty(PropertyModel *model, QString const &id);

    QVariant getValue() const override;

protected:
    bool _setValue(QVariant const &value) override;

private:
    QString _value;
};

} // namespace TES
