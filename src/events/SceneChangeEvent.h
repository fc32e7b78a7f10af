// SPDX-License-Identifier: MIT
#pragma once

#include "events/SceneObjectEvent.h"
#include "scene/SceneObjectInfo.h"
#include "tessera_export.h"

#include <QList>
#include <QString>

namespace TES {

// The scene events that concrete objects raise around the changes they make to their trees;
// the host raises only the deletion (SceneObjectAboutToDeleteEvent). Handlers static_cast to
// this class by the type number, so a plug-in raises the types below with this class, at once
// (EventBus::raiseEventNow), the first of a pair while the tree is unchanged and the second
// after the change. The payload is an ordered list of infos and, for a rename, a name:
//
//   type                                     infos, in order                     name
//   EVT_SCENE_CHILDABOUTTOADD, CHILDADDED    parent, child at its new place      -
//   EVT_SCENE_CHILDABOUTTOREMOVE, ...REMOVED parent, child at its place          -
//   EVT_SCENE_CHILDABOUTTOMOVE, CHILDMOVED   parent, child at its old place in
//                                            the first, at its new in the second -
//   EVT_SCENE_CHILDABOUTTOREPARENT,          old parent, child, new parent       -
//   EVT_SCENE_CHILDREPARENTED
//   EVT_SCENE_SCENEOBJECTSTATECHANGED        the object                          -
//   EVT_SCENE_SCENEOBJECTRENAMED             the object                          the new name
//
// info() is the first of the list. The host reads a state change only as a SceneObjectEvent,
// so a plain SceneObjectEvent serves for that type as well.
class TES_EXPORT SceneChangeEvent : public SceneObjectEvent
{
public:
    SceneChangeEvent(unsigned long long type, QList<SceneObjectInfo> const &infos,
                     QString const &name = QString());
    ~SceneChangeEvent() override;

    QList<SceneObjectInfo> infos() const;
    // A default info (null id, index -1) out of range.
    SceneObjectInfo infoAt(int index) const;
    // The first info: the parent, or the old parent of a reparenting.
    SceneObjectInfo parentInfo() const;
    // The second info: the child.
    SceneObjectInfo childInfo() const;
    // The third info: the new parent of a reparenting.
    SceneObjectInfo newParentInfo() const;
    QString name() const;

private:
    QList<SceneObjectInfo> _infos;
    QString _name;
};

} // namespace TES
