// SPDX-License-Identifier: MIT
#pragma once

#include "properties/PropertyModel.h"
#include "tessera_export.h"

#include <QIcon>
#include <QJsonObject>
#include <QString>
#include <QUuid>

#include <set>

namespace TES {

// The root of everything a project stores: a named, identified bag of properties with a JSON
// form. All persistent state lives in the embedded PropertyModel; name and id are two of its
// properties, "name" and "id", so they travel with the model.
//
// Every object carries a set of type tags: each class adds its own in its constructor, so an
// object is of every type whose constructor ran. Objects are not copied. Scene objects are
// owned by SceneManager; screens likewise.
class TES_EXPORT Object
{
public:
    Object();
    virtual ~Object();

    Object(Object const &) = delete;
    Object &operator=(Object const &) = delete;

    // The icon shown for the object in lists and trees. The default is a null icon.
    virtual QIcon icon();
    // The value of the "name" property.
    virtual QString getName() const;
    // Writes "name" with ReasonInternal; the result is the write's. Subclasses may refuse.
    virtual bool setName(QString const &name);
    // Inserts "properties": the model's JSON form. A class with further state (children,
    // geometry kept outside the model) overrides this, calls it, and adds its own keys.
    virtual void save(QJsonObject &json);
    // Loads "properties" into the model; a missing key loads an empty object. Answers true
    // whatever the document held. Overrides call it and read their own keys.
    virtual bool load(QJsonObject const &json);

    static QString Type();
    // All tags in set order, joined with ":".
    QString type() const;
    bool isType(QString const &type) const;
    QUuid id() const;
    PropertyModel *model() const;

protected:
    // Ordered, so that type() does not depend on the order of construction.
    std::set<QString> _types;
    // Mutable so that model() can hand out the model from const code: the model is the
    // object's state, not a part of its identity.
    mutable PropertyModel _model;
};

} // namespace TES
