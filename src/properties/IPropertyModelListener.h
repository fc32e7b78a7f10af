// SPDX-License-Identifier: MIT
#pragma once

#include "properties/PropertyChangeReason.h"
#include "tessera_export.h"

#include <QString>
#include <QVariant>

#include <map>
#include <memory>

namespace TES {

class Property;

// Receives the notifications of the PropertyModels it is added to. Models hold listeners
// weakly, through reference(): a destroyed listener expires in every model by itself, with
// no need to call removeListener. Notifications run synchronously, inside the call that
// caused them, in order of registration. Every operation does nothing by default.
class TES_EXPORT IPropertyModelListener
{
public:
    IPropertyModelListener();
    // A copy is a new listener: it gets its own reference and joins no model.
    IPropertyModelListener(IPropertyModelListener const &other);
    IPropertyModelListener &operator=(IPropertyModelListener const &other);
    virtual ~IPropertyModelListener();

    // After the property stored a new value; the property already reads the new value.
    virtual void propertyValueChanged(Property *property, QVariant const &oldValue,
                                      QVariant const &newValue, PropertyChangeReason reason);
    // A limit, step, default, choice list, button flag, effective visibility or enabled flag
    // of the property changed.
    virtual void propertyStateChanged(Property *property);
    virtual void categoryExpandStateChanged(QString const &id);
    virtual void categoryVisibleStateChanged(QString const &id);
    virtual void groupExpandStateChanged(QString const &id);
    virtual void groupVisibleStateChanged(QString const &id);
    // A button property or a value cell's "..." button was pressed. The host sends the code 0
    // and an empty map; plug-ins may define others.
    virtual void propertyEventRaised(Property *property, unsigned int event,
                                     std::map<QString, QVariant> const &params);
    // At the end of PropertyModel::load, which runs with notifications off.
    virtual void modelLoaded();

    std::weak_ptr<IPropertyModelListener> reference() const;

private:
    // Points to this object with an empty deleter; it only exists to hand out weak pointers.
    std::shared_ptr<IPropertyModelListener> _self;
};

} // namespace TES
