// SPDX-License-Identifier: MIT
#pragma once

#include "properties/view/PropertyViewValueCell.h"
#include "tessera_export.h"

#include <QValidator>

#include <cstdint>

class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace TES {

class AbstractComboProperty;
class BooleanTriStateCheckbox;
class HexSpinBox;

// The value cells of the host's property types. Each is made by its name cell and owned by
// the view's right pane; edits go to the property with ReasonView under the _updating guard,
// and the model's news come through valueChanged and stateChanged.

// The three number cells: a spin box and a "..." button that raises a property event. The
// wheel over the spin box scrolls the view instead of changing the value. A subclass supplies
// the spin box, reads and writes its value as the property's exact variant type, and reads
// the limits.
class TES_EXPORT NumberViewValue : public PropertyViewValueCell
{
    Q_OBJECT

public:
    void valueChanged(QVariant const &oldValue, QVariant const &newValue) override;
    void stateChanged(KeyValueMap const &state) override;

protected:
    NumberViewValue(Property *property, QWidget *parent);
    // Places the spin box and the button; the button shows as the property says unless
    // `hideButton`.
    void _setEditor(QWidget *editor, bool hideButton);
    // Writes an edit; with `readBack` the editor then shows what the property took, so that a
    // refused value snaps back.
    void _edited(QVariant const &value, bool readBack);
    // The spin box's value, as the property's variant type.
    virtual QVariant _editorValue() const = 0;
    virtual void _setEditorValue(QVariant const &value) = 0;
    // Minimum, maximum and step from the property.
    virtual void _readLimits() = 0;
    virtual bool _showButton() const = 0;

    QWidget *_editor = nullptr;
    QPushButton *_button = nullptr;

private slots:
    void _buttonPressed(bool checked);
};

class TES_EXPORT IntegerViewValue : public NumberViewValue
{
    Q_OBJECT

public:
    explicit IntegerViewValue(Property *property, QWidget *parent = nullptr);

protected:
    QVariant _editorValue() const override;
    void _setEditorValue(QVariant const &value) override;
    void _readLimits() override;
    bool _showButton() const override;

private slots:
    void _valueChanged(int value);
    void _editingFinished();

private:
    QSpinBox *_spinBox;
};

class TES_EXPORT FloatViewValue : public NumberViewValue
{
    Q_OBJECT

public:
    explicit FloatViewValue(Property *property, QWidget *parent = nullptr);

protected:
    QVariant _editorValue() const override;
    void _setEditorValue(QVariant const &value) override;
    void _readLimits() override;
    bool _showButton() const override;

private slots:
    void _valueChanged(double value);
    void _editingFinished();

private:
    QDoubleSpinBox *_spinBox;
};

// Writes every change of the spin box, with no read-back; the "..." button stays hidden until
// the first stateChanged.
class TES_EXPORT HexViewValue : public NumberViewValue
{
    Q_OBJECT

public:
    explicit HexViewValue(Property *property, QWidget *parent = nullptr);

protected:
    QVariant _editorValue() const override;
    void _setEditorValue(QVariant const &value) override;
    void _readLimits() override;
    bool _showButton() const override;

private slots:
    void _valueChanged(uint32_t value);

private:
    HexSpinBox *_spinBox;
};

// The text and button cells: an editor with a text that mirrors the value.
class TES_EXPORT TextualViewValue : public PropertyViewValueCell
{
    Q_OBJECT

public:
    void valueChanged(QVariant const &oldValue, QVariant const &newValue) override;
    void stateChanged(KeyValueMap const &state) override;

protected:
    using PropertyViewValueCell::PropertyViewValueCell;
    virtual QString _editorText() const = 0;
    virtual void _setEditorText(QString const &text) = 0;
};

class TES_EXPORT TextViewValue : public TextualViewValue
{
    Q_OBJECT

public:
    explicit TextViewValue(Property *property, QWidget *parent = nullptr);

protected:
    QString _editorText() const override;
    void _setEditorText(QString const &text) override;

private slots:
    void _editingFinished();

private:
    QLineEdit *_lineEdit;
};

// A flat push button captioned with the value; a press raises a property event.
class TES_EXPORT ButtonViewValue : public TextualViewValue
{
    Q_OBJECT

public:
    explicit ButtonViewValue(Property *property, QWidget *parent = nullptr);

protected:
    QString _editorText() const override;
    void _setEditorText(QString const &text) override;

private slots:
    void _triggered();

private:
    QPushButton *_button;
};

// Set on the combo box of ComboViewValue. Refuses the text that the property already holds;
// it has effect only on an editable combo box, which the cell's is not.
class TES_EXPORT ComboViewValueValidator : public QValidator
{
public:
    ComboViewValueValidator(AbstractComboProperty *property, QObject *parent);
    State validate(QString &input, int &position) const override;

private:
    AbstractComboProperty *_property;
};

class TES_EXPORT ComboViewValue : public PropertyViewValueCell
{
    Q_OBJECT

public:
    explicit ComboViewValue(Property *property, QWidget *parent = nullptr);
    void valueChanged(QVariant const &oldValue, QVariant const &newValue) override;
    // Refills the items, with the combo box's signals blocked.
    void stateChanged(KeyValueMap const &state) override;

private slots:
    void _currentIndexChanged(int index);

private:
    void _fill();

    QComboBox *_comboBox;
};

// A three-state check box: the initial value int 2 shows the partial state of a mixed value.
class TES_EXPORT BooleanViewValue : public PropertyViewValueCell
{
    Q_OBJECT

public:
    explicit BooleanViewValue(Property *property, QWidget *parent = nullptr);
    void valueChanged(QVariant const &oldValue, QVariant const &newValue) override;
    void stateChanged(KeyValueMap const &state) override;

private slots:
    void _checked(int state);

private:
    BooleanTriStateCheckbox *_checkBox;
};

// The id as text, read-only; a later change of the id is not shown.
class TES_EXPORT UuidViewValue : public PropertyViewValueCell
{
    Q_OBJECT

public:
    explicit UuidViewValue(Property *property, QWidget *parent = nullptr);

private:
    QLabel *_label;
};

} // namespace TES
