// SPDX-License-Identifier: MIT
#include "support/SceneSnapshot.h"

#include "scene/SceneManager.h"
#include "scene/SceneObject.h"
#include "scene/Screen.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace TES::Test {

SceneSnapshot SceneSnapshot::Take()
{
    SceneSnapshot snapshot;
    SceneManager *manager = SceneManager::ip();
    if (!manager)
        return snapshot;
    snapshot.screens = manager->screens();
    snapshot.active = manager->getActiveScreen();
    snapshot.visible = manager->visibleScreens();
    for (QUuid const &id : qAsConst(snapshot.screens)) {
        QSharedPointer<Screen> screen = manager->screen(id).toStrongRef();
        if (!screen)
            continue;
        QJsonObject json;
        screen->save(json);
        snapshot.screenJson.insert(id, QJsonDocument(json).toJson());
        for (QUuid const &objectId : screen->objects()) {
            QSharedPointer<SceneObject> object = manager->getObject(objectId).toStrongRef();
            if (!object)
                continue;
            QJsonObject objectForm;
            object->save(objectForm);
            snapshot.objectJson.insert(objectId, QJsonDocument(objectForm).toJson());
        }
    }
    return snapshot;
}

bool SceneSnapshot::operator==(SceneSnapshot const &other) const
{
    return screens == other.screens && active == other.active && visible == other.visible
           && screenJson == other.screenJson && objectJson == other.objectJson;
}

} // namespace TES::Test
