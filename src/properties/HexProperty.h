#pragma once

#include "properties/AbstractHexProperty.h"

namespace TES {

// The hex property that keeps its value, an unsigned 32-bit number, in a field. Created by
// HexPropertyFactory under the type name "hex".
class TES_EXPORT HexProperty : public AbstractHexProperty
{
public:
    HexProperty(PropertyModel *model, QString const &id);

    QVariant getValue() const override;

protected:
    bool _setValue(QVariant const &value) override;

private:
    unsigned int _value = 0;
};

} // namespace TES
