// SPDX-License-Identifier: MIT
#pragma once

#include "properties/PropertyChangeReason.h"
#include "tessera_export.h"

#include <QPoint>
#include <QPointer>
#include <QVariant>
#include <QWidget>

class QLabel;

namespace TES {

class Property;
class PropertyViewValueCell;

// The left-hand cell of a property in a PropertyView: the label, with the tool tip, the
// context menu ("Reset to Default") and drag-to-adjust with the middle button. Made by
// Property::view(), which the view calls; its constructor takes the value cell that pairs
// with it. The view owns both once placed and forwards the model's news to this cell, which
// refreshes the label and passes them on to the value cell.
//
// A property type that a plug-in adds gets its cells by deriving from this class and from
// PropertyViewValueCell.
class TES_EXPORT PropertyViewNameCell : public QWidget
{
    Q_OBJECT

public:
    PropertyViewNameCell(Property *property, PropertyViewValueCell *right);
    ~PropertyViewNameCell() override;

    // The property's type name; empty without a property.
    virtual QString type() const;
    // Refreshes the label (bold when off its default) and the tool tip, and hands the change
    // to the value cell unless the value cell made it (ReasonView).
    virtual void valueChanged(QVariant const &oldValue, QVariant const &newValue,
                              PropertyChangeReason reason);
    // Refreshes the tool tip and hands an empty state to the value cell. The label's bold
    // state waits for the next value change or resize.
    virtual void stateChanged();
    // One step of a middle-button drag, delta the horizontal travel in pixels since the
    // anchor. True moves the anchor to the present position. The base does nothing and
    // answers true.
    virtual bool adjustValue(int delta);
    // Whether a middle-button drag adjusts the value; false here.
    virtual bool canAdjust() const;
    // Whether a right click opens the context menu; false here.
    virtual bool hasContextMenu() const;

    Property *property() const;
    PropertyViewValueCell *right() const;
    QLabel *label() const;
    bool visible() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    // Opens the menu with the title, the id and "Reset to Default", modally.
    virtual void _showContextMenu(QPoint const &position);
    void resizeEvent(QResizeEvent *event) override;

private slots:
    void _resetToDefault();

private:
    void _updateLabel();

    QPoint _dragStart;
    bool _dragging = false;
    Property *_property;
    QLabel *_label;
    // Guarded: the right pane may go first.
    QPointer<PropertyViewValueCell> _right;
};

} // namespace TES
