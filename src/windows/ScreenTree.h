// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "tessera_export.h"

#include <QIcon>
#include <QList>
#include <QTreeWidget>
#include <QUuid>

class QMimeData;

namespace TES {

class SceneObject;
class ScreenTreeDragDropInterface;
class ScreenTreeStyleManipulator;

// The object tree of the active screen, kept in step both ways with SelectionManager. The tree
// holds no model of its own: each item carries its object's id in Qt::UserRole, and every
// decision goes through that id. The open or closed state of an item lives in its object's
// "editorExpanded" property, so it survives a rebuild.
//
// The tree never rearranges itself: the scene classes reorder, reparent and delete, and the
// tree follows the events they raise on EventBus, for the active screen only. Its own
// selection changes run with _syncEnabled off, so that they do not echo back into
// SelectionManager; a selection the user makes goes to SelectionManager as one change.
//
// Owned by ScreenTreeWindow. A persistent handler on EventBus from construction to
// destruction. Drags are off until a plug-in hands in a ScreenTreeDragDropInterface; the
// look of the items is the plug-in's through a ScreenTreeStyleManipulator. Neither is owned.
class TES_EXPORT ScreenTree : public QTreeWidget, public IEventHandler
{
    Q_OBJECT

public:
    explicit ScreenTree(QWidget *parent = nullptr);
    ~ScreenTree() override;

    // Clears the tree and fills it from the active screen's roots; empty without one.
    void rebuild();
    // The item of an object, or null: a depth-first walk, items before their children.
    QTreeWidgetItem *findItem(QUuid const &id) const;
    // Marks the drop target with a yellow background and paints every other item white; a
    // null id clears the mark. Walks all items.
    void setHighlightItem(QUuid const &id);
    // Runs the style manipulator, if any, over every item.
    void refreshStyle();
    void setStyleManipulator(ScreenTreeStyleManipulator *manipulator);
    // Null switches drag and drop off.
    void setDragDropInterface(ScreenTreeDragDropInterface *dragDropInterface);

    // The lock and visibility marks, for style manipulators; the tree draws none itself.
    // Loaded on first use.
    static QIcon HiddenIcon();
    static QIcon VisibleIcon();
    static QIcon LockedIcon();
    static QIcon UnlockedIcon();

    // The data of a drag out of the tree: the text "ScreenTree" alone, whatever the items.
    // Receivers take the dragged objects from the tree's selection.
    QMimeData *mimeData(QList<QTreeWidgetItem *> const items) const override;

    // "ScreenTree".
    QString getEventHandlerName() const override;
    // EVM_PROJECT, EVM_SCREEN, EVM_SCENE and EVM_SELECT.
    bool canHandleEvent(unsigned long long mask) const override;
    void handleEvent(QSharedPointer<Event> event) override;
    // True.
    bool persistent() const override;

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    // Only the left button acts; a press on empty space clears the selection.
    void mousePressEvent(QMouseEvent *event) override;
    // The tree's own multiple selection: Shift adds, Control removes, both flip, none
    // replaces. Anything but a mouse event leaves the selection alone.
    QItemSelectionModel::SelectionFlags selectionCommand(QModelIndex const &index,
                                                         QEvent const *event) const override;

private slots:
    void _itemSelectionChanged();
    void _itemCollapsed(QTreeWidgetItem *item);
    void _itemExpanded(QTreeWidgetItem *item);

private:
    void _addRoot(QUuid const &id);
    // The new item, or null when the object or the parent's item is missing.
    QTreeWidgetItem *_addChild(QTreeWidgetItem *parentItem, QUuid const &id, int index);
    void _addChildren(SceneObject &object, QTreeWidgetItem *parentItem);
    // A new item showing the object, styled; not yet in the tree.
    QTreeWidgetItem *_makeItem(SceneObject &object);
    // Opens or closes a new item as its object says, then builds its children.
    void _fillItem(QTreeWidgetItem *item, SceneObject &object);
    // Takes an item out of its parent or of the top level, keeping its subtree.
    void _takeItem(QTreeWidgetItem *item);
    // Opens and closes an item and its subtree again as the objects say: a view forgets this
    // when the item leaves the tree.
    void _restoreExpanded(QTreeWidgetItem *item);
    void _refreshSelection();
    // The items of the ids, in order, null where there is none. Many ids are looked up in
    // one walk over the tree instead of one walk each.
    QList<QTreeWidgetItem *> _items(QList<QUuid> const &ids) const;
    // One change of the selection model over the items (no nulls): ClearAndSelect to show
    // exactly them, Select to add them.
    void _select(QList<QTreeWidgetItem *> const &items,
                 QItemSelectionModel::SelectionFlags command);
    // The selected items of a subtree: a view drops them from its selection when the subtree
    // leaves the tree, and they are selected again where it lands.
    QList<QTreeWidgetItem *> _selectedInSubtree(QTreeWidgetItem *item) const;
    QList<QUuid> _selectedIds() const;
    void _setExpandedProperty(QTreeWidgetItem *item, bool expanded);
    // Whether the event's screen is the active one; a null screen never is.
    static bool _isActive(QUuid const &screen);
    void _handleRootEvent(QSharedPointer<Event> const &event);
    void _handleSceneEvent(QSharedPointer<Event> const &event);
    void _handleSelectionChanged(QSharedPointer<Event> const &event);

    static QIcon _locked;
    static QIcon _unlocked;
    static QIcon _hidden;
    static QIcon _visible;

    bool _syncEnabled = true;
    QUuid _highlightItem;
    ScreenTreeStyleManipulator *_styleManipulator = nullptr;
    ScreenTreeDragDropInterface *_dragDropInterface = nullptr;
};

} // namespace TES
