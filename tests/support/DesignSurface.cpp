// SPDX-License-Identifier: MIT
#include "support/DesignSurface.h"

#include "designer/ScreenDesignArea.h"
#include "designer/ScreenDesignerWindow.h"
#include "designer/ScreenOverlay.h"
#include "designer/SelectionOverlay.h"
#include "events/EventBus.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "scene/TransformSceneObject.h"
#include "services/GlobalState.h"
#include "services/Utils.h"
#include "support/TestScene.h"
#include "tools/ToolManager.h"

#include <QtTest>

namespace TES::Test {

DesignSurface::DesignSurface(int widthPadding, int heightPadding)
    : _widthPadding(widthPadding), _heightPadding(heightPadding)
{
    new EventBus();
    EventBus::i().setEventsEnabled(true);
    new GlobalState();
    new SceneManager();
    new SelectionManager();
    new ToolManager();
    TestScene::registerFactories();
    _window = new ScreenDesignerWindow();
    new ScreenOverlay(_window);
    new SelectionOverlay(_window);
    GlobalState::i().setInt(GlobalPropertyType::Project, ProjectScreenDesignerWidthPadding,
                            _widthPadding);
    GlobalState::i().setInt(GlobalPropertyType::Project, ProjectScreenDesignerHeightPadding,
                            _heightPadding);
    sizeContainer();
    _window->resize(900, 600);
    _window->show();
    if (!QTest::qWaitForWindowExposed(_window))
        qWarning("DesignSurface: the window was never exposed");
}

DesignSurface::~DesignSurface()
{
    ToolManager::destroy();
    delete _window;
    SelectionManager::destroy();
    SceneManager::destroy();
    GlobalState::destroy();
    EventBus::destroy();
}

QUuid DesignSurface::addScreen(QString const &name)
{
    QUuid const id = TestScene::addScreen(name);
    SceneManager::i().setScreenVisible(id, true);
    return id;
}

void DesignSurface::sizeContainer()
{
    QSize const size = SceneManager::i().screenSize();
    area().overlayContainer()->setFixedSize(size.width() + 2 * _widthPadding,
                                            size.height() + 2 * _heightPadding);
}

ScreenDesignerWindow &DesignSurface::window() const
{
    return *_window;
}

ScreenDesignArea &DesignSurface::area() const
{
    return *_window->screenDesignArea();
}

QWidget *DesignSurface::input() const
{
    return area().inputWidget();
}

QRect DesignSurface::onSurface(QUuid const &id)
{
    auto object = Utils::GetSceneObject(id).dynamicCast<TransformSceneObject>();
    return object ? ScreenOverlay::toScreenCoords(object->rootRectangle()) : QRect();
}

QPoint DesignSurface::_inWindow(QPoint const &p) const
{
    return input()->mapTo(_window, p);
}

void DesignSurface::press(QPoint const &p, Qt::KeyboardModifiers modifiers) const
{
    QTest::mousePress(_window->windowHandle(), Qt::LeftButton, modifiers, _inWindow(p));
}

void DesignSurface::move(QPoint const &p, Qt::KeyboardModifiers modifiers) const
{
    QTest::mouseEvent(QTest::MouseMove, _window->windowHandle(), Qt::NoButton, modifiers,
                      _inWindow(p));
}

void DesignSurface::release(QPoint const &p, Qt::KeyboardModifiers modifiers) const
{
    QTest::mouseRelease(_window->windowHandle(), Qt::LeftButton, modifiers, _inWindow(p));
}

void DesignSurface::drag(QPoint const &from, QPoint const &to,
                         Qt::KeyboardModifiers modifiers) const
{
    press(from, modifiers);
    move((from + to) / 2, modifiers);
    move(to, modifiers);
    release(to, modifiers);
}

} // namespace TES::Test
