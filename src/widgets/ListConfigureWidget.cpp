// SPDX-License-Identifier: MIT
#include "widgets/ListConfigureWidget.h"

#include "services/HostConstants.h"

#include <QAction>
#include <QListWidget>
#include <QMouseEvent>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace TES {

ListConfigureWidget::ListConfigureWidget(ReorderableListModel *model,
                                         ListConfigureItemFactory *itemFactory)
    : _toolBar(new QToolBar(this))
    , _list(new QListWidget(this))
    , _itemFactory(itemFactory)
    , _model(model)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setMenuBar(_toolBar);
    layout->addWidget(_list);

    auto addAction = [this](char const *icon, void (ListConfigureWidget::*slot)()) {
        QAction *action = _toolBar->addAction(QIcon(icon), QString());
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    _newAction = addAction(HostConstants::IconAdd, &ListConfigureWidget::_new);
    _deleteAction = addAction(HostConstants::IconDelete, &ListConfigureWidget::_delete);
    _deleteAllAction = addAction(HostConstants::IconDeleteAll, &ListConfigureWidget::_deleteAll);
    _toolBar->addSeparator();
    _upAction = addAction(HostConstants::IconRaise, &ListConfigureWidget::_up);
    _topAction = addAction(HostConstants::IconTop, &ListConfigureWidget::_top);
    _downAction = addAction(HostConstants::IconLower, &ListConfigureWidget::_down);
    _bottomAction = addAction(HostConstants::IconBottom, &ListConfigureWidget::_bottom);

    _list->setSelectionBehavior(QAbstractItemView::SelectRows);
    _list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    connect(_list, &QListWidget::itemSelectionChanged, this,
            &ListConfigureWidget::_selectionChanged);

    _fillList();
    _refreshButtons();
    if (_model)
        _model->addListener(this);
}

ListConfigureWidget::~ListConfigureWidget() = default;

unsigned int ListConfigureWidget::itemRow(QListWidgetItem *item) const
{
    return unsigned(_list->row(item));
}

QList<unsigned int> ListConfigureWidget::selectedRows()
{
    QList<unsigned int> rows;
    for (QListWidgetItem *item : _list->selectedItems())
        rows.append(itemRow(item));
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ListConfigureWidget::clearSelection()
{
    _list->clearSelection();
}

void ListConfigureWidget::_fillList()
{
    _list->clear();
    if (!_model || !_itemFactory)
        return;
    for (unsigned int i = 0; i < _model->itemCount(); ++i)
        _list->addItem(_itemFactory->createListItem(this, i));
}

void ListConfigureWidget::_refreshButtons()
{
    QList<unsigned int> const rows = selectedRows();
    bool const canUp = _model && _model->canMoveUp(rows);
    bool const canDown = _model && _model->canMoveDown(rows);
    _deleteAction->setEnabled(!rows.isEmpty());
    _deleteAllAction->setEnabled(_list->count() > 0);
    _upAction->setEnabled(canUp);
    _topAction->setEnabled(canUp);
    _downAction->setEnabled(canDown);
    _bottomAction->setEnabled(canDown);
}

void ListConfigureWidget::_new()
{
    if (!_model)
        return;
    unsigned int const index = _model->addItem();
    clearSelection();
    _list->setCurrentRow(int(index));
}

void ListConfigureWidget::_delete()
{
    if (!_model)
        return;
    _model->deleteItems(selectedRows());
    clearSelection();
    _list->clear();
    _fillList();
    _refreshButtons();
}

void ListConfigureWidget::_deleteAll()
{
    if (!_model)
        return;
    clearSelection();
    _model->deleteAllItems();
    _list->clear();
    _refreshButtons();
}

void ListConfigureWidget::_moveSelection(void (ReorderableListModel::*move)(QList<unsigned int>))
{
    if (_model)
        (_model->*move)(selectedRows());
}

void ListConfigureWidget::_up()
{
    _moveSelection(&ReorderableListModel::moveItemsUp);
}

void ListConfigureWidget::_top()
{
    _moveSelection(&ReorderableListModel::moveItemsToTop);
}

void ListConfigureWidget::_down()
{
    _moveSelection(&ReorderableListModel::moveItemsDown);
}

void ListConfigureWidget::_bottom()
{
    _moveSelection(&ReorderableListModel::moveItemsToBottom);
}

void ListConfigureWidget::_selectionChanged()
{
    _refreshButtons();
    emit selectionChanged();
}

void ListConfigureWidget::reorderableListItemAdded(unsigned int index)
{
    if (_itemFactory)
        _list->insertItem(int(index), _itemFactory->createListItem(this, index));
    _refreshButtons();
    update();
}

void ListConfigureWidget::reorderableListItemMoved(unsigned int from, unsigned int to)
{
    QListWidgetItem *item = _list->item(int(from));
    if (!item)
        return;
    bool const selected = item->isSelected();
    _list->takeItem(int(from));
    _list->insertItem(int(to), item);
    item->setSelected(selected);
    update();
}

void ListConfigureWidget::reorderableListItemAboutToRemove(unsigned int index)
{
    QListWidgetItem *item = _list->takeItem(int(index));
    if (item && _itemFactory)
        _itemFactory->destroyListItem(this, item);
    else
        delete item;
    _refreshButtons();
    update();
}

void ListConfigureWidget::mousePressEvent(QMouseEvent *event)
{
    // Tested as the widget got the position, not mapped into the list's coordinates.
    if (!_list->itemAt(event->localPos().toPoint())) {
        clearSelection();
        _list->setCurrentRow(-1);
    }
    QWidget::mousePressEvent(event);
}

} // namespace TES
