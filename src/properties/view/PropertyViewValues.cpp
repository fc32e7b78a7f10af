// SPDX-License-Identifier: MIT
#include "properties/view/PropertyViewValues.h"

#include "properties/AbstractComboProperty.h"
#include "properties/AbstractFloatProperty.h"
#include "properties/AbstractHexProperty.h"
#include "properties/AbstractIntegerProperty.h"
#include "properties/PropertyModel.h"
#include "properties/UuidProperty.h"
#include "properties/view/BooleanTriStateCheckbox.h"
#include "widgets/HexSpinBox.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace TES {

namespace {

constexpr auto View = PropertyChangeReason::ReasonView;

void raiseEvent(Property *property)
{
    if (property && property->model())
        property->model()->raisePropertyEvent(property, 0, {});
}

bool enabled(Property *property)
{
    return property && property->getEnabled();
}

} // namespace

NumberViewValue::NumberViewValue(Property *property, QWidget *parent)
    : PropertyViewValueCell(property, parent)
{}

void NumberViewValue::_setEditor(QWidget *editor, bool hideButton)
{
    _editor = editor;
    _addEditor(editor);
    _blockWheel(editor);
    _button = new QPushButton("...", this);
    _button->setMaximumWidth(30);
    _button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    _button->setVisible(!hideButton && _showButton());
    _button->setEnabled(enabled(_property));
    _layout->addWidget(_button);
    connect(_button, &QPushButton::clicked, this, &NumberViewValue::_buttonPressed);
}

void NumberViewValue::valueChanged(QVariant const &, QVariant const &newValue)
{
    if (_updating || !_property || _editorValue() == newValue)
        return;
    _guarded([this] { _setEditorValue(_property->getValue()); });
}

void NumberViewValue::stateChanged(KeyValueMap const &)
{
    // New limits may clamp the spin box; that is not an edit.
    _guarded([this] { _readLimits(); });
    _button->setVisible(_showButton());
    _editor->setEnabled(enabled(_property));
    _button->setEnabled(enabled(_property));
}

void NumberViewValue::_edited(QVariant const &value, bool readBack)
{
    if (!_property)
        return;
    _guarded([&] {
        _property->setValue(value, View);
        if (readBack)
            _setEditorValue(_property->getValue());
    });
}

void NumberViewValue::_buttonPressed(bool)
{
    raiseEvent(_property);
}

IntegerViewValue::IntegerViewValue(Property *property, QWidget *parent)
    : NumberViewValue(property, parent), _spinBox(new QSpinBox(this))
{
    _spinBox->setFrame(false);
    _readLimits();
    _setEditorValue(_property ? _property->getValue() : QVariant(0));
    _setEditor(_spinBox, false);
    auto *integer = dynamic_cast<AbstractIntegerProperty *>(property);
    if (integer && integer->getUpdateOnEdit()) {
        connect(_spinBox, QOverload<int>::of(&QSpinBox::valueChanged), this,
                &IntegerViewValue::_valueChanged);
    } else {
        connect(_spinBox, &QSpinBox::editingFinished, this, &IntegerViewValue::_editingFinished);
    }
}

QVariant IntegerViewValue::_editorValue() const
{
    return QVariant(_spinBox->value());
}

void IntegerViewValue::_setEditorValue(QVariant const &value)
{
    _spinBox->setValue(value.toInt());
}

void IntegerViewValue::_readLimits()
{
    if (auto *integer = dynamic_cast<AbstractIntegerProperty *>(_property)) {
        _spinBox->setRange(integer->getMin(), integer->getMax());
        _spinBox->setSingleStep(integer->getStep());
    }
}

bool IntegerViewValue::_showButton() const
{
    auto *integer = dynamic_cast<AbstractIntegerProperty *>(_property);
    return integer && integer->getShowButton();
}

void IntegerViewValue::_valueChanged(int value)
{
    _edited(QVariant(value), true);
}

void IntegerViewValue::_editingFinished()
{
    _edited(QVariant(_spinBox->value()), true);
}

FloatViewValue::FloatViewValue(Property *property, QWidget *parent)
    : NumberViewValue(property, parent), _spinBox(new QDoubleSpinBox(this))
{
    _spinBox->setFrame(false);
    _readLimits();
    _setEditorValue(_property ? _property->getValue() : QVariant(0.0f));
    _setEditor(_spinBox, false);
    auto *number = dynamic_cast<AbstractFloatProperty *>(property);
    if (number && number->getUpdateOnEdit()) {
        connect(_spinBox, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                &FloatViewValue::_valueChanged);
    } else {
        connect(_spinBox, &QDoubleSpinBox::editingFinished, this,
                &FloatViewValue::_editingFinished);
    }
}

