// SPDX-License-Identifier: MIT
#include "widgets/HexSpinBox.h"

#include <QLineEdit>

namespace TES {

namespace {

// Base 0 reads the "0x" prefix; every other text is hexadecimal.
bool parseHex(QString const &text, uint32_t &value)
{
    bool ok = false;
    value = text.startsWith(QLatin1String("0x")) ? text.toUInt(&ok, 0) : text.toUInt(&ok, 16);
    return ok;
}

} // namespace

HexSpinBox::HexSpinBox()
{
    // The signal's parameter is known to moc by this name only; queued connections and
    // signal spies need it registered.
    qRegisterMetaType<uint32_t>("uint32_t");
    setFrame(false);
    setValue(0);
    lineEdit()->setText(toString());
    connect(this, &QAbstractSpinBox::editingFinished, this, &HexSpinBox::_editingFinished);
}

HexSpinBox::~HexSpinBox() = default;

unsigned int HexSpinBox::getValue() const
{
    return _value;
}

void HexSpinBox::setValue(unsigned int value)
{
    _value = qBound(_minimum, static_cast<uint32_t>(value), _maximum);
    lineEdit()->setText(toString());
    update();
    emit valueChanged(_value);
}

unsigned int HexSpinBox::getMinimum() const
{
    return _minimum;
}

void HexSpinBox::setMinimum(unsigned int minimum)
{
    if (minimum == _minimum || minimum > _maximum)
        return;
    _minimum = minimum;
    if (_value < _minimum)
        setValue(_minimum);
    update();
}

unsigned int HexSpinBox::getMaximum() const
{
    return _maximum;
}

void HexSpinBox::setMaximum(unsigned int maximum)
{
    if (maximum == _maximum || maximum < _minimum)
        return;
    _maximum = maximum;
    if (_value > _maximum)
        setValue(_maximum);
    update();
}

bool HexSpinBox::getFillField() const
{
    return _fillField;
}

void HexSpinBox::setFillField(bool fillField)
{
    _fillField = fillField;
    update();
}

QString HexSpinBox::toString() const
{
    QString const digits = QString::number(_value, 16).toUpper();
    if (!_fillField || _maximum == 0)
        return digits;
    return digits.rightJustified(QString::number(_maximum, 16).size(), QLatin1Char('0'));
}

bool HexSpinBox::setFromString(const QString &text)
{
    if (text.isEmpty()) {
        setValue(_minimum);
        return true;
    }
    uint32_t value = 0;
    if (!parseHex(text, value))
        return false;
    setValue(value);
    return true;
}

QAbstractSpinBox::StepEnabled HexSpinBox::stepEnabled() const
{
    StepEnabled enabled = StepNone;
    if (_value < _maximum)
        enabled |= StepUpEnabled;
    if (_value > _minimum)
        enabled |= StepDownEnabled;
    return enabled;
}

void HexSpinBox::stepBy(int steps)
{
    setValue(_value + static_cast<uint32_t>(steps));
}

QValidator::State HexSpinBox::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos)
    if (input.isEmpty())
        return QValidator::Acceptable;
    for (QChar const c : qAsConst(input)) {
        if (c.isSpace())
            return QValidator::Invalid;
    }
    uint32_t value = 0;
    if (!parseHex(input, value) || value < _minimum || value > _maximum)
        return QValidator::Invalid;
    input = input.toUpper();
    return QValidator::Acceptable;
}

void HexSpinBox::_editingFinished()
{
    setFromString(lineEdit()->text());
}

} // namespace TES
