// SPDX-License-Identifier: MIT
#include "properties/view/PropertyViewLayout.h"

#include "properties/PropertyModel.h"

#include <QWidget>

namespace TES {

namespace {

constexpr int RowHeight = 21;

} // namespace

PropertyViewLayout::PropertyViewLayout(PropertyModel *model) : _model(model) {}

PropertyViewLayout::~PropertyViewLayout()
{
    while (QLayoutItem *item = takeAt(0))
        delete item;
}

bool PropertyViewLayout::_visible(QLayoutItem *item) const
{
    QWidget *widget = item->widget();
    return widget && _model && _model->itemVisible(widget->objectName());
}

void PropertyViewLayout::invalidate()
{
    _sizeHint = QSize(0, 0);
    for (QLayoutItem *item : qAsConst(_items)) {
        if (!_visible(item))
            continue;
        _sizeHint.setWidth(qMax(_sizeHint.width(), item->widget()->sizeHint().width()));
        _sizeHint.setHeight(_sizeHint.height() + RowHeight);
    }
    QLayout::invalidate();
}

void PropertyViewLayout::addItem(QLayoutItem *item)
{
    _items.append(item);
}

QSize PropertyViewLayout::minimumSize() const
{
    return QSize(0, _sizeHint.height());
}

void PropertyViewLayout::setGeometry(QRect const &rect)
{
    int y = 0;
    for (QLayoutItem *item : qAsConst(_items)) {
        QWidget *widget = item->widget();
        if (!widget)
            continue;
        int const height = _visible(item) ? RowHeight : 0;
        // Rows are fixed at the size they get, so that a change inside one (a bold label, a
        // longer summary) stops at the row instead of laying the whole pane out again. Hidden
        // rows keep their place in the sequence, squashed.
        widget->setFixedSize(rect.width(), height);
        widget->move(0, y);
        y += height;
    }
}

QLayoutItem *PropertyViewLayout::itemAt(int index) const
{
    return index >= 0 && index < _items.size() ? _items.at(index) : nullptr;
}

QLayoutItem *PropertyViewLayout::takeAt(int index)
{
    if (index < 0 || index >= _items.size())
        return nullptr;
    return _items.takeAt(index);
}

int PropertyViewLayout::count() const
{
    return _items.size();
}

QSize PropertyViewLayout::sizeHint() const
{
    return _sizeHint;
}

} // namespace TES
