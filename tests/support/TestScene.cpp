// SPDX-License-Identifier: MIT
#include "support/TestScene.h"

#include "scene/SceneManager.h"
#include "scene/SceneObjectFactory.h"
#include "support/TestContainer.h"
#include "support/TestLeaf.h"
#include "support/TestScreen.h"
#include "support/TestScreenFactory.h"

namespace TES::Test {

namespace {

template<typename T>
T *find(QUuid const &id)
{
    if (!SceneManager::ip())
        return nullptr;
    return dynamic_cast<T *>(SceneManager::ip()->getObject(id).toStrongRef().data());
}

// Makes the test objects of one class under its Type() name.
template<typename T>
class Factory : public SceneObjectFactory
{
public:
    explicit Factory(QString label) : _label(std::move(label)) {}
    QString text() override { return T::Type(); }
    QString label() override { return _label; }
    QIcon icon() override { return QIcon(); }
    QSharedPointer<SceneObject> create() override { return QSharedPointer<T>::create(); }

private:
    QString _label;
};

} // namespace

bool TestScene::registerFactories()
{
    static Factory<TestContainer> containerFactory("Container");
    static Factory<TestLeaf> leafFactory("Leaf");
    if (!SceneManager::ip())
        return false;
    screenFactory().clear();
    SceneManager::ip()->setScreenFactory(&screenFactory());
    bool const container
        = SceneManager::ip()->addObjectFactory(TestContainer::Type(), &containerFactory);
    bool const leaf = SceneManager::ip()->addObjectFactory(TestLeaf::Type(), &leafFactory);
    return container && leaf;
}

TestScreenFactory &TestScene::screenFactory()
{
    static TestScreenFactory factory;
    return factory;
}

QUuid TestScene::addScreen(QString const &name)
{
    if (!SceneManager::ip())
        return QUuid();
    if (!name.isEmpty())
        screenFactory().nextNames.append(name);
    return SceneManager::ip()->newScreen(false, false, 0, false);
}

QUuid TestScene::addContainer(QUuid const &parent, QRect const &rect, QString const &name)
{
    return _add(TestContainer::Type(), parent, rect, name);
}

QUuid TestScene::addLeaf(QUuid const &parent, QRect const &rect, QString const &name)
{
    return _add(TestLeaf::Type(), parent, rect, name);
}

TestScreen *TestScene::screen(QUuid const &id)
{
    if (!SceneManager::ip())
        return nullptr;
    return dynamic_cast<TestScreen *>(SceneManager::ip()->screen(id).toStrongRef().data());
}

TestSceneObject *TestScene::object(QUuid const &id)
{
    return find<TestSceneObject>(id);
}

TestContainer *TestScene::container(QUuid const &id)
{
    return find<TestContainer>(id);
}

TestLeaf *TestScene::leaf(QUuid const &id)
{
    return find<TestLeaf>(id);
}

QUuid TestScene::_add(QString const &type, QUuid const &parent, QRect const &rect,
                      QString const &name)
{
    if (!SceneManager::ip())
        return QUuid();
    QUuid const id = SceneManager::ip()->createObject(type);
    TestSceneObject *made = object(id);
    if (!made)
        return QUuid();
    made->setRectangle(rect);
    made->rectangleLog.clear();
    if (!name.isEmpty())
        made->setName(name);
    if (TestContainer *group = container(parent))
        group->addChild(id, 0xFFFFFFFF);
    else if (TestScreen *page = screen(parent))
        page->addRoot(id, 0xFFFFFFFF);
    return id;
}

} // namespace TES::Test
