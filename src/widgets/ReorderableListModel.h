// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QList>

#include <set>

namespace TES {

class ReorderableListModel;

// Makes and destroys the opaque items of a ReorderableListModel. Implemented by whoever
// knows what an item is; the model holds it but does not own it.
class TES_EXPORT ReorderableListFactory
{
public:
    virtual ~ReorderableListFactory() = default;

    // A new item for this model; the model owns it until it is deleted or taken.
    virtual void *createItem(ReorderableListModel *model) = 0;
    // Destroys an item made by createItem().
    virtual void destroyItem(void *item) = 0;
};

// Told of every change of a ReorderableListModel, synchronously. Not owned by the model.
class TES_EXPORT ReorderableListModelListener
{
public:
    virtual ~ReorderableListModelListener() = default;

    // After every change, last of the notifications of that change.
    virtual void reorderableListChanged() {}
    // After an item was appended at index.
    virtual void reorderableListItemAdded(unsigned int index) = 0;
    // After one item moved from one index to another.
    virtual void reorderableListItemMoved(unsigned int from, unsigned int to) = 0;
    // Before the item at index leaves the list. Not sent by deleteAllItems().
    virtual void reorderableListItemAboutToRemove(unsigned int index) = 0;
};

// An ordered list of opaque items with the operations of a list editor: add, delete, and
// move up, down, to the top and to the bottom, one index or a set of them. The model owns
// its items through the factory (except those taken out with takeItem()); the factory and
// the listeners are not owned. Changes reach the listeners synchronously, in the order of
// their addresses.
//
// Moving a set keeps a block that is already packed against the end it moves to where it is,
// and moves the rest past it.
class TES_EXPORT ReorderableListModel
{
public:
    static constexpr unsigned int NotFound = 0xFFFFFFFF;

    explicit ReorderableListModel(ReorderableListFactory *factory);
    // Destroys the items from first to last, then tells the listeners of the change.
    virtual ~ReorderableListModel();

    void *item(unsigned int index) const;
    unsigned int itemCount() const;
    unsigned int itemIndex(void *item) const;
    QList<void *> items() const;

    unsigned int addItem();
    // Hands the item to the caller, who then owns it.
    void *takeItem(unsigned int index);
    void deleteItem(unsigned int index);
    // Deletes from the highest index down; a repeated index deletes what moved into its place.
    void deleteItems(QList<unsigned int> indices);
    // Sends no reorderableListItemAboutToRemove: a listener clears itself on the change.
    void deleteAllItems();

    void moveItem(unsigned int from, unsigned int to);
    // Each returns the item's new index, or NotFound when it cannot move that way.
    unsigned int moveItemUp(unsigned int index);
    unsigned int moveItemDown(unsigned int index);
    unsigned int moveItemToTop(unsigned int index);
    unsigned int moveItemToBottom(unsigned int index);

    void moveItemsUp(QList<unsigned int> indices);
    void moveItemsDown(QList<unsigned int> indices);
    // The moved items keep their order among themselves; one already in place still gets
    // its move and notifications.
    void moveItemsToTop(QList<unsigned int> indices);
    void moveItemsToBottom(QList<unsigned int> indices);
    bool canMoveUp(QList<unsigned int> indices) const;
    bool canMoveDown(QList<unsigned int> indices) const;

    void addListener(ReorderableListModelListener *listener);
    void removeListener(ReorderableListModelListener *listener);

private:
    QList<unsigned int> _purgeImmovableItemsUp(QList<unsigned int> indices) const;
    QList<unsigned int> _purgeImmovableItemsDown(QList<unsigned int> indices) const;
    bool _inRange(unsigned int index) const;
    template<typename Call>
    void _notify(Call call) const;

    QList<void *> _items;
    std::set<ReorderableListModelListener *> _listeners;
    ReorderableListFactory *_factory;
};

} // namespace TES
