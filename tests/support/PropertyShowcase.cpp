// SPDX-License-Identifier: MIT
#include "support/PropertyShowcase.h"

#include "properties/AbstractIntegerProperty.h"
#include "properties/ButtonProperty.h"
#include "properties/ComboProperty.h"
#include "properties/HexProperty.h"
#include "properties/PropertyCategory.h"
#include "properties/PropertyGroup.h"
#include "properties/PropertyModel.h"
#include "support/TestFloatProperty.h"

namespace TES::Test {

namespace {

constexpr auto Internal = PropertyChangeReason::ReasonInternal;

template<typename T>
T *add(PropertyModel &model, QString const &type, QString const &id, QString const &text,
       PropertyCategory *category, PropertyGroup *group = nullptr)
{
    auto *property = dynamic_cast<T *>(model.addProperty(type, id, {}));
    property->setText(text);
    if (group)
        group->addChild(id);
    else
        category->addChild(id);
    return property;
}

AbstractIntegerProperty *addInteger(PropertyModel &model, QString const &id, QString const &text,
                                    PropertyCategory *category, PropertyGroup *group = nullptr)
{
    auto *integer = add<AbstractIntegerProperty>(model, "integer", id, text, category, group);
    integer->setMin(0);
    integer->setMax(100);
    integer->setUpdateOnEdit(false);
    return integer;
}

} // namespace

void PropertyShowcase::fill(PropertyModel &model)
{
    TestFloatProperty::Register();
    PropertyCategory *general = model.addCategory("general");
    general->setText("General");
    add<Property>(model, "text", "label", "Label", general)->setValue(QVariant("Hello"), Internal);

    AbstractIntegerProperty *count = addInteger(model, "count", "Count", general);
    count->setDefault(QVariant(10));
    count->reset();

    auto *ratio = add<AbstractFloatProperty>(model, "float", "ratio", "Ratio", general);
    ratio->setMin(-10.0f);
    ratio->setMax(10.0f);
    ratio->setUpdateOnEdit(false);
    ratio->setShowButton(true);
    ratio->setDefault(QVariant(1.5f));
    ratio->reset();

    Property *enabled = add<Property>(model, "boolean", "enabled", "Enabled", general);
    enabled->setDefault(QVariant(true));
    enabled->reset();

    auto *mode = add<ComboProperty>(model, "combo", "mode", "Mode", general);
    mode->setComboValues({"Fast", "Slow", "Off"});
    mode->setDefault(QVariant(0));
    mode->reset();

    add<HexProperty>(model, "hex", "mask", "Mask", general)->setMax(0xFFFF);
    add<Property>(model, "uuid", "key", "Key", general);
    add<Property>(model, "button", "run", "Run", general)->setValue(QVariant("Run"), Internal);

    PropertyGroup *margins = model.addGroup("margins");
    margins->setText("Margins");
    general->addChild("margins");
    addInteger(model, "left", "Left", general, margins)->setValue(QVariant(4), Internal);
    addInteger(model, "right", "Right", general, margins)->setValue(QVariant(8), Internal);

    PropertyCategory *notes = model.addCategory("notes");
    notes->setText("Notes");
    add<Property>(model, "text", "note", "Note", notes);
}

} // namespace TES::Test
