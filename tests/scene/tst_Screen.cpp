// SPDX-License-Identifier: MIT
#include "events/EventBus.h"
#include "events/SceneObjectAboutToDeleteEvent.h"
#include "events/ScreenEvents.h"
#include "properties/AbstractTextProperty.h"
#include "properties/Property.h"
#include "properties/PropertyCategory.h"
#include "scene/SceneManager.h"
#include "scene/ScreenNameValidator.h"
#include "support/RecordingHandler.h"
#include "support/Services.h"
#include "support/TestScene.h"
#include "support/TestScreen.h"

#include <QtTest>

using namespace TES;
using namespace TES::Test;

class tst_Screen : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void construction();
    void namesAreUniqueIgnoringCase();
    void ownershipAndSearch();
    void reorderingsAndTheirGuards();
    void testScreenRaisesRootEvents();

private:
    // A screen with the leaves a, b, c, d as roots, in this order, and the leaf x on another
    // screen.
    TestScreen *_fourRoots();
    QString _order(TestScreen *screen) const;
    QList<QUuid> _ids(QString const &names) const;
    QString _moves(TestScreen *screen) const;

    QHash<QUuid, QString> _names;
    std::optional<Services> _services;
};

void tst_Screen::init()
{
    _services.emplace(Services::Bus | Services::Scene);
}

void tst_Screen::cleanup()
{
    _services.reset();
    _names.clear();
}

TestScreen *tst_Screen::_fourRoots()
{
    QUuid const id = TestScene::addScreen("four");
    for (QString const name : {"a", "b", "c", "d"})
        _names.insert(TestScene::addLeaf(id, QRect(), name), name);
    _names.insert(TestScene::addLeaf(TestScene::addScreen("other"), QRect(), "x"), "x");
    return TestScene::screen(id);
}

QString tst_Screen::_order(TestScreen *screen) const
{
    QString order;
    for (QUuid const &id : screen->roots())
        order += _names.value(id, "?");
    return order;
}

QList<QUuid> tst_Screen::_ids(QString const &names) const
{
    QList<QUuid> ids;
    for (QChar const name : names)
        ids.append(_names.key(name));
    return ids;
}

QString tst_Screen::_moves(TestScreen *screen) const
{
    QStringList words;
    for (auto const &move : screen->moveLog)
        words.append(QString("%1:%2").arg(_names.value(move.first, "null")).arg(move.second));
    return words.join(' ');
}

void tst_Screen::construction()
{
    RecordingHandler recorder(EVM_SCREEN);
    TestScreen screen("page");
    QCOMPARE(screen.getName(), QString("page"));
    // Naming in the constructor goes through the property like any rename; the screen is in no list
    // yet.
    QCOMPARE(recorder.types(), QList<unsigned long long>({EVT_SCREEN_RENAMED}));
    auto renamed = recorder.events.at(0).staticCast<ScreenRenamedEvent>();
    QCOMPARE(renamed->screen(), screen.id());
    QCOMPARE(renamed->index(), -1);
    QCOMPARE(renamed->name(), QString());

    // The plain tag list is hidden behind the screen's own answer.
    QCOMPARE(screen.type(), QString("Screen"));
    QCOMPARE(screen.Object::type(), QString("Object:Screen"));
    QCOMPARE(screen.model()->category("screen")->getText(), QString("Screen"));
    Property *name = screen.model()->property("name");
    QCOMPARE(name->getText(), QString("Name"));
    QCOMPARE(name->getHelpText(), QString("Sets the name of this object."));
    QCOMPARE(dynamic_cast<ScreenNameValidator *>(name->getValidator())->screen(), &screen);
    QCOMPARE(screen.getEventHandlerName(), QString("Screen"));
    QVERIFY(screen.canHandleEvent(EVM_GLOBALSTATE));
    QVERIFY(!screen.canHandleEvent(EVM_SCREEN | EVM_PROJECT | EVM_SCENE));
    QVERIFY(!screen.icon().isNull());

    // Without a manager a screen cannot be renamed, since the manager owns the rules.
    SceneManager::destroy();
    QVERIFY(!screen.setName("other"));
    QCOMPARE(screen.getName(), QString("page"));
    new SceneManager();
}

void tst_Screen::namesAreUniqueIgnoringCase()
{
    Screen *alpha = TestScene::screen(TestScene::addScreen("Alpha"));
    Screen *beta = TestScene::screen(TestScene::addScreen("beta"));
    RecordingHandler recorder(EVM_SCREEN);

    QVERIFY(!beta->setName("ALPHA"));
    // The property editor's way in meets the same validator.
    QVERIFY(!AbstractTextProperty::Set(beta->model(), "name", "alpha",
                                       PropertyChangeReason::ReasonView));
    QCOMPARE(beta->getName(), QString("beta"));
    QVERIFY(recorder.events.isEmpty());

    // A case change of its own name: the manager answers yes and does nothing, while the validator
    // lets the property take it.
    QVERIFY(alpha->setName("ALPHA"));
    QCOMPARE(alpha->getName(), QString("Alpha"));
    QVERIFY(AbstractTextProperty::Set(alpha->model(), "name", "ALPHA",
                                      PropertyChangeReason::ReasonView));
    QCOMPARE(alpha->getName(), QString("ALPHA"));
    QCOMPARE(recorder.events.size(), 1);
    QVERIFY(alpha->model()->property("name")->getValidator()->validate(QString()));

    // A name already taken when the screen is made is refused there too.
    TestScreen late("Beta");
    QCOMPARE(late.getName(), QString());
}

