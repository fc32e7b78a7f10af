// SPDX-License-Identifier: MIT
#include "properties/view/PropertyViewNames.h"

#include "properties/AbstractBooleanProperty.h"
#include "properties/AbstractComboProperty.h"
#include "properties/AbstractFloatProperty.h"
#include "properties/AbstractHexProperty.h"
#include "properties/AbstractIntegerProperty.h"
#include "properties/AbstractTextProperty.h"
#include "properties/ButtonProperty.h"
#include "properties/PropertyViewMaker.h"
#include "properties/UuidProperty.h"
#include "properties/view/PropertyViewValues.h"

#include <cstdint>
#include <limits>

namespace TES {

namespace {

constexpr auto Internal = PropertyChangeReason::ReasonInternal;

bool stepBoolean(Property *property, int delta)
{
    int const current = property->getValue().toBool() ? 1 : 0;
    property->setValue(QVariant(current + delta > 0), Internal);
    return true;
}

bool stepCombo(Property *property, int delta)
{
    auto *combo = dynamic_cast<AbstractComboProperty *>(property);
    if (!combo || (delta > -11 && delta < 11))
        return false;
    combo->setCurrentIndex(combo->getCurrentIndex() + (delta < 0 ? -1 : 1), Internal);
    return true;
}

bool stepFloat(Property *property, int delta)
{
    property->setValue(QVariant(property->getValue().toFloat() + float(delta)), Internal);
    return true;
}

bool stepHex(Property *property, int delta)
{
    qint64 const sum = qint64(property->getValue().toUInt()) + delta;
    qint64 const held = qBound<qint64>(0, sum, std::numeric_limits<uint32_t>::max());
    property->setValue(QVariant(uint(held)), Internal);
    return true;
}

bool stepInteger(Property *property, int delta)
{
    // Summed wide: a sum past the int range is refused like any value out of the limits.
    qint64 const sum = qint64(property->getValue().toInt()) + delta;
    if (sum >= std::numeric_limits<int>::min() && sum <= std::numeric_limits<int>::max())
        property->setValue(QVariant(int(sum)), Internal);
    return true;
}

template<typename Name>
PropertyViewNameCell *make(Property *property)
{
    return new Name(property);
}

// The model reaches the cells through the maker, so that it needs no widget code.
bool const registered = [] {
    PropertyViewMaker::SetCellMaker(AbstractBooleanProperty::Type(), &make<BooleanViewName>);
    PropertyViewMaker::SetCellMaker(ButtonProperty::Type(), &make<ButtonViewName>);
    PropertyViewMaker::SetCellMaker(AbstractComboProperty::Type(), &make<ComboViewName>);
    PropertyViewMaker::SetCellMaker(AbstractFloatProperty::Type(), &make<FloatViewName>);
    PropertyViewMaker::SetCellMaker(AbstractHexProperty::Type(), &make<HexViewName>);
    PropertyViewMaker::SetCellMaker(AbstractIntegerProperty::Type(), &make<IntegerViewName>);
    PropertyViewMaker::SetCellMaker(AbstractTextProperty::Type(), &make<TextViewName>);
    PropertyViewMaker::SetCellMaker(UuidProperty::Type(), &make<UuidViewName>);
    return true;
}();

} // namespace

TypedViewName::TypedViewName(Property *property, PropertyViewValueCell *right, bool contextMenu,
                             Step step)
    : PropertyViewNameCell(property, right), _contextMenu(contextMenu), _step(step)
{}

bool TypedViewName::adjustValue(int delta)
{
    if (!_step || !property())
        return PropertyViewNameCell::adjustValue(delta);
    return _step(property(), delta);
}

bool TypedViewName::canAdjust() const
{
    return _step != nullptr;
}

bool TypedViewName::hasContextMenu() const
{
    return _contextMenu;
}

BooleanViewName::BooleanViewName(Property *property)
    : TypedViewName(property, new BooleanViewValue(property), true, &stepBoolean)
{}

ButtonViewName::ButtonViewName(Property *property)
    : TypedViewName(property, new ButtonViewValue(property), false, nullptr)
{}

ComboViewName::ComboViewName(Property *property)
    : TypedViewName(property, new ComboViewValue(property), true, &stepCombo)
{}

FloatViewName::FloatViewName(Property *property)
    : TypedViewName(property, new FloatViewValue(property), true, &stepFloat)
{}

HexViewName::HexViewName(Property *property)
    : TypedViewName(property, new HexViewValue(property), true, &stepHex)
{}

IntegerViewName::IntegerViewName(Property *property)
    : TypedViewName(property, new IntegerViewValue(property), true, &stepInteger)
{}

TextViewName::TextViewName(Property *property)
    : TypedViewName(property, new TextViewValue(property), true, nullptr)
{}

UuidViewName::UuidViewName(Property *property)
    : TypedViewName(property, new UuidViewValue(property), true, nullptr)
{}

} // namespace TES
