// SPDX-License-Identifier: MIT
#pragma once

#include "data/KeyValueMap.h"
#include "tessera_export.h"

#include <QVariant>
#include <QWidget>

class QHBoxLayout;

namespace TES {

class Property;

// The right-hand cell of a property in a PropertyView: the editor widget. Made by the name
// cell that pairs with it and parented by the view's right pane once placed. The name cell
// hands it the model's news (valueChanged, stateChanged); the cell writes the user's edits
// with ReasonView, under the _updating guard so that its own write does not come back to it.
class TES_EXPORT PropertyViewValueCell : public QWidget
{
    Q_OBJECT

public:
    PropertyViewValueCell(Property *property, QWidget *parent = nullptr);
    ~PropertyViewValueCell() override;

    // The property's type name; empty without a property.
    virtual QString type() const;
    // The property's value changed from code (not from this cell). Empty here; a cell
    // brings its editor up to the property's value.
    virtual void valueChanged(QVariant const &oldValue, QVariant const &newValue);
    // Limits, flags or the enabled state changed. Empty here; a cell reads them again.
    virtual void stateChanged(KeyValueMap const &state);

    Property *property() const;
    bool visible() const;

protected:
    // Places the editor in the cell's layout, with the property's enabled state.
    void _addEditor(QWidget *editor);
    // Keeps the wheel from changing the editor's value: the event goes on to the view.
    void _blockWheel(QWidget *editor);
    bool eventFilter(QObject *watched, QEvent *event) override;
    // Runs a write to the editor or the property under the guard; nothing while one runs.
    template<typename Write>
    void _guarded(Write write)
    {
        if (_updating)
            return;
        _updating = true;
        write();
        _updating = false;
    }

    Property *_property;
    QHBoxLayout *_layout;
    bool _updating = false;
};

} // namespace TES
