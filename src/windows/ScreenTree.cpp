// SPDX-License-Identifier: MIT
#include "windows/ScreenTree.h"

#include "events/EventBus.h"
#include "events/EventTypes.h"
#include "events/SceneChangeEvent.h"
#include "events/ScreenEvents.h"
#include "events/SelectionChangedEvent.h"
#include "properties/AbstractBooleanProperty.h"
#include "scene/SceneManager.h"
#include "scene/SceneObject.h"
#include "scene/Screen.h"
#include "scene/SelectionManager.h"
#include "services/HostConstants.h"
#include "windows/ScreenTreeDragDropInterface.h"
#include "windows/ScreenTreeStyleManipulator.h"

#include <QDragEnterEvent>
#include <QHash>
#include <QHeaderView>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QSet>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace TES {

QIcon ScreenTree::_locked;
QIcon ScreenTree::_unlocked;
QIcon ScreenTree::_hidden;
QIcon ScreenTree::_visible;

namespace {

QString const ExpandedProperty = QStringLiteral("editorExpanded");

// Past this many ids one walk that maps every item beats a walk per id.
int const MappedLookup = 8;

QUuid idOf(QTreeWidgetItem const *item)
{
    return item ? item->data(0, Qt::UserRole).toUuid() : QUuid();
}

QSharedPointer<SceneObject> objectOf(QUuid const &id)
{
    return SceneManager::ip() ? SceneManager::ip()->getObject(id).toStrongRef()
                              : QSharedPointer<SceneObject>();
}

QSharedPointer<Screen> activeScreen()
{
    SceneManager *manager = SceneManager::ip();
    return manager ? manager->screen(manager->getActiveScreen()).toStrongRef()
                   : QSharedPointer<Screen>();
}

QIcon cached(QIcon &icon, char const *path)
{
    if (icon.isNull())
        icon = QIcon(QString::fromLatin1(path));
    return icon;
}

} // namespace

ScreenTree::ScreenTree(QWidget *parent) : QTreeWidget(parent)
{
    header()->hide();
    setIconSize(QSize(26, 26));
    setItemsExpandable(true);
    setDragDropMode(QAbstractItemView::InternalMove);
    _syncEnabled = true;
    connect(this, &QTreeWidget::itemSelectionChanged, this, &ScreenTree::_itemSelectionChanged);
    connect(this, &QTreeWidget::itemCollapsed, this, &ScreenTree::_itemCollapsed);
    connect(this, &QTreeWidget::itemExpanded, this, &ScreenTree::_itemExpanded);
    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
}

ScreenTree::~ScreenTree()
{
    // The base classes still emit while they take the items down: not into this part.
    disconnect(this, nullptr, this, nullptr);
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
}

void ScreenTree::rebuild()
{
    clear();
    QSharedPointer<Screen> const screen = activeScreen();
    if (!screen)
        return;
    for (QUuid const &root : screen->roots())
        _addRoot(root);
}

QTreeWidgetItem *ScreenTree::findItem(QUuid const &id) const
{
    for (QTreeWidgetItemIterator it(const_cast<ScreenTree *>(this)); *it; ++it) {
        if (idOf(*it) == id)
            return *it;
    }
    return nullptr;
}

void ScreenTree::setHighlightItem(QUuid const &id)
{
    _highlightItem = id;
    for (QTreeWidgetItemIterator it(this); *it; ++it) {
        bool const target = !id.isNull() && idOf(*it) == id;
        (*it)->setBackground(0, QBrush(target ? Qt::yellow : Qt::white));
    }
}

void ScreenTree::refreshStyle()
{
    if (!_styleManipulator)
        return;
    for (QTreeWidgetItemIterator it(this); *it; ++it)
        _styleManipulator->styleItem(*it, idOf(*it));
}

void ScreenTree::setStyleManipulator(ScreenTreeStyleManipulator *manipulator)
{
    _styleManipulator = manipulator;
}

void ScreenTree::setDragDropInterface(ScreenTreeDragDropInterface *dragDropInterface)
{
    _dragDropInterface = dragDropInterface;
}

QIcon ScreenTree::HiddenIcon()
{
    return cached(_hidden, HostConstants::IconHidden);
}

QIcon ScreenTree::VisibleIcon()
{
    return cached(_visible, HostConstants::IconVisible);
}

