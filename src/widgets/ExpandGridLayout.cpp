// SPDX-License-Identifier: MIT
#include "widgets/ExpandGridLayout.h"

#include <QWidget>

#include <algorithm>

namespace TES {

namespace {

constexpr int RowHeight = 22;

} // namespace

ExpandGridLayout::ExpandGridLayout(QWidget *parent) : QLayout(parent) {}

ExpandGridLayout::~ExpandGridLayout()
{
    for (QLayoutItem *item : _items)
        delete item;
}

void ExpandGridLayout::addItem(QLayoutItem *item)
{
    _items.push_back(item);
    invalidate();
}

QSize ExpandGridLayout::sizeHint() const
{
    return _hint;
}

QSize ExpandGridLayout::minimumSize() const
{
    return QSize(0, _hint.height());
}

int ExpandGridLayout::count() const
{
    return int(_items.size());
}

QLayoutItem *ExpandGridLayout::itemAt(int index) const
{
    if (index < 0 || index >= count())
        return nullptr;
    return _items[size_t(index)];
}

QLayoutItem *ExpandGridLayout::takeAt(int index)
{
    invalidate();
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem *item = _items[size_t(index)];
    _items.erase(_items.begin() + index);
    return item;
}

void ExpandGridLayout::setGeometry(QRect const &rect)
{
    if (_items.empty())
        return;
    int const cellWidth = std::max(rect.width() / _columns, _maxRowWidth / _columns);
    for (int index = 0; index < count(); ++index) {
        QWidget *widget = _items[size_t(index)]->widget();
        if (!widget)
            continue;
        widget->move((index % _columns) * cellWidth, (index / _columns) * RowHeight);
        widget->resize(cellWidth, RowHeight);
    }
}

void ExpandGridLayout::invalidate()
{
    _hint = QSize(0, 0);
    if (_items.empty())
        return;
    _columns = _getCellColumnCount();
    _maxRowWidth = _minRowWidth(_columns);
    _rows = count() / _columns + (count() % _columns ? 1 : 0);
    _hint = QSize(_maxRowWidth, _rows * RowHeight);
    QLayout::invalidate();
}

int ExpandGridLayout::_getCellColumnCount() const
{
    if (count() < 2)
        return 1;
    for (int n = 2; n <= count(); ++n) {
        if (!_canFitCells(n))
            return n - 1;
    }
    return count();
}

bool ExpandGridLayout::_canFitCells(int n) const
{
    if (n > count())
        return false;
    int const width = parentWidget() ? parentWidget()->width() : 0;
    for (int start = 0; start < count(); start += n) {
        int widest = 0;
        for (int index = start; index < std::min(start + n, count()); ++index)
            widest = std::max(widest, _items[size_t(index)]->sizeHint().width());
        if (widest * n > width)
            return false;
    }
    return true;
}

int ExpandGridLayout::_minRowWidth(int n) const
{
    int widest = 0;
    for (int start = 0; start < count(); start += n) {
        int sum = 0;
        for (int index = start; index < std::min(start + n, count()); ++index)
            sum += _items[size_t(index)]->sizeHint().width();
        widest = std::max(widest, sum);
    }
    return widest;
}

} // namespace TES
