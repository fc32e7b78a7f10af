// SPDX-License-Identifier: MIT
#include "properties/IPropertyModelListener.h"

namespace TES {

IPropertyModelListener::IPropertyModelListener() : _self(this, [](IPropertyModelListener *) {}) {}

IPropertyModelListener::IPropertyModelListener(IPropertyModelListener const &)
    : _self(this, [](IPropertyModelListener *) {})
{}

IPropertyModelListener &IPropertyModelListener::operator=(IPropertyModelListener const &)
{
    return *this;
}

IPropertyModelListener::~IPropertyModelListener() = default;

void IPropertyModelListener::propertyValueChanged(Property *, QVariant const &, QVariant const &,
                                                  PropertyChangeReason)
{}

void IPropertyModelListener::propertyStateChanged(Property *) {}

void IPropertyModelListener::categoryExpandStateChanged(QString const &) {}

void IPropertyModelListener::categoryVisibleStateChanged(QString const &) {}

void IPropertyModelListener::groupExpandStateChanged(QString const &) {}

void IPropertyModelListener::groupVisibleStateChanged(QString const &) {}

void IPropertyModelListener::propertyEventRaised(Property *, unsigned int,
                                                 std::map<QString, QVariant> const &)
{}

void IPropertyModelListener::modelLoaded() {}

std::weak_ptr<IPropertyModelListener> IPropertyModelListener::reference() const
{
    return _self;
}

} // namespace TES