QIcon ScreenTree::LockedIcon()
{
    return cached(_locked, HostConstants::IconLocked);
}

QIcon ScreenTree::UnlockedIcon()
{
    return cached(_unlocked, HostConstants::IconUnlocked);
}

QMimeData *ScreenTree::mimeData(QList<QTreeWidgetItem *> const) const
{
    auto *data = new QMimeData();
    data->setText(QString::fromLatin1(HostConstants::MimeScreenTree));
    return data;
}

QString ScreenTree::getEventHandlerName() const
{
    return QStringLiteral("ScreenTree");
}

bool ScreenTree::canHandleEvent(unsigned long long mask) const
{
    return (mask & (EVM_PROJECT | EVM_SCREEN | EVM_SCENE | EVM_SELECT)) != 0;
}

bool ScreenTree::persistent() const
{
    return true;
}

void ScreenTree::handleEvent(QSharedPointer<Event> event)
{
    if (!event)
        return;
    switch (event->type()) {
    case EVT_SELECT_CHANGED:
        _handleSelectionChanged(event);
        break;
    case EVT_SELECT_REFRESH:
        _refreshSelection();
        break;
    case EVT_PROJECT_REQUEST_BLANK:
    case EVT_PROJECT_LOADED:
    case EVT_SCREEN_ACTIVE_CHANGED:
        rebuild();
        break;
    case EVT_SCREEN_ROOTADDED:
    case EVT_SCREEN_ROOTABOUTTOREMOVE:
    case EVT_SCREEN_ROOTMOVED:
        _handleRootEvent(event);
        break;
    case EVT_SCENE_CHILDADDED:
    case EVT_SCENE_CHILDABOUTTOREMOVE:
    case EVT_SCENE_CHILDABOUTTODELETE:
    case EVT_SCENE_CHILDMOVED:
    case EVT_SCENE_CHILDREPARENTED:
    case EVT_SCENE_SCENEOBJECTSTATECHANGED:
    case EVT_SCENE_SCENEOBJECTRENAMED:
        _handleSceneEvent(event);
        break;
    default:
        break;
    }
}

void ScreenTree::_handleRootEvent(QSharedPointer<Event> const &event)
{
    auto const rootEvent = event.dynamicCast<ScreenRootEvent>();
    if (!rootEvent || !_isActive(rootEvent->screen()))
        return;
    QUuid const root = rootEvent->root();
    if (event->type() == EVT_SCREEN_ROOTADDED) {
        _addRoot(root);
        return;
    }
    QTreeWidgetItem *item = findItem(root);
    if (!item)
        return;
    if (event->type() == EVT_SCREEN_ROOTABOUTTOREMOVE) {
        delete takeTopLevelItem(indexOfTopLevelItem(item));
        return;
    }
    QSharedPointer<Screen> const screen = activeScreen();
    QScopedValueRollback<bool> const guard(_syncEnabled, false);
    QList<QTreeWidgetItem *> const selected = _selectedInSubtree(item);
    _takeItem(item);
    int const index = screen ? screen->indexOfRoot(root) : -1;
    insertTopLevelItem(index < 0 ? topLevelItemCount() : qMin(index, topLevelItemCount()), item);
    _restoreExpanded(item);
    _select(selected, QItemSelectionModel::Select);
}

