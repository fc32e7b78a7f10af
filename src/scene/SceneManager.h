#pragma once

#include "tessera_export.h"

#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QUuid>
#include <QWeakPointer>

#include <map>

namespace TES {

class SceneObject;
class SceneObjectFactory;

// The owner of all scene objects: one flat list of shared references, apart from the tree
// the objects form among themselves through ids. Objects are made through the factories that
// the plug-in registers by type name, and everybody resolves ids through getObject for the
// length of one call.
//
// This is the object half only; the screens, persistence and deletion follow. Core is to
// create the one instance; the constructor stores it and the destructor clears it before it
// drops the objects, so an object's destructor finds no manager.
class TES_EXPORT SceneManager
{
public:
    SceneManager();
    virtual ~SceneManager();

    SceneManager(SceneManager const &) = delete;
    SceneManager &operator=(SceneManager const &) = delete;

    static SceneManager &i();
    static SceneManager *ip();
    static void destroy();

    // False for a null factory or a type already known, which keeps its first factory.
    bool addObjectFactory(QString const &type, SceneObjectFactory *factory);
    // Null when the type is unknown.
    SceneObjectFactory *getObjectFactory(QString const &type) const;
    // A new object of the type, owned here, with the fresh id its constructor gave it. The
    // null id for an unknown type. Raises nothing: the object is in no tree yet.
    QUuid createObject(QString const &type);
    // As createObject, but the object takes the given id, silently: its model's events are
    // off during the write. For concrete classes that restore objects with saved ids.
    QUuid createObjectWithID(QString const &type, QUuid const &id);
    // Empty when no object has the id. Lock it for the length of a call, never longer.
    QWeakPointer<SceneObject> getObject(QUuid const &id) const;

    static SceneManager *_instance;

private:
    std::map<QString, SceneObjectFactory *> _objectFactories;
    // All objects in order of creation; the owner of them all.
    QList<QSharedPointer<SceneObject>> _objects;
};

} // namespace TES
