#pragma once

#include "events/SceneObjectEvent.h"
#include "scene/SceneObjectInfo.h"

#include <QList>
#include <QString>

namespace TES::Test {

// The scene events that the test scene raises around changes of its tree, with the payloads
// in the order handlers read them: the parent's info, then the child's, then (reparenting)
// the new parent's; for a rename the object's info and the new name. The base info is the
// first of the list. A state change needs no more than a plain SceneObjectEvent.
class TestSceneEvent : public SceneObjectEvent
{
public:
    TestSceneEvent(unsigned long long type, QList<SceneObjectInfo> const &infos,
                   QString const &name = QString());
    ~TestSceneEvent() override;

    QList<SceneObjectInfo> infos() const;
    // The info at a place of the payload; a default info out of range.
    SceneObjectInfo infoAt(int index) const;
    QString name() const;

private:
    QList<SceneObjectInfo> _infos;
    QString _name;
};

} // namespace TES::Test
