// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QAbstractSpinBox>

#include <cstdint>

namespace TES {

// A spin box for an unsigned 32-bit value in hexadecimal, shown in upper-case digits
// without a prefix, optionally padded with zeros to the width of the maximum. Typing is
// checked key by key: a blank, a text that does not parse or a value outside the limits is
// refused. The text is taken when editing finishes; an empty text stands for the minimum.
//
// The colour editor and the hexadecimal property cell use it; plug-ins may too. The spin
// box owns nothing but its line edit.
class TES_EXPORT HexSpinBox : public QAbstractSpinBox
{
    Q_OBJECT

public:
    HexSpinBox();
    ~HexSpinBox() override;

    unsigned int getValue() const;
    // Clamps to the limits, shows the value and emits valueChanged(), even when the value
    // stays the same.
    void setValue(unsigned int value);

    unsigned int getMinimum() const;
    // Ignored when equal to the current minimum or above the maximum.
    void setMinimum(unsigned int minimum);
    unsigned int getMaximum() const;
    // Ignored when equal to the current maximum or below the minimum.
    void setMaximum(unsigned int maximum);

    bool getFillField() const;
    // Pad with zeros to the digits of the maximum; shows from the next setValue() on.
    void setFillField(bool fillField);

    QString toString() const;
    // Empty: the minimum. "0x..." parses with its prefix, anything else as base 16. False,
    // and no change, for a text that does not parse.
    bool setFromString(const QString &text);

    StepEnabled stepEnabled() const override;
    // Steps in unsigned 32-bit arithmetic: below 0 wraps round, then clamps to the limits.
    void stepBy(int steps) override;
    // Acceptable (and upper-cased) or Invalid, never Intermediate.
    QValidator::State validate(QString &input, int &pos) const override;

signals:
    void valueChanged(uint32_t value);

private slots:
    void _editingFinished();

private:
    uint32_t _minimum = 0;
    uint32_t _maximum = 0xFFFFFFFF;
    bool _fillField = false;
    uint32_t _value = 0;
};

} // namespace TES
