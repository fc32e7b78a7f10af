// SPDX-License-Identifier: MIT
#include "events/Event.h"
#include "events/EventBus.h"
#include "events/EventTypes.h"
#include "properties/view/PropertyView.h"
#include "properties/view/PropertyViewContainer.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "support/TestContainer.h"
#include "support/TestLeaf.h"
#include "support/TestScene.h"
#include "support/TestScreen.h"
#include "windows/PropertyEditorWindow.h"

#include <QtTest>

using namespace TES;
using TES::Test::TestScene;

class tst_PropertyEditorWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void followsSelectionAndActiveScreen();

private:
    // The model behind the view on show; null when the editor is empty.
    PropertyModel *_shown() const;

    PropertyEditorWindow *_window = nullptr;
};

void tst_PropertyEditorWindow::init()
{
    new EventBus();
    EventBus::i().setEventsEnabled(true);
    new SceneManager();
    TestScene::registerFactories();
    new SelectionManager();
    _window = new PropertyEditorWindow();
    _window->resize(300, 400);
    _window->show();
}

void tst_PropertyEditorWindow::cleanup()
{
    delete _window;
    SelectionManager::destroy();
    SceneManager::destroy();
    EventBus::destroy();
}

PropertyModel *tst_PropertyEditorWindow::_shown() const
{
    PropertyView *view = _window->container()->currentView();
    if (!view)
        return nullptr;
    return view->isVisibleTo(_window) ? view->getModel() : nullptr;
}

void tst_PropertyEditorWindow::followsSelectionAndActiveScreen()
{
    QUuid const first = TestScene::addScreen("first");
    QUuid const second = TestScene::addScreen("second");
    QUuid const box = TestScene::addContainer(first, QRect(0, 0, 100, 100), "box");
    QUuid const one = TestScene::addLeaf(first, QRect(0, 0, 10, 10), "one");
    QUuid const two = TestScene::addLeaf(first, QRect(20, 0, 10, 10), "two");
    PropertyModel *firstModel = TestScene::screen(first)->model();
    QCOMPARE(_shown(), nullptr);

    SceneManager::i().setActiveScreen(first);
    QCOMPARE(_shown(), firstModel);

    SelectionManager::i().select(one);
    QCOMPARE(_shown(), TestScene::leaf(one)->model());
    // An object without a view of its own shows its screen.
    SelectionManager::i().select(box);
    QCOMPARE(_shown(), firstModel);
    // Several objects are not merged: the editor is empty, not the screen's.
    SelectionManager::i().select(QList<QUuid>{one, two});
    QCOMPARE(_shown(), nullptr);
    SelectionManager::i().deselectAll();
    QCOMPARE(_shown(), firstModel);

    SceneManager::i().setActiveScreen(second);
    QCOMPARE(_shown(), TestScene::screen(second)->model());
    EventBus::i().raiseEventNow(
        QSharedPointer<Event>::create(EVT_PROJECT_REQUEST_BLANK, EVM_PROJECT));
    QCOMPARE(_shown(), nullptr);
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(EVT_PROJECT_LOADED, EVM_PROJECT));
    QCOMPARE(_shown(), TestScene::screen(second)->model());
    SceneManager::i().setActiveScreen(QUuid());
    QCOMPARE(_shown(), nullptr);
    SelectionManager::i().deselectAll();
    QCOMPARE(_shown(), nullptr);
}

QTEST_MAIN(tst_PropertyEditorWindow)
#include "tst_PropertyEditorWindow.moc"
