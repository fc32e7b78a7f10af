// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "tessera_export.h"

#include <QList>
#include <QUuid>
#include <QWidget>

class QAction;
class QToolBar;
class QVBoxLayout;

namespace TES {

class Screen;
class ScreenTree;
class ScreenTreeWindowStateListener;

// The content of the "Screen Tree" dock: a tool bar of five actions (delete, up, to top,
// down, to bottom) above the ScreenTree. The actions are enabled for what the selection
// allows; they ask the scene classes to delete and reorder, and the tree follows the events
// that come of it. The Delete key, on its release in the tree, deletes like the action.
//
// Created by TesseraWindow, owned by its dock. A persistent handler on EventBus: every event
// it receives enables the actions anew and then tells the listener, if one is set.
class TES_EXPORT ScreenTreeWindow : public QWidget, public IEventHandler
{
    Q_OBJECT

public:
    explicit ScreenTreeWindow(QWidget *parent = nullptr);
    ~ScreenTreeWindow() override;

    static ScreenTreeWindow &i();
    static ScreenTreeWindow *ip();

    QToolBar *toolBar() const;
    ScreenTree *tree() const;
    QAction *deleteButton() const;
    QAction *moveUpButton() const;
    QAction *moveDownButton() const;
    QAction *moveToTopButton() const;
    QAction *moveToBottomButton() const;

    ScreenTreeWindowStateListener *getListener() const;
    // Not owned; null for none. Refreshes the actions at once, which tells the listener.
    void setListener(ScreenTreeWindowStateListener *listener);

    // "ScreenTreeWindow".
    QString getEventHandlerName() const override;
    // EVM_PROJECT, EVM_SCREEN, EVM_SCENE and EVM_SELECT.
    bool canHandleEvent(unsigned long long mask) const override;
    void handleEvent(QSharedPointer<Event> event) override;
    // True.
    bool persistent() const override;

    // Installed on the tree: the release of the Delete key deletes while the delete action is
    // enabled. Everything else goes on.
    bool eventFilter(QObject *watched, QEvent *event) override;

    static ScreenTreeWindow *_instance;

private slots:
    // Asks for confirmation, empties the selection, then deletes each object that was
    // selected: a root through its screen, any other through SceneManager.
    void _deleteObjects();
    void _moveUp();
    void _moveToTop();
    void _moveDown();
    void _moveToBottom();

private:
    QAction *_addAction(char const *name, QString const &toolTip, char const *icon,
                        void (ScreenTreeWindow::*slot)());
    void _refreshButtons();
    void _refreshArrowButtons();
    // Splits the selection into the active screen's roots, moved by `rootMove`, and the
    // objects below them, sorted and moved by `objectMove`.
    void _move(void (Screen::*rootMove)(QList<QUuid> const &),
               void (*objectMove)(QList<QUuid> const &));

    QToolBar *_toolBar = nullptr;
    ScreenTree *_tree = nullptr;
    QAction *_deleteButton = nullptr;
    QAction *_moveUpButton = nullptr;
    QAction *_moveDownButton = nullptr;
    QAction *_moveToTopButton = nullptr;
    QAction *_moveToBottomButton = nullptr;
    QVBoxLayout *_layout = nullptr;
    ScreenTreeWindowStateListener *_listener = nullptr;
};

} // namespace TES
