// SPDX-License-Identifier: MIT
#include "designer/ScreenDesignerWindow.h"

#include "designer/ScreenDesignArea.h"
#include "events/EventBus.h"
#include "events/ScreenEvents.h"
#include "scene/SceneManager.h"
#include "scene/Screen.h"
#include "scene/SelectionManager.h"

#include <QTabBar>
#include <QVBoxLayout>

namespace TES {

template<>
ScreenDesignerWindow *Singleton<ScreenDesignerWindow>::_instance = nullptr;

namespace {

QString screenName(QUuid const &id)
{
    QSharedPointer<Screen> const screen
        = SceneManager::ip() ? SceneManager::ip()->screen(id).toStrongRef() : nullptr;
    return screen ? screen->getName() : QString();
}

void activateScreen(QUuid const &id)
{
    if (SceneManager::ip())
        SceneManager::ip()->setActiveScreen(id);
}

} // namespace

ScreenDesignerWindow::ScreenDesignerWindow(QWidget *parent) : QWidget(parent)
{
    _instance = this;
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    _tabBar = new QTabBar(this);
    _tabBar->setTabsClosable(true);
    _tabBar->setMovable(true);
    _tabBar->setExpanding(false);
    _tabBar->hide();
    connect(_tabBar, &QTabBar::tabCloseRequested, this, &ScreenDesignerWindow::_closeTab);
    connect(_tabBar, &QTabBar::currentChanged, this, &ScreenDesignerWindow::tabChanged);
    layout->addWidget(_tabBar);
    _designArea = new ScreenDesignArea(this);
    layout->addWidget(_designArea);
    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
}

ScreenDesignerWindow::~ScreenDesignerWindow()
{
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
    _instance = nullptr;
}

ScreenDesignArea *ScreenDesignerWindow::DesignArea()
{
    return _instance ? _instance->_designArea : nullptr;
}

ScreenDesignArea *ScreenDesignerWindow::screenDesignArea() const
{
    return _designArea;
}

QTabBar *ScreenDesignerWindow::tabBar() const
{
    return _tabBar;
}

QString ScreenDesignerWindow::getEventHandlerName() const
{
    return "ScreenDesignerWindow";
}

bool ScreenDesignerWindow::canHandleEvent(unsigned long long mask) const
{
    return mask & (EVM_PROJECT | EVM_SCREEN | EVM_SCENE | EVM_SELECT);
}

void ScreenDesignerWindow::handleEvent(QSharedPointer<Event> event)
{
    switch (event->type()) {
    case EVT_PROJECT_REQUEST_BLANK:
        _removeAllTabs();
        break;
    case EVT_PROJECT_LOADED: {
        _removeAllTabs();
        if (!SceneManager::ip())
            break;
        // Every screen, visible or not, gets a tab after a load.
        QSignalBlocker const blocker(_tabBar);
        for (QUuid const &id : SceneManager::ip()->screens())
            _addTab(id);
        int const active = _screenTabIndex(SceneManager::ip()->getActiveScreen());
        if (active >= 0)
            _tabBar->setCurrentIndex(active);
        _tabBar->show();
        break;
    }
    case EVT_SCREEN_RENAMED: {
        auto const renamed = event.staticCast<ScreenRenamedEvent>();
        int const index = _tabIndexByName(renamed->name());
        if (index >= 0)
            _tabBar->setTabText(index, screenName(renamed->screen()));
        break;
    }
    case EVT_SCREEN_ACTIVE_CHANGED:
        if (SelectionManager::ip())
            SelectionManager::ip()->deselectAll();
        _tabBar->show();
        _tabBar->setCurrentIndex(_screenTabIndex(event.staticCast<ScreenGenericEvent>()->screen()));
        break;
    case EVT_SCREEN_VISIBLE_CHANGED: {
        auto const changed = event.staticCast<ScreenVisibilityChangedEvent>();
        if (!changed->visible()) {
            int const index = _tabIndexByName(screenName(changed->screen()));
            if (index >= 0)
                _tabBar->removeTab(index);
            break;
        }
        _tabBar->show();
        QSignalBlocker const blocker(_tabBar);
        _addTab(changed->screen());
        _tabBar->setCurrentIndex(_tabBar->count() - 1);
        break;
    }
    case EVT_SCREEN_REPAINT_REQUEST:
    case EVT_SCENE_CHILDADDED:
    case EVT_SCENE_CHILDREMOVED:
    case EVT_SCENE_CHILDMOVED:
    case EVT_SCENE_CHILDREPARENTED:
    case EVT_SCENE_SCENEOBJECTSTATECHANGED:
        _designArea->update();
        break;
    default:
        break;
    }
}

bool ScreenDesignerWindow::persistent() const
{
    return true;
}

void ScreenDesignerWindow::tabChanged(int)
{
    QSignalBlocker const blocker(_tabBar);
    int const current = _tabBar->currentIndex();
    activateScreen(current >= 0 ? _tabBar->tabData(current).value<QUuid>() : QUuid());
}

void ScreenDesignerWindow::_closeTab(int index)
{
    _tabBar->blockSignals(true);
    // A negative index leaves the signals blocked; Qt never sends one.
    if (index < 0)
        return;
    if (SceneManager::ip())
        SceneManager::ip()->setScreenVisible(_tabBar->tabData(index).value<QUuid>(), false);
    int const current = _tabBar->currentIndex();
    activateScreen(current >= 0 ? _tabBar->tabData(current).value<QUuid>() : QUuid());
    _tabBar->blockSignals(false);
}

int ScreenDesignerWindow::_screenTabIndex(QUuid const &id) const
{
    for (int index = 0; index < _tabBar->count(); ++index) {
        if (_tabBar->tabData(index).value<QUuid>() == id)
            return index;
    }
    return -1;
}

int ScreenDesignerWindow::_tabIndexByName(QString const &name) const
{
    for (int index = 0; index < _tabBar->count(); ++index) {
        if (_tabBar->tabText(index) == name)
            return index;
    }
    return -1;
}

void ScreenDesignerWindow::_addTab(QUuid const &id)
{
    int const index = _tabBar->addTab(screenName(id));
    _tabBar->setTabData(index, QVariant::fromValue(id));
}

void ScreenDesignerWindow::_removeAllTabs()
{
    // Quietly: the screens of the tabs may be gone already, and must not become active again.
    QSignalBlocker const blocker(_tabBar);
    while (_tabBar->count() > 0)
        _tabBar->removeTab(0);
}

} // namespace TES
