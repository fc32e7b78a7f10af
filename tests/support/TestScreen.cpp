// SPDX-License-Identifier: MIT
#include "support/TestScreen.h"

#include "designer/ScreenOverlay.h"
#include "events/EventBus.h"
#include "events/ScreenEvents.h"
#include "scene/SceneManager.h"
#include "scene/TransformSceneObject.h"
#include "services/Utils.h"
#include "support/TestSceneObject.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QPainter>
#include <QWidget>

namespace TES::Test {

namespace {

QSharedPointer<TestSceneObject> resolve(QUuid const &id)
{
    if (!SceneManager::ip())
        return {};
    return SceneManager::ip()->getObject(id).toStrongRef().dynamicCast<TestSceneObject>();
}

void appendTree(QUuid const &id, QList<QUuid> &ids)
{
    ids.append(id);
    if (auto object = resolve(id)) {
        for (QUuid const &child : object->children(false))
            appendTree(child, ids);
    }
}

} // namespace

TestScreen::TestScreen() = default;

TestScreen::TestScreen(QString const &name) : Screen(name) {}

TestScreen::~TestScreen()
{
    if (!SceneManager::ip())
        return;
    QList<QUuid> const ids = _roots;
    _roots.clear();
    for (QUuid const &id : ids)
        _deleteTree(id);
}

QList<QUuid> TestScreen::roots() const
{
    return _roots;
}

unsigned int TestScreen::rootCount() const
{
    return static_cast<unsigned int>(_roots.size());
}

int TestScreen::indexOfRoot(QUuid const &id) const
{
    ++indexOfRootCalls;
    return _roots.indexOf(id);
}

QUuid TestScreen::rootAt(unsigned int index) const
{
    return index < rootCount() ? _roots.at(static_cast<int>(index)) : QUuid();
}

bool TestScreen::addRoot(QUuid const &id, unsigned int index)
{
    auto object = resolve(id);
    if (id.isNull() || !object || _roots.contains(id) || !object->parent().isNull())
        return false;
    int const place = index > rootCount() ? _roots.size() : static_cast<int>(index);
    TestSceneObject::Raise(
        QSharedPointer<ScreenRootEvent>::create(EVT_SCREEN_ROOTABOUTTOADD, this->id(), id, place));
    _roots.insert(place, id);
    TestSceneObject::Raise(
        QSharedPointer<ScreenRootEvent>::create(EVT_SCREEN_ROOTADDED, this->id(), id, place));
    return true;
}

QList<QUuid> TestScreen::objects() const
{
    QList<QUuid> ids;
    for (QUuid const &id : _roots)
        appendTree(id, ids);
    return ids;
}

void TestScreen::removeRoot(QUuid const &id)
{
    int const place = _roots.indexOf(id);
    if (place < 0)
        return;
    TestSceneObject::Raise(QSharedPointer<ScreenRootEvent>::create(EVT_SCREEN_ROOTABOUTTOREMOVE,
                                                                   this->id(), id, place));
    _roots.removeAt(place);
    _deleteTree(id);
    TestSceneObject::Raise(
        QSharedPointer<ScreenRootEvent>::create(EVT_SCREEN_ROOTREMOVED, this->id(), id, place));
}

void TestScreen::removeAllRoots()
{
    while (!_roots.isEmpty())
        removeRoot(_roots.first());
}

void TestScreen::moveRoot(QUuid const &id, unsigned int index)
{
    moveLog.append(qMakePair(id, index));
    int const from = _roots.indexOf(id);
    if (from < 0 || index >= rootCount() || static_cast<int>(index) == from)
        return;
    int const to = static_cast<int>(index);
    TestSceneObject::Raise(
        QSharedPointer<ScreenRootEvent>::create(EVT_SCREEN_ROOTABOUTTOMOVE, this->id(), id, from));
    _roots.move(from, to);
    TestSceneObject::Raise(
        QSharedPointer<ScreenRootEvent>::create(EVT_SCREEN_ROOTMOVED, this->id(), id, to));
}

void TestScreen::activated()
{
    calls.append("activated");
}

void TestScreen::deactivated()
{
    calls.append("deactivated");
}

QUuid TestScreen::pick(QPoint const &point, bool clip, QList<QUuid> exclude)
{
    for (int i = _roots.size() - 1; i >= 0; --i) {
        auto root = resolve(_roots.at(i));
        if (!root || root->shouldRejectPick())
            continue;
        QUuid const hit = root->pick(point, clip, exclude);
        if (!hit.isNull() && !Utils::ObjectInList(hit, exclude))
            return hit;
    }
    return QUuid();
}

QList<QUuid> TestScreen::pick(QRect const &rect, bool clip, QList<QUuid> exclude)
{
    QList<QUuid> hits;
    for (int i = _roots.size() - 1; i >= 0; --i) {
        auto root = resolve(_roots.at(i));
        if (root && !root->shouldRejectPick())
            hits.append(root->pick(rect, clip, exclude));
    }
    return hits;
}

QImage TestScreen::render(bool)
{
    QSize const size = SceneManager::ip() ? SceneManager::ip()->screenSize() : QSize(480, 272);
    // On the design surface, the whole overlay with the page where the surface puts it.
    QWidget const *overlay = ScreenOverlay::ip() ? ScreenOverlay::ip()->overlayWidget() : nullptr;
    QRect const page = overlay ? ScreenOverlay::ip()->screenRect() : QRect(QPoint(0, 0), size);
    QImage image(overlay ? overlay->size() : size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.fillRect(page, Qt::white);
    painter.translate(page.topLeft());
    for (QUuid const &id : objects()) {
        if (auto object = resolve(id))
            painter.drawRect(object->rootRectangle());
    }
    return image;
}

QImage TestScreen::thumbnail(QSize const &size)
{
    return render(true).scaled(size);
}

void TestScreen::initializeNew()
{
    calls.append("initializeNew");
}

void TestScreen::save(QJsonObject &json)
{
    Screen::save(json);
    QJsonArray entries;
    for (QUuid const &id : _roots) {
        if (auto root = resolve(id)) {
            QJsonObject object;
            root->save(object);
            entries.append(QJsonObject{{"type", root->factoryType()}, {"object", object}});
        }
    }
    json.insert("roots", entries);
    if (!activeLayer.isNull())
        json.insert("activeLayer", activeLayer.toString());
}

bool TestScreen::load(QJsonObject const &json)
{
    Screen::load(json);
    activeLayer = QUuid(json.value("activeLayer").toString());
    if (!SceneManager::ip())
        return true;
    for (QJsonValue const entry : json.value("roots").toArray()) {
        QJsonObject const saved = entry.toObject();
        auto root = resolve(SceneManager::ip()->createObject(saved.value("type").toString()));
        if (!root)
            continue;
        root->load(saved.value("object").toObject());
        _roots.append(root->id());
    }
    return true;
}

void TestScreen::_deleteTree(QUuid const &id)
{
    if (auto object = resolve(id)) {
        QList<QUuid> const children = object->children(false);
        object.reset();
        for (QUuid const &child : children)
            _deleteTree(child);
    }
    if (SceneManager::ip())
        SceneManager::ip()->deleteObject(id);
}

} // namespace TES::Test
