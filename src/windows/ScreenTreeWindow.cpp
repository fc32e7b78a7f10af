// SPDX-License-Identifier: MIT
#include "windows/ScreenTreeWindow.h"

#include "events/EventBus.h"
#include "events/EventTypes.h"
#include "scene/SceneManager.h"
#include "scene/SceneObject.h"
#include "scene/Screen.h"
#include "scene/SelectionManager.h"
#include "services/HostConstants.h"
#include "services/Utils.h"
#include "windows/ScreenTree.h"
#include "windows/ScreenTreeWindowStateListener.h"
#include "windows/TesseraWindow.h"

#include <QAction>
#include <QKeyEvent>
#include <QMessageBox>
#include <QToolBar>
#include <QVBoxLayout>

namespace TES {

ScreenTreeWindow *ScreenTreeWindow::_instance = nullptr;

namespace {

QList<QUuid> selection()
{
    return SelectionManager::ip() ? SelectionManager::ip()->selected() : QList<QUuid>();
}

QSharedPointer<Screen> activeScreen()
{
    SceneManager *manager = SceneManager::ip();
    return manager ? manager->screen(manager->getActiveScreen()).toStrongRef()
                   : QSharedPointer<Screen>();
}

} // namespace

ScreenTreeWindow::ScreenTreeWindow(QWidget *parent) : QWidget(parent)
{
    _instance = this;
    _toolBar = new QToolBar(this);
    _deleteButton = _addAction("actionDelete_Objects", "Delete Selected Objects",
                               HostConstants::IconDelete, &ScreenTreeWindow::_deleteObjects);
    _moveUpButton = _addAction("actionMove_Up", "Move Selected Objects Up",
                               HostConstants::IconRaise, &ScreenTreeWindow::_moveUp);
    _moveToTopButton = _addAction("actionMove_ToTop", "Move Selected Objects To Top",
                                  HostConstants::IconTop, &ScreenTreeWindow::_moveToTop);
    _moveDownButton = _addAction("actionMove_Down", "Move Selected Objects Down",
                                 HostConstants::IconLower, &ScreenTreeWindow::_moveDown);
    _moveToBottomButton = _addAction("actionMove_ToBottom", "Move Selected Objects To Bottom",
                                     HostConstants::IconBottom, &ScreenTreeWindow::_moveToBottom);

    _layout = new QVBoxLayout(this);
    _layout->setSpacing(0);
    _layout->setContentsMargins(0, 0, 0, 0);
    _layout->setObjectName("verticalLayout");
    _layout->setMenuBar(_toolBar);
    _tree = new ScreenTree(this);
    _layout->addWidget(_tree);
    _tree->rebuild();
    _tree->installEventFilter(this);
    _refreshButtons();
    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
}

ScreenTreeWindow::~ScreenTreeWindow()
{
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
    if (_instance == this)
        _instance = nullptr;
}

ScreenTreeWindow &ScreenTreeWindow::i()
{
    return *_instance;
}

ScreenTreeWindow *ScreenTreeWindow::ip()
{
    return _instance;
}

QToolBar *ScreenTreeWindow::toolBar() const
{
    return _toolBar;
}

ScreenTree *ScreenTreeWindow::tree() const
{
    return _tree;
}

QAction *ScreenTreeWindow::deleteButton() const
{
    return _deleteButton;
}

QAction *ScreenTreeWindow::moveUpButton() const
{
    return _moveUpButton;
}

QAction *ScreenTreeWindow::moveDownButton() const
{
    return _moveDownButton;
}

QAction *ScreenTreeWindow::moveToTopButton() const
{
    return _moveToTopButton;
}

QAction *ScreenTreeWindow::moveToBottomButton() const
{
    return _moveToBottomButton;
}

ScreenTreeWindowStateListener *ScreenTreeWindow::getListener() const
{
    return _listener;
}

void ScreenTreeWindow::setListener(ScreenTreeWindowStateListener *listener)
{
    _listener = listener;
    _refreshButtons();
}

QString ScreenTreeWindow::getEventHandlerName() const
{
    return QStringLiteral("ScreenTreeWindow");
}

bool ScreenTreeWindow::canHandleEvent(unsigned long long mask) const
{
    return (mask & (EVM_PROJECT | EVM_SCREEN | EVM_SCENE | EVM_SELECT)) != 0;
}

void ScreenTreeWindow::handleEvent(QSharedPointer<Event>)
{
    _refreshButtons();
}

bool ScreenTreeWindow::persistent() const
{
    return true;
}

bool ScreenTreeWindow::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::KeyRelease
        || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Delete || !_deleteButton->isEnabled())
        return false;
    _deleteObjects();
    return true;
}