QVariant FloatViewValue::_editorValue() const
{
    return QVariant(float(_spinBox->value()));
}

void FloatViewValue::_setEditorValue(QVariant const &value)
{
    _spinBox->setValue(double(value.toFloat()));
}

void FloatViewValue::_readLimits()
{
    if (auto *number = dynamic_cast<AbstractFloatProperty *>(_property)) {
        _spinBox->setRange(double(number->getMin()), double(number->getMax()));
        _spinBox->setSingleStep(double(number->getStep()));
    }
}

bool FloatViewValue::_showButton() const
{
    auto *number = dynamic_cast<AbstractFloatProperty *>(_property);
    return number && number->getShowButton();
}

void FloatViewValue::_valueChanged(double value)
{
    _edited(QVariant(float(value)), true);
}

void FloatViewValue::_editingFinished()
{
    _edited(QVariant(float(_spinBox->value())), true);
}

HexViewValue::HexViewValue(Property *property, QWidget *parent)
    : NumberViewValue(property, parent), _spinBox(new HexSpinBox())
{
    _spinBox->setParent(this);
    _spinBox->setObjectName(_property ? _property->getText() : QString());
    _readLimits();
    _setEditorValue(_property ? _property->getValue() : QVariant(0u));
    _setEditor(_spinBox, true);
    connect(_spinBox, &HexSpinBox::valueChanged, this, &HexViewValue::_valueChanged);
}

QVariant HexViewValue::_editorValue() const
{
    return QVariant(_spinBox->getValue());
}

void HexViewValue::_setEditorValue(QVariant const &value)
{
    _spinBox->setValue(value.toUInt());
}

void HexViewValue::_readLimits()
{
    if (auto *hex = dynamic_cast<AbstractHexProperty *>(_property)) {
        _spinBox->setMinimum(hex->getMin());
        _spinBox->setMaximum(hex->getMax());
    }
}

bool HexViewValue::_showButton() const
{
    auto *hex = dynamic_cast<AbstractHexProperty *>(_property);
    return hex && hex->getShowButton();
}

void HexViewValue::_valueChanged(uint32_t)
{
    _edited(QVariant(_spinBox->getValue()), false);
}

void TextualViewValue::valueChanged(QVariant const &, QVariant const &newValue)
{
    if (_updating || !_property || _editorText() == newValue.toString())
        return;
    _guarded([this] { _setEditorText(_property->getValue().toString()); });
}