void ScreenTree::_handleSceneEvent(QSharedPointer<Event> const &event)
{
    auto const sceneEvent = event.dynamicCast<SceneObjectEvent>();
    if (!sceneEvent || !SceneManager::ip())
        return;
    auto const change = event.dynamicCast<SceneChangeEvent>();
    // The object whose screen decides: the child of a change, else the event's one object.
    QUuid const id
        = change && change->infos().size() > 1 ? change->childInfo().id() : sceneEvent->info().id();
    if (!_isActive(SceneManager::ip()->getObjectScreen(id)))
        return;

    unsigned long long const type = event->type();
    if (type == EVT_SCENE_SCENEOBJECTSTATECHANGED) {
        update();
        return;
    }
    if (type == EVT_SCENE_SCENEOBJECTRENAMED) {
        if (QTreeWidgetItem *item = findItem(id)) {
            item->setText(0, change ? change->name() : QString());
            _refreshSelection();
        }
        return;
    }
    bool const removal
        = type == EVT_SCENE_CHILDABOUTTOREMOVE || type == EVT_SCENE_CHILDABOUTTODELETE;
    if (!change && !removal)
        return;

    {
        QScopedValueRollback<bool> const guard(_syncEnabled, false);
        QTreeWidgetItem *item = findItem(id);
        if (removal) {
            // A deletion too: the object is gone from its parent when the deletion is over,
            // and not all concrete classes tell of that.
            delete item;
        } else if (type == EVT_SCENE_CHILDADDED) {
            QTreeWidgetItem *parentItem = findItem(change->parentInfo().id());
            if (!parentItem)
                return;
            if (QTreeWidgetItem *added
                = _addChild(parentItem, id, change->childInfo().parentIndex()))
                setCurrentItem(added);
            parentItem->setExpanded(true);
        } else {
            // A move among siblings, or to another parent: the item goes along with its subtree.
            QUuid const parentId = type == EVT_SCENE_CHILDMOVED ? change->parentInfo().id()
                                                                : change->newParentInfo().id();
            QSharedPointer<SceneObject> const parent = objectOf(parentId);
            QTreeWidgetItem *parentItem = findItem(parentId);
            if (!parentItem || !parent) {
                delete item;
            } else if (!item) {
                _addChild(parentItem, id, parent->indexOfChild(id, false));
            } else {
                QList<QTreeWidgetItem *> const selected = _selectedInSubtree(item);
                _takeItem(item);
                int const index = parent->indexOfChild(id, false);
                parentItem->insertChild(index < 0 ? parentItem->childCount()
                                                  : qMin(index, parentItem->childCount()),
                                        item);
                _restoreExpanded(item);
                _select(selected, QItemSelectionModel::Select);
            }
        }
    }
    if (SelectionManager::ip())
        SelectionManager::ip()->refresh();
}

void ScreenTree::_handleSelectionChanged(QSharedPointer<Event> const &event)
{
    auto const change = event.dynamicCast<SelectionChangedEvent>();
    if (!change || !_syncEnabled)
        return;
    QScopedValueRollback<bool> const guard(_syncEnabled, false);
    QList<QUuid> const added = change->added();
    QList<QTreeWidgetItem *> const addedItems = _items(added);
    for (QTreeWidgetItem *item : addedItems) {
        if (item) {
            setCurrentItem(item);
            break;
        }
    }
    // An id named in both lists was selected anew: it stays selected. The new selection goes
    // to the view in one step.
    QSet<QUuid> const addedSet(added.begin(), added.end());
    QList<QTreeWidgetItem *> const shown = selectedItems();
    QSet<QTreeWidgetItem *> items(shown.begin(), shown.end());
    QList<QUuid> const removed = change->removed();
    QList<QTreeWidgetItem *> const removedItems = _items(removed);
    for (int index = 0; index < removed.size(); ++index) {
        if (!addedSet.contains(removed.at(index)))
            items.remove(removedItems.at(index));
    }
    for (QTreeWidgetItem *item : addedItems)
        items.insert(item);
    items.remove(nullptr);
    _select(items.values(), QItemSelectionModel::ClearAndSelect);
    update();
}

void ScreenTree::_refreshSelection()
{
    QList<QUuid> const selected
        = SelectionManager::ip() ? SelectionManager::ip()->selected() : QList<QUuid>();
    // Showing what is shown already would change nothing. A bulk move asks for a refresh per
    // object, so this check must not walk the whole tree.
    QList<QTreeWidgetItem *> const shown = selectedItems();
    if (shown.size() == selected.size()) {
        QSet<QUuid> const wanted(selected.begin(), selected.end());
        if (std::all_of(shown.begin(), shown.end(),
                        [&](QTreeWidgetItem *item) { return wanted.contains(idOf(item)); }))
            return;
    }
    QScopedValueRollback<bool> const guard(_syncEnabled, false);
    QList<QTreeWidgetItem *> items = _items(selected);
    items.removeAll(nullptr);
    _select(items, QItemSelectionModel::ClearAndSelect);
}

