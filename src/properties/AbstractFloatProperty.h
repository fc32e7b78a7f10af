// SPDX-License-Identifier: MIT
#pragma once

#include "properties/TypedProperty.h"

namespace TES {

// The "float" type without its storage: a float within inclusive limits, with a step and the
// flags that its editor reads. The host ships no concrete float property and registers no
// "float" factory: a plug-in derives from this class, supplies getValue and _setValue, and
// registers a factory whose type() is "float".
//
// The default minimum is the smallest positive normal float, not the most negative one, so
// zero and negative numbers are refused until setMin lowers it.
class TES_EXPORT AbstractFloatProperty : public SteppedProperty<float>
{
public:
    AbstractFloatProperty(PropertyModel *model, QString const &id);

    static QString Type();
    using SteppedProperty::Get;
    using SteppedProperty::Set;

    QString type() const override;
    // With a help text, ends in the separator that would precede it, without the text.
    QString toolTip() const override;

    float getFloat() const;

protected:
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;
};

} // namespace TES
