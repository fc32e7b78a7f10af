// SPDX-License-Identifier: MIT
#include "properties/view/PropertyViewValueCell.h"

#include "properties/Property.h"

#include <QEvent>
#include <QHBoxLayout>

namespace TES {

PropertyViewValueCell::PropertyViewValueCell(Property *property, QWidget *parent)
    : QWidget(parent), _property(property)
{
    if (_property)
        setObjectName(_property->id());
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, Qt::white);
    setPalette(palette);
    setAutoFillBackground(true);
    _layout = new QHBoxLayout(this);
    _layout->setSpacing(0);
    _layout->setContentsMargins(0, 0, 0, 0);
}

PropertyViewValueCell::~PropertyViewValueCell() = default;

QString PropertyViewValueCell::type() const
{
    return _property ? _property->type() : QString();
}

void PropertyViewValueCell::valueChanged(QVariant const &, QVariant const &) {}

void PropertyViewValueCell::stateChanged(KeyValueMap const &) {}

Property *PropertyViewValueCell::property() const
{
    return _property;
}

bool PropertyViewValueCell::visible() const
{
    return _property && _property->getVisible();
}

void PropertyViewValueCell::_addEditor(QWidget *editor)
{
    editor->setEnabled(_property && _property->getEnabled());
    _layout->addWidget(editor);
}

void PropertyViewValueCell::_blockWheel(QWidget *editor)
{
    editor->installEventFilter(this);
}

bool PropertyViewValueCell::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace TES