void tst_Screen::ownershipAndSearch()
{
    // page: R1 [R1] (c1 [x], c2 [c2] (g [shared])), R2 [shared]; elsewhere: stranger.
    QUuid const page = TestScene::addScreen("page");
    QUuid const r1 = TestScene::addContainer(page, QRect(), "R1");
    QUuid const c1 = TestScene::addLeaf(r1, QRect(), "x");
    QUuid const g
        = TestScene::addLeaf(TestScene::addContainer(r1, QRect(), "c2"), QRect(), "shared");
    QUuid const r2 = TestScene::addLeaf(page, QRect(), "shared");
    QUuid const stranger = TestScene::addLeaf(TestScene::addScreen("other"), QRect(), "x");
    TestScreen *screen = TestScene::screen(page);

    QVERIFY(screen->ownsRoot(r1));
    QVERIFY(!screen->ownsRoot(c1));
    QVERIFY(screen->ownsObject(g));
    QVERIFY(!screen->ownsObject(page));
    QVERIFY(!screen->ownsObject(stranger));

    // Root by root: the first root and its whole tree come before the second root.
    QCOMPARE(screen->findObjectByName("shared"), g);
    QCOMPARE(screen->findObjectByName("x"), c1);
    QCOMPARE(screen->findObjectByName("X"), QUuid());
    screen->raiseRootToTop(r2);
    QCOMPARE(screen->findObjectByName("shared"), r2);

    // A root deleted behind the screen's back is skipped, also when it is the one asked for.
    SceneManager::i().deleteObject(r2);
    QVERIFY(screen->ownsRoot(r2));
    QVERIFY(!screen->ownsObject(r2));
    QCOMPARE(screen->findObjectByName("shared"), g);
}

void tst_Screen::reorderingsAndTheirGuards()
{
    // Each operation reaches its own reordering of the roots.
    TestScreen *screen = _fourRoots();
    screen->raiseRoot(_names.key("c"));
    screen->raiseRootToTop(_names.key("d"));
    screen->lowerRoot(_names.key("a"));
    screen->lowerRootToBottom(_names.key("d"));
    screen->raiseRoots(_ids("b"));
    screen->raiseRootsToTop(_ids("a"));
    screen->lowerRoots(_ids("c"));
    screen->lowerRootsToBottom(_ids("a"));
    QCOMPARE(_moves(screen), QString("c:1 d:0 a:2 d:3 b:1 a:0 c:2 a:3"));
    QCOMPARE(_order(screen), QString("bcda"));

    // A null id: raiseRootToTop and lowerRoot ignore it at once, the other two look it up.
    screen->moveLog.clear();
    screen->indexOfRootCalls = 0;
    screen->raiseRootToTop(QUuid());
    screen->lowerRoot(QUuid());
    QCOMPARE(screen->indexOfRootCalls, 0);
    screen->raiseRoot(QUuid());
    screen->lowerRootToBottom(QUuid());
    QCOMPARE(screen->indexOfRootCalls, 2);
    QVERIFY(screen->moveLog.isEmpty());

    // Movability asks ownsRoot first: a stranger is not looked up. The roots stand as bcda.
    QVERIFY(!screen->rootsCanMoveUp(_ids("xa")));
    QVERIFY(!screen->rootsCanMoveDown(_ids("xa")));
    QCOMPARE(screen->indexOfRootCalls, 2);
    QVERIFY(screen->rootsCanMoveUp(_ids("da")) && !screen->rootsCanMoveDown(_ids("da")));
}

void tst_Screen::testScreenRaisesRootEvents()
{
    TestScene::addScreen("other");
    QUuid const page = TestScene::addScreen("page");
    TestScreen *screen = TestScene::screen(page);
    QUuid const group = TestScene::addContainer(QUuid(), QRect());
    QUuid const item = TestScene::addLeaf(group, QRect());
    QUuid const leaf = TestScene::addLeaf(page, QRect());
    RecordingHandler recorder(EVM_SCREEN | EVM_SCENE);

    // Each pair: the first while the list is unchanged, the second after the change.
    QList<int> rootsSeen;
    recorder.onEvent = [&](QSharedPointer<Event> const &) {
        rootsSeen.append(static_cast<int>(screen->rootCount()));
    };
    QVERIFY(screen->addRoot(group, 0));
    QCOMPARE(recorder.types(),
             QList<unsigned long long>({EVT_SCREEN_ROOTABOUTTOADD, EVT_SCREEN_ROOTADDED}));
    QCOMPARE(rootsSeen, QList<int>({1, 2}));
    auto added = recorder.events.at(1).staticCast<ScreenRootEvent>();
    QCOMPARE(added->screen(), page);
    QCOMPARE(added->index(), 1); // "other" sorts first
    QCOMPARE(added->rootIndex(), 0);
    QVERIFY(!screen->addRoot(item, 0)); // has a parent

    recorder.clear();
    recorder.onEvent = nullptr;
    // Removing a root deletes its tree, deepest first, between the two events.
    screen->removeRoot(group);
    QCOMPARE(recorder.types(),
             QList<unsigned long long>({EVT_SCREEN_ROOTABOUTTOREMOVE, EVT_SCENE_CHILDABOUTTODELETE,
                                        EVT_SCENE_CHILDABOUTTODELETE, EVT_SCREEN_ROOTREMOVED}));
    QCOMPARE(recorder.events.at(1).staticCast<SceneObjectAboutToDeleteEvent>()->info().id(), item);
    QVERIFY(SceneManager::i().getObject(group).isNull());
    QCOMPARE(screen->roots(), QList<QUuid>({leaf}));
}

QTEST_MAIN(tst_Screen)
#include "tst_Screen.moc"
