// SPDX-License-Identifier: MIT
#include "properties/view/PropertyViewNameCell.h"

#include "data/KeyValueMap.h"
#include "properties/Property.h"
#include "properties/view/PropertyViewValueCell.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>

namespace TES {

PropertyViewNameCell::PropertyViewNameCell(Property *property, PropertyViewValueCell *right)
    : _property(property), _right(right)
{
    if (_property)
        setObjectName(_property->id());
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, Qt::white);
    setPalette(palette);
    setAutoFillBackground(true);

    _label = new QLabel(_property ? _property->getText() : QString(), this);
    _label->setContentsMargins(5, 0, 0, 0);
    _label->setAutoFillBackground(true);
    _label->setToolTip(_property ? _property->toolTip() : QString());
    _label->installEventFilter(this);
    layout->addWidget(_label);
}

PropertyViewNameCell::~PropertyViewNameCell()
{
    // A pair that was never placed: the value cell belongs to nobody else.
    if (_right && !_right->parent())
        delete _right;
}

QString PropertyViewNameCell::type() const
{
    return _property ? _property->type() : QString();
}

void PropertyViewNameCell::valueChanged(QVariant const &oldValue, QVariant const &newValue,
                                        PropertyChangeReason reason)
{
    _updateLabel();
    _label->setToolTip(_property ? _property->toolTip() : QString());
    // The value cell already shows an edit of its own.
    if (reason != PropertyChangeReason::ReasonView && _right)
        _right->valueChanged(oldValue, newValue);
}

void PropertyViewNameCell::stateChanged()
{
    _label->setToolTip(_property ? _property->toolTip() : QString());
    if (_right)
        _right->stateChanged(KeyValueMap());
}

bool PropertyViewNameCell::adjustValue(int)
{
    return true;
}

bool PropertyViewNameCell::canAdjust() const
{
    return false;
}

bool PropertyViewNameCell::hasContextMenu() const
{
    return false;
}

Property *PropertyViewNameCell::property() const
{
    return _property;
}

PropertyViewValueCell *PropertyViewNameCell::right() const
{
    return _right;
}

QLabel *PropertyViewNameCell::label() const
{
    return _label;
}

bool PropertyViewNameCell::visible() const
{
    return _property && _property->getVisible();
}

bool PropertyViewNameCell::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != _label)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (canAdjust() && mouse->button() == Qt::MiddleButton) {
            _dragStart = mouse->localPos().toPoint();
            setCursor(Qt::SizeHorCursor);
            _dragging = true;
            event->accept();
            return true;
        }
        if (hasContextMenu() && mouse->button() == Qt::RightButton) {
            event->accept();
            return true;
        }
        return false;
    }
    case QEvent::MouseButtonRelease: {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (canAdjust() && mouse->button() == Qt::MiddleButton) {
            if (_dragging) {
                setCursor(Qt::ArrowCursor);
                _dragging = false;
                event->accept();
            }
        } else if (hasContextMenu() && mouse->button() == Qt::RightButton) {
            _showContextMenu(mouse->localPos().toPoint());
            event->accept();
        }
        return true;
    }
    case QEvent::MouseMove: {
        auto *mouse = static_cast<QMouseEvent *>(event);
        QPoint const position = mouse->localPos().toPoint();
        // Only horizontal travel counts.
        if (_dragging && position.x() != _dragStart.x()) {
            if (adjustValue(position.x() - _dragStart.x()))
                _dragStart = position;
        }
        event->accept();
        return true;
    }
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::Enter:
    case QEvent::Leave:
        // Ends a drag; the cursor is left as it is.
        _dragging = false;
        event->accept();
        return false;
    default:
        return false;
    }
}

void PropertyViewNameCell::_showContextMenu(QPoint const &position)
{
    if (!_property)
        return;
    QMenu menu("contextMenu", this);
    menu.addSection(QString("%1 (%2)").arg(_property->getText(), _property->id()));
    menu.addSeparator();
    QAction *reset = menu.addAction("Reset to Default");
    reset->setEnabled(!_property->isDefault());
    connect(reset, &QAction::triggered, this, &PropertyViewNameCell::_resetToDefault);
    menu.exec(_label->mapToGlobal(position));
}

void PropertyViewNameCell::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    _updateLabel();
}

void PropertyViewNameCell::_resetToDefault()
{
    if (_property)
        _property->reset();
}

void PropertyViewNameCell::_updateLabel()
{
    if (!_property)
        return;
    QString const elided = QFontMetrics(_label->font())
                               .elidedText(_property->getText(), Qt::ElideRight, _label->width());
    _label->setText(_property->isDefault() ? elided : "<b>" + elided + "</b>");
}

} // namespace TES
