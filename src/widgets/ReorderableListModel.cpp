// SPDX-License-Identifier: MIT
#include "widgets/ReorderableListModel.h"

#include <algorithm>

namespace TES {

ReorderableListModel::ReorderableListModel(ReorderableListFactory *factory) : _factory(factory) {}

ReorderableListModel::~ReorderableListModel()
{
    if (_factory) {
        for (void *entry : _items)
            _factory->destroyItem(entry);
    }
    _items.clear();
    _notify([](ReorderableListModelListener *l) { l->reorderableListChanged(); });
}

template<typename Call>
void ReorderableListModel::_notify(Call call) const
{
    // A copy, so that a listener may leave during the call.
    std::set<ReorderableListModelListener *> const listeners = _listeners;
    for (ReorderableListModelListener *listener : listeners)
        call(listener);
}

bool ReorderableListModel::_inRange(unsigned int index) const
{
    return index < itemCount();
}

void *ReorderableListModel::item(unsigned int index) const
{
    return _inRange(index) ? _items.at(int(index)) : nullptr;
}

unsigned int ReorderableListModel::itemCount() const
{
    return unsigned(_items.size());
}

unsigned int ReorderableListModel::itemIndex(void *item) const
{
    int const index = _items.indexOf(item);
    return index < 0 ? NotFound : unsigned(index);
}

QList<void *> ReorderableListModel::items() const
{
    return _items;
}

unsigned int ReorderableListModel::addItem()
{
    _items.append(_factory ? _factory->createItem(this) : nullptr);
    unsigned int const index = itemCount() - 1;
    _notify([index](ReorderableListModelListener *l) { l->reorderableListItemAdded(index); });
    _notify([](ReorderableListModelListener *l) { l->reorderableListChanged(); });
    return index;
}

void *ReorderableListModel::takeItem(unsigned int index)
{
    if (!_inRange(index))
        return nullptr;
    _notify(
        [index](ReorderableListModelListener *l) { l->reorderableListItemAboutToRemove(index); });
    void *taken = _items.takeAt(int(index));
    _notify([](ReorderableListModelListener *l) { l->reorderableListChanged(); });
    return taken;
}

void ReorderableListModel::deleteItem(unsigned int index)
{
    if (!_inRange(index))
        return;
    _notify(
        [index](ReorderableListModelListener *l) { l->reorderableListItemAboutToRemove(index); });
    void *taken = _items.takeAt(int(index));
    if (_factory)
        _factory->destroyItem(taken);
    _notify([](ReorderableListModelListener *l) { l->reorderableListChanged(); });
}

void ReorderableListModel::deleteItems(QList<unsigned int> indices)
{
    std::sort(indices.begin(), indices.end());
    for (int i = indices.size() - 1; i >= 0; --i)
        deleteItem(indices.at(i));
}

void ReorderableListModel::deleteAllItems()
{
    if (_factory) {
        for (void *entry : _items)
            _factory->destroyItem(entry);
    }
    _items.clear();
    _notify([](ReorderableListModelListener *l) { l->reorderableListChanged(); });
}

void ReorderableListModel::moveItem(unsigned int from, unsigned int to)
{
    if (!_inRange(from) || !_inRange(to))
        return;
    _items.insert(int(to), _items.takeAt(int(from)));
    _notify([from, to](ReorderableListModelListener *l) { l->reorderableListItemMoved(from, to); });
    _notify([](ReorderableListModelListener *l) { l->reorderableListChanged(); });
}

unsigned int ReorderableListModel::moveItemUp(unsigned int index)
{
    if (index == 0 || !_inRange(index))
        return NotFound;
    moveItem(index, index - 1);
    return index - 1;
}

unsigned int ReorderableListModel::moveItemDown(unsigned int index)
{
    if (!_inRange(index + 1) || index == NotFound)
        return NotFound;
    moveItem(index, index + 1);
    return index + 1;
}

unsigned int ReorderableListModel::moveItemToTop(unsigned int index)
{
    if (index == 0 || !_inRange(index))
        return NotFound;
    moveItem(index, 0);
    return 0;
}

unsigned int ReorderableListModel::moveItemToBottom(unsigned int index)
{
    if (!_inRange(index + 1) || index == NotFound)
        return NotFound;
    moveItem(index, itemCount() - 1);
    return itemCount() - 1;
}

QList<unsigned int> ReorderableListModel::_purgeImmovableItemsUp(QList<unsigned int> indices) const
{
    std::sort(indices.begin(), indices.end());
    QList<unsigned int> kept;
    for (int k = 0; k < indices.size(); ++k) {
        if (indices.at(k) != unsigned(k))
            kept.append(indices.at(k));
    }
    return kept;
}

QList<unsigned int>
ReorderableListModel::_purgeImmovableItemsDown(QList<unsigned int> indices) const
{
    std::sort(indices.begin(), indices.end());
    QList<unsigned int> kept;
    unsigned int k = 0;
    for (int i = indices.size() - 1; i >= 0; --i, ++k) {
        if (indices.at(i) != itemCount() - 1 - k)
            kept.prepend(indices.at(i));
    }
    return kept;
}

void ReorderableListModel::moveItemsUp(QList<unsigned int> indices)
{
    // Ascending: an item moving up never runs into one that is still to move.
    for (unsigned int index : _purgeImmovableItemsUp(indices))
        moveItemUp(index);
}

void ReorderableListModel::moveItemsDown(QList<unsigned int> indices)
{
    QList<unsigned int> const movable = _purgeImmovableItemsDown(indices);
    for (int i = movable.size() - 1; i >= 0; --i)
        moveItemDown(movable.at(i));
}

void ReorderableListModel::moveItemsToTop(QList<unsigned int> indices)
{
    std::sort(indices.begin(), indices.end());
    for (int k = 0; k < indices.size(); ++k)
        moveItem(indices.at(k), unsigned(k));
}

void ReorderableListModel::moveItemsToBottom(QList<unsigned int> indices)
{
    std::sort(indices.begin(), indices.end());
    unsigned int k = 1;
    for (int i = indices.size() - 1; i >= 0; --i, ++k)
        moveItem(indices.at(i), itemCount() - k);
}

bool ReorderableListModel::canMoveUp(QList<unsigned int> indices) const
{
    return !_purgeImmovableItemsUp(indices).isEmpty();
}

bool ReorderableListModel::canMoveDown(QList<unsigned int> indices) const
{
    return !_purgeImmovableItemsDown(indices).isEmpty();
}

void ReorderableListModel::addListener(ReorderableListModelListener *listener)
{
    if (listener)
        _listeners.insert(listener);
}

void ReorderableListModel::removeListener(ReorderableListModelListener *listener)
{
    _listeners.erase(listener);
}

} // namespace TES