void TextualViewValue::stateChanged(KeyValueMap const &)
{
    for (QWidget *editor : findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        editor->setEnabled(enabled(_property));
}

TextViewValue::TextViewValue(Property *property, QWidget *parent)
    : TextualViewValue(property, parent), _lineEdit(new QLineEdit(this))
{
    _lineEdit->setFrame(false);
    _lineEdit->setText(_property ? _property->getValue().toString() : QString());
    _addEditor(_lineEdit);
    connect(_lineEdit, &QLineEdit::editingFinished, this, &TextViewValue::_editingFinished);
}

QString TextViewValue::_editorText() const
{
    return _lineEdit->text();
}

void TextViewValue::_setEditorText(QString const &text)
{
    _lineEdit->setText(text);
}

void TextViewValue::_editingFinished()
{
    if (!_property)
        return;
    _guarded([this] {
        if (!_property->setValue(QVariant(_lineEdit->text()), View))
            _lineEdit->setText(_property->getValue().toString());
    });
}

ButtonViewValue::ButtonViewValue(Property *property, QWidget *parent)
    : TextualViewValue(property, parent), _button(new QPushButton(this))
{
    _button->setText(_property ? _property->getValue().toString() : QString());
    // Each call replaces the one before: only the padding rule stays.
    _button->setStyleSheet("QPushButton { border-width: 0px }");
    _button->setStyleSheet("QPushButton { border-radius: 0px }");
    _button->setStyleSheet("QPushButton { padding: 0px }");
    _addEditor(_button);
    connect(_button, &QPushButton::released, this, &ButtonViewValue::_triggered);
}

QString ButtonViewValue::_editorText() const
{
    return _button->text();
}

void ButtonViewValue::_setEditorText(QString const &text)
{
    _button->setText(text);
}

void ButtonViewValue::_triggered()
{
    raiseEvent(_property);
}

ComboViewValueValidator::ComboViewValueValidator(AbstractComboProperty *property, QObject *parent)
    : QValidator(parent), _property(property)
{}

QValidator::State ComboViewValueValidator::validate(QString &input, int &) const
{
    if (_property && _property->getValue() == QVariant(input))
        return Invalid;
    return Acceptable;
}

ComboViewValue::ComboViewValue(Property *property, QWidget *parent)
    : PropertyViewValueCell(property, parent), _comboBox(new QComboBox(this))
{
    _fill();
    _comboBox->setValidator(
        new ComboViewValueValidator(dynamic_cast<AbstractComboProperty *>(property), _comboBox));
    _addEditor(_comboBox);
    _blockWheel(_comboBox);
    connect(_comboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &ComboViewValue::_currentIndexChanged);
}

void ComboViewValue::valueChanged(QVariant const &, QVariant const &newValue)
{
    // The text is compared with an index in string form, so this nearly always resets it.
    if (_updating || _comboBox->currentText() == newValue.toString())
        return;
    _guarded([&] { _comboBox->setCurrentIndex(newValue.toInt()); });
}

void ComboViewValue::stateChanged(KeyValueMap const &)
{
    _comboBox->setEnabled(enabled(_property));
    _comboBox->blockSignals(true);
    _fill();
    _comboBox->blockSignals(false);
    update();
}

void ComboViewValue::_fill()
{
    _comboBox->clear();
    auto *combo = dynamic_cast<AbstractComboProperty *>(_property);
    if (!combo)
        return;
    for (QString const &value : combo->getComboValues())
        _comboBox->addItem(value);
    _comboBox->setCurrentIndex(combo->getCurrentIndex());
}

void ComboViewValue::_currentIndexChanged(int)
{
    if (!_property)
        return;
    _guarded([this] { _property->setValue(QVariant(_comboBox->currentIndex()), View); });
}

BooleanViewValue::BooleanViewValue(Property *property, QWidget *parent)
    : PropertyViewValueCell(property, parent), _checkBox(new BooleanTriStateCheckbox(this))
{
    _layout->setContentsMargins(10, 0, 0, 0);
    _checkBox->setTristate(true);
    QVariant const value = _property ? _property->getValue() : QVariant();
    if (value.type() == QVariant::Int) {
        // Only the first value shows a mixed state: int 2, from a property of several objects.
        int const number = value.toInt();
        if (number >= 0 && number <= 2) {
            Qt::CheckState const states[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
            _checkBox->setCheckState(states[number]);
        }
    } else {
        _checkBox->setChecked(value.toBool());
    }
    _addEditor(_checkBox);
    connect(_checkBox, &QCheckBox::stateChanged, this, &BooleanViewValue::_checked);
}

void BooleanViewValue::valueChanged(QVariant const &, QVariant const &newValue)
{
    if (_updating || !_property)
        return;
    bool const checked = _checkBox->isChecked();
    if (newValue.type() == QVariant::Int) {
        int const number = newValue.toInt();
        // Drops a partial state and keeps the tick as it is.
        if (number >= 0 && number <= 2 && number != int(checked))
            _guarded([&] { _checkBox->setCheckState(checked ? Qt::Checked : Qt::Unchecked); });
    } else if (newValue.toBool() != checked) {
        _guarded([this] { _checkBox->setChecked(_property->getValue().toBool()); });
    }
}

void BooleanViewValue::stateChanged(KeyValueMap const &)
{
    _checkBox->setEnabled(enabled(_property));
}

void BooleanViewValue::_checked(int state)
{
    if (!_property)
        return;
    _guarded([&] {
        if (state == Qt::Checked) {
            if (!_property->setValue(QVariant(true), View))
                _checkBox->setCheckState(Qt::Unchecked);
        } else if (state == Qt::Unchecked) {
            if (!_property->setValue(QVariant(false), View))
                _checkBox->setCheckState(Qt::Checked);
        }
    });
}

UuidViewValue::UuidViewValue(Property *property, QWidget *parent)
    : PropertyViewValueCell(property, parent)
{
    auto *uuid = dynamic_cast<UuidProperty *>(property);
    _label = new QLabel(uuid ? uuid->getUuid().toString() : QString(), this);
    _addEditor(_label);
}

} // namespace TES