void ScreenTree::_itemSelectionChanged()
{
    SelectionManager *selection = SelectionManager::ip();
    if (!_syncEnabled || !selection)
        return;
    QScopedValueRollback<bool> const guard(_syncEnabled, false);

    // What the tree no longer shows as selected leaves the selection; what it newly shows
    // joins it. Objects without an item stay as they are.
    QList<QUuid> const before = selection->selected();
    QList<QTreeWidgetItem *> const items = _items(before);
    QList<QUuid> kept;
    QList<QUuid> removed;
    for (int index = 0; index < before.size(); ++index) {
        QTreeWidgetItem *item = items.at(index);
        (item && !item->isSelected() ? removed : kept).append(before.at(index));
    }
    QSet<QUuid> const known(before.begin(), before.end());
    QList<QUuid> added;
    for (QUuid const &id : _selectedIds()) {
        if (!id.isNull() && !known.contains(id))
            added.append(id);
    }

    // One change of the selection, so one event, however many objects a click touched.
    if (removed.isEmpty())
        selection->additiveSelect(added);
    else if (added.isEmpty())
        selection->deselect(removed);
    else
        selection->select(kept + added);
}

void ScreenTree::_itemCollapsed(QTreeWidgetItem *item)
{
    _setExpandedProperty(item, false);
}

void ScreenTree::_itemExpanded(QTreeWidgetItem *item)
{
    _setExpandedProperty(item, true);
}

void ScreenTree::_setExpandedProperty(QTreeWidgetItem *item, bool expanded)
{
    if (QSharedPointer<SceneObject> const object = objectOf(idOf(item)))
        AbstractBooleanProperty::Set(object->model(), ExpandedProperty, expanded,
                                     PropertyChangeReason::ReasonInternal);
}

void ScreenTree::dragEnterEvent(QDragEnterEvent *event)
{
    if (!_dragDropInterface)
        return;
    QMimeData const *data = event->mimeData();
    if (data && data->hasText() && data->text() == QLatin1String(HostConstants::MimeScreenTree)
        && _dragDropInterface->canDrag(_selectedIds()))
        event->accept();
    else
        event->ignore();
}

void ScreenTree::dragMoveEvent(QDragMoveEvent *event)
{
    if (!_dragDropInterface)
        return;
    QUuid const target = idOf(itemAt(event->pos()));
    if (target.isNull())
        return;
    bool const accepted = _dragDropInterface->canDrop(target, _selectedIds());
    if (accepted)
        setHighlightItem(target);
    event->setAccepted(accepted);
}

void ScreenTree::dropEvent(QDropEvent *event)
{
    if (!_dragDropInterface)
        return;
    setHighlightItem(QUuid());
    if (QTreeWidgetItem *item = itemAt(event->pos())) {
        _dragDropInterface->drop(idOf(item), _selectedIds());
        // The view's own move must never run: the scene's events move the items.
        event->ignore();
    }
}

void ScreenTree::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (!itemAt(event->pos()))
        clearSelection();
    QTreeView::mousePressEvent(event);
}

QItemSelectionModel::SelectionFlags ScreenTree::selectionCommand(QModelIndex const &index,
                                                                 QEvent const *event) const
{
    auto const *mouse = dynamic_cast<QMouseEvent const *>(event);
    if (!mouse)
        return QItemSelectionModel::NoUpdate;
    bool const shift = mouse->modifiers() & Qt::ShiftModifier;
    bool const control = mouse->modifiers() & Qt::ControlModifier;
    if (shift && control)
        return selectionModel()->isSelected(index) ? QItemSelectionModel::Deselect
                                                   : QItemSelectionModel::Select;
    if (shift)
        return QItemSelectionModel::Select;
    if (control)
        return QItemSelectionModel::Deselect;
    return QItemSelectionModel::ClearAndSelect;
}

void ScreenTree::_addRoot(QUuid const &id)
{
    QSharedPointer<SceneObject> const object = objectOf(id);
    if (!object)
        return;
    QTreeWidgetItem *item = _makeItem(*object);
    addTopLevelItem(item);
    _fillItem(item, *object);
}

QTreeWidgetItem *ScreenTree::_addChild(QTreeWidgetItem *parentItem, QUuid const &id, int index)
{
    QSharedPointer<SceneObject> const object = objectOf(id);
    if (!parentItem || !object)
        return nullptr;
    QTreeWidgetItem *item = _makeItem(*object);
    int const count = parentItem->childCount();
    parentItem->insertChild(index < 0 || index > count ? count : index, item);
    _fillItem(item, *object);
    return item;
}

