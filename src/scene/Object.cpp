// SPDX-License-Identifier: MIT
#include "scene/Object.h"

#include "properties/AbstractTextProperty.h"
#include "properties/Property.h"
#include "properties/UuidProperty.h"

#include <QStringList>

namespace TES {

Object::Object()
{
    _types.insert(Type());
    _model.addProperty(AbstractTextProperty::Type(), "name", {});
    _model.addProperty(UuidProperty::Type(), "id", {});
    _model.setValue("id", QVariant(QUuid::createUuid()), PropertyChangeReason::ReasonInternal);
}

Object::~Object() = default;

QIcon Object::icon()
{
    return QIcon();
}

QString Object::getName() const
{
    return AbstractTextProperty::Get(&_model, "name");
}

bool Object::setName(QString const &name)
{
    return AbstractTextProperty::Set(&_model, "name", name, PropertyChangeReason::ReasonInternal);
}

void Object::save(QJsonObject &json)
{
    json.insert("properties", _model.save());
}

bool Object::load(QJsonObject const &json)
{
    _model.load(json.value("properties").toObject());
    return true;
}

QString Object::Type()
{
    return QStringLiteral("Object");
}

QString Object::type() const
{
    QStringList tags;
    for (QString const &tag : _types)
        tags.append(tag);
    return tags.join(':');
}

bool Object::isType(QString const &type) const
{
    return _types.count(type) > 0;
}

QUuid Object::id() const
{
    // The most frequent read of the scene model: spare it building the key each time.
    static QString const key = QStringLiteral("id");
    return UuidProperty::Get(&_model, key);
}

PropertyModel *Object::model() const
{
    return &_model;
}

} // namespace TES
