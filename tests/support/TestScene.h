// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QString>
#include <QUuid>

namespace TES::Test {

class TestContainer;
class TestLeaf;
class TestSceneObject;
class TestScreen;
class TestScreenFactory;

// Builds the test scene inside the current SceneManager, which the test brings up (with an
// EventBus when it wants the events; see Services, which also registers the factories). The
// factories are process-wide objects, so a new SceneManager only needs registerFactories()
// again.
class TestScene
{
public:
    // Registers TestContainer and TestLeaf under their Type() names, and installs the screen
    // factory, cleared. False without a SceneManager or when the object factories are registered
    // already.
    static bool registerFactories();
    // The process-wide screen factory that registerFactories installs.
    static TestScreenFactory &screenFactory();
    // A screen through SceneManager::newScreen (not shown, not made active), which the factory
    // names as it is made, so that the list is sorted with the name. The null id without a
    // SceneManager or a screen factory.
    static QUuid addScreen(QString const &name = QString());
    // Creates the object through SceneManager, sets its rectangle and name, and adds it at the
    // end of `parent`'s children when that is a TestContainer, or of its roots when that is a
    // TestScreen, raising the add events. The null id without a SceneManager.
    static QUuid addContainer(QUuid const &parent, QRect const &rect,
                              QString const &name = QString());
    static QUuid addLeaf(QUuid const &parent, QRect const &rect, QString const &name = QString());

    // The object for an id, null when unknown or of another class. Do not keep the pointer
    // past the SceneManager.
    static TestSceneObject *object(QUuid const &id);
    static TestContainer *container(QUuid const &id);
    static TestLeaf *leaf(QUuid const &id);
    static TestScreen *screen(QUuid const &id);

private:
    static QUuid _add(QString const &type, QUuid const &parent, QRect const &rect,
                      QString const &name);
};

} // namespace TES::Test