QAction *ScreenTreeWindow::_addAction(char const *name, QString const &toolTip, char const *icon,
                                      void (ScreenTreeWindow::*slot)())
{
    auto *action = new QAction(QIcon(QString::fromLatin1(icon)), QString(), this);
    action->setObjectName(QString::fromLatin1(name));
    action->setToolTip(toolTip);
    connect(action, &QAction::triggered, this, slot);
    _toolBar->addAction(action);
    return action;
}

void ScreenTreeWindow::_refreshButtons()
{
    // The five alone: a plug-in may have added actions of its own to the tool bar.
    for (QAction *action :
         {_deleteButton, _moveUpButton, _moveToTopButton, _moveDownButton, _moveToBottomButton})
        action->setEnabled(false);
    _refreshArrowButtons();
    if (_listener)
        _listener->stateRefreshed(selection());
}

void ScreenTreeWindow::_refreshArrowButtons()
{
    QList<QUuid> const selected = selection();
    if (!activeScreen() || selected.isEmpty())
        return;
    _deleteButton->setEnabled(true);

    // Roots are left out: a selection of roots alone offers no arrow.
    QMap<QUuid, QList<QUuid>> const groups = Utils::SortByParent(selected);
    if (groups.isEmpty())
        return;
    bool canMoveUp = true;
    bool canMoveDown = true;
    for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
        QSharedPointer<SceneObject> const parent = Utils::GetSceneObject(group.key());
        if (!parent)
            return;
        QList<int> indices;
        for (QUuid const &id : group.value()) {
            if (!Utils::GetSceneObject(id))
                return;
            indices.append(parent->indexOfChild(id, false));
        }
        canMoveUp = canMoveUp && Utils::ItemsCanMoveUp(indices);
        canMoveDown = canMoveDown && Utils::ItemsCanMoveDown(indices, parent->childCount(false));
        if (!canMoveUp && !canMoveDown)
            break;
    }
    if (!canMoveUp && !canMoveDown)
        return;
    _moveUpButton->setEnabled(canMoveUp);
    _moveToTopButton->setEnabled(canMoveUp);
    _moveDownButton->setEnabled(canMoveDown);
    _moveToBottomButton->setEnabled(canMoveDown);
}

void ScreenTreeWindow::_move(void (Screen::*rootMove)(QList<QUuid> const &),
                             void (*objectMove)(QList<QUuid> const &))
{
    QList<QUuid> const selected = selection();
    QSharedPointer<Screen> const screen = activeScreen();
    if (!screen)
        return;
    QList<QUuid> roots;
    QList<QUuid> objects;
    for (QUuid const &id : selected) {
        if (screen->indexOfRoot(id) >= 0)
            roots.append(id);
        else if (screen->ownsObject(id))
            objects.append(id);
    }
    ((*screen).*rootMove)(roots);
    objectMove(Utils::SortObjects(objects));
}

void ScreenTreeWindow::_moveUp()
{
    _move(&Screen::raiseRoots, &Utils::MoveObjectsUp);
}

void ScreenTreeWindow::_moveToTop()
{
    _move(&Screen::raiseRootsToTop, &Utils::MoveObjectsToTop);
}

void ScreenTreeWindow::_moveDown()
{
    _move(&Screen::lowerRoots, &Utils::MoveObjectsDown);
}

void ScreenTreeWindow::_moveToBottom()
{
    _move(&Screen::lowerRootsToBottom, &Utils::MoveObjectsToBottom);
}

void ScreenTreeWindow::_deleteObjects()
{
    QList<QUuid> const selected = selection();
    if (!selected.isEmpty()) {
        QMessageBox box(TesseraWindow::ip());
        box.setWindowTitle("Confirm Delete Objects");
        box.setText("Are you sure you want to delete the selected objects?  This can not be "
                    "undone.");
        box.setInformativeText("Delete selected objects?");
        box.setIcon(QMessageBox::Warning);
        box.addButton("Yes", QMessageBox::YesRole);
        box.addButton("No", QMessageBox::NoRole);
        box.setDefaultButton(QMessageBox::No);
        box.exec();
        if (box.buttonRole(box.clickedButton()) == QMessageBox::NoRole)
            return;
    }
    if (SelectionManager::ip())
        SelectionManager::ip()->deselectAll();
    SceneManager *manager = SceneManager::ip();
    if (!manager)
        return;
    for (QUuid const &id : selected) {
        if (!manager->isScreenRoot(id)) {
            manager->deleteObject(id);
        } else if (QSharedPointer<Screen> const screen = activeScreen()) {
            screen->removeRoot(id);
        }
    }
}

} // namespace TES