void ScreenTree::_addChildren(SceneObject &object, QTreeWidgetItem *parentItem)
{
    for (QUuid const &id : object.children(false)) {
        QSharedPointer<SceneObject> const child = objectOf(id);
        if (!child)
            continue;
        QTreeWidgetItem *item = _makeItem(*child);
        parentItem->addChild(item);
        _fillItem(item, *child);
    }
}

QTreeWidgetItem *ScreenTree::_makeItem(SceneObject &object)
{
    QUuid const id = object.id();
    auto *item = new QTreeWidgetItem(QTreeWidgetItem::Type);
    item->setData(0, Qt::DisplayRole, object.getName());
    item->setData(0, Qt::DecorationRole, object.icon());
    item->setData(0, Qt::UserRole, id);
    if (_styleManipulator)
        _styleManipulator->styleItem(item, id);
    return item;
}

void ScreenTree::_fillItem(QTreeWidgetItem *item, SceneObject &object)
{
    // Before any child exists, so that opening it builds nothing twice.
    item->setExpanded(AbstractBooleanProperty::Get(object.model(), ExpandedProperty));
    _addChildren(object, item);
}

void ScreenTree::_takeItem(QTreeWidgetItem *item)
{
    if (QTreeWidgetItem *parentItem = item->parent())
        parentItem->takeChild(parentItem->indexOfChild(item));
    else
        takeTopLevelItem(indexOfTopLevelItem(item));
}

void ScreenTree::_restoreExpanded(QTreeWidgetItem *item)
{
    if (QSharedPointer<SceneObject> const object = objectOf(idOf(item)))
        item->setExpanded(AbstractBooleanProperty::Get(object->model(), ExpandedProperty));
    for (int index = 0; index < item->childCount(); ++index)
        _restoreExpanded(item->child(index));
}

QList<QTreeWidgetItem *> ScreenTree::_items(QList<QUuid> const &ids) const
{
    QList<QTreeWidgetItem *> items;
    items.reserve(ids.size());
    if (ids.size() <= MappedLookup) {
        for (QUuid const &id : ids)
            items.append(findItem(id));
        return items;
    }
    QHash<QUuid, QTreeWidgetItem *> byId;
    for (QTreeWidgetItemIterator it(const_cast<ScreenTree *>(this)); *it; ++it)
        byId.insert(idOf(*it), *it);
    for (QUuid const &id : ids)
        items.append(byId.value(id));
    return items;
}

void ScreenTree::_select(QList<QTreeWidgetItem *> const &items,
                         QItemSelectionModel::SelectionFlags command)
{
    // Rows next to each other under one parent make one range: the selection model compares
    // ranges pairwise, so that a thousand single rows would cost a million comparisons.
    QHash<QModelIndex, QVector<int>> rowsByParent;
    for (QTreeWidgetItem *item : items) {
        QModelIndex const index = indexFromItem(item);
        rowsByParent[index.parent()].append(index.row());
    }
    QItemSelection selection;
    for (auto entry = rowsByParent.begin(); entry != rowsByParent.end(); ++entry) {
        QVector<int> &rows = entry.value();
        std::sort(rows.begin(), rows.end());
        for (int first = 0; first < rows.size();) {
            int last = first;
            while (last + 1 < rows.size() && rows.at(last + 1) <= rows.at(last) + 1)
                ++last;
            selection.append(QItemSelectionRange(model()->index(rows.at(first), 0, entry.key()),
                                                 model()->index(rows.at(last), 0, entry.key())));
            first = last + 1;
        }
    }
    selectionModel()->select(selection, command);
}

QList<QTreeWidgetItem *> ScreenTree::_selectedInSubtree(QTreeWidgetItem *item) const
{
    QList<QTreeWidgetItem *> selected;
    if (item->isSelected())
        selected.append(item);
    for (int index = 0; index < item->childCount(); ++index)
        selected += _selectedInSubtree(item->child(index));
    return selected;
}

QList<QUuid> ScreenTree::_selectedIds() const
{
    QList<QUuid> ids;
    for (QTreeWidgetItem *item : selectedItems())
        ids.append(idOf(item));
    return ids;
}

bool ScreenTree::_isActive(QUuid const &screen)
{
    return !screen.isNull() && SceneManager::ip()
           && screen == SceneManager::ip()->getActiveScreen();
}

} // namespace TES
