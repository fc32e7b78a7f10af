// SPDX-License-Identifier: MIT
#pragma once

#include "events/Event.h"
#include "properties/IPropertyModelListener.h"
#include "scene/TransformSceneObject.h"

#include <QJsonObject>
#include <QList>
#include <QRect>
#include <QSharedPointer>
#include <QUuid>

namespace TES::Test {

class TestContainer;

// What the test scene's objects share, as a plug-in's base class would: a rectangle kept in a
// field, a parent link set by the container that takes the object, and the events a concrete
// object raises for itself, as SceneChangeEvents: EVT_SCENE_SCENEOBJECTSTATECHANGED when the
// rectangle or an editor flag changes, EVT_SCENE_SCENEOBJECTRENAMED with the new name when
// "name" changes. The JSON form adds "rectangle" to the host's, and "link" when set: an id the
// object refers to, kept outside the property model as a plug-in keeps its references. An
// object that ends while its parent lives leaves the parent's list silently; its own children
// are not deleted with it.
//
// For tests: every setRectangle call is logged, changed or not, and rejectPick makes the
// object refuse hit tests.
class TestSceneObject : public TransformSceneObject, public IPropertyModelListener
{
public:
    TestSceneObject();
    ~TestSceneObject() override;

    // The type name under which the object's factory is registered.
    virtual QString factoryType() const = 0;

    // A swatch of its own for each kind: a blue frame for a container, a green disc for a leaf.
    QIcon icon() override;
    QUuid parent() const override;
    QRect getRectangle() override;
    void setRectangle(QRect const &rect) override;
    bool shouldRejectPick() const override;
    void save(QJsonObject &json) override;
    bool load(QJsonObject const &json) override;

    void propertyValueChanged(Property *property, QVariant const &oldValue,
                              QVariant const &newValue, PropertyChangeReason reason) override;

    // Sends at once when there is a bus.
    static void Raise(QSharedPointer<Event> const &event);

    QList<QRect> rectangleLog;
    bool rejectPick = false;
    // Another object this one refers to, saved as "link".
    QUuid link;

private:
    friend class TestContainer;

    QRect _rectangle = QRect(0, 0, 100, 100);
    QUuid _parent;
};

} // namespace TES::Test
