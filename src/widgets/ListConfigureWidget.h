// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"
#include "widgets/ReorderableListModel.h"

#include <QWidget>

class QAction;
class QListWidget;
class QListWidgetItem;
class QToolBar;

namespace TES {

class ListConfigureWidget;

// Makes the row that a ListConfigureWidget shows for one item of its model. Implemented by
// whoever knows what the items are; the widget does not own it.
class TES_EXPORT ListConfigureItemFactory
{
public:
    virtual ~ListConfigureItemFactory() = default;

    // A new row for the model's item at index; the widget inserts it itself.
    virtual QListWidgetItem *createListItem(ListConfigureWidget *widget, unsigned int index) = 0;
    // The row has been taken out of the list; the factory disposes of it.
    virtual void destroyListItem(ListConfigureWidget *widget, QListWidgetItem *item) = 0;
};

// The editor of a ReorderableListModel: a tool bar of seven actions (new, delete, delete all,
// up, to the top, down, to the bottom) over a list with extended selection. The actions act
// on the selected rows through the model, and the widget follows the model as its listener,
// so that a moved selection stays selected.
//
// The widget owns its tool bar and list; neither the model nor the item factory. It adds
// itself to the model's listeners and never leaves them: whoever destroys the widget first
// removes it from a model that lives on.
class TES_EXPORT ListConfigureWidget : public QWidget, public ReorderableListModelListener
{
    Q_OBJECT

public:
    ListConfigureWidget(ReorderableListModel *model, ListConfigureItemFactory *itemFactory);
    ~ListConfigureWidget() override;

    unsigned int itemRow(QListWidgetItem *item) const;
    // Ascending.
    QList<unsigned int> selectedRows();
    void clearSelection();

    void reorderableListItemAdded(unsigned int index) override;
    void reorderableListItemMoved(unsigned int from, unsigned int to) override;
    void reorderableListItemAboutToRemove(unsigned int index) override;

signals:
    void selectionChanged();

protected:
    // A press beside every row (in the tool bar, say) clears the selection.
    void mousePressEvent(QMouseEvent *event) override;

private slots:
    void _new();
    void _delete();
    void _deleteAll();
    void _up();
    void _top();
    void _down();
    void _bottom();
    void _selectionChanged();

private:
    void _fillList();
    void _refreshButtons();
    void _moveSelection(void (ReorderableListModel::*move)(QList<unsigned int>));

    QAction *_newAction;
    QAction *_deleteAction;
    QAction *_deleteAllAction;
    QAction *_upAction;
    QAction *_topAction;
    QAction *_downAction;
    QAction *_bottomAction;
    QToolBar *_toolBar;
    QListWidget *_list;
    ListConfigureItemFactory *_itemFactory;
    ReorderableListModel *_model;
};

} // namespace TES
