// SPDX-License-Identifier: MIT
#pragma once

#include "properties/BooleanProperty.h"
#include "properties/ButtonProperty.h"
#include "properties/ComboProperty.h"
#include "properties/HexProperty.h"
#include "properties/IPropertyFactory.h"
#include "properties/IntegerProperty.h"
#include "properties/TextProperty.h"
#include "properties/UuidProperty.h"

namespace TES {

// Makes P objects for PropertyModel::addProperty under P's type name. The host registers one
// instance of each factory below when the library loads.
template<class P>
class TypedPropertyFactory : public IPropertyFactory
{
public:
    QString type() const override { return P::Type(); }
    // A new P; the parameters are not used.
    Property *createProperty(PropertyModel *model, QString const &id,
                             std::map<QString, QVariant>) const override
    {
        return new P(model, id);
    }
    // The host has no name cell for the typed properties: null.
    PropertyViewNameCell *createView(Property *) const override { return nullptr; }
};

class TES_EXPORT BooleanPropertyFactory : public TypedPropertyFactory<BooleanProperty>
{
};
class TES_EXPORT ButtonPropertyFactory : public TypedPropertyFactory<ButtonProperty>
{
};
class TES_EXPORT ComboPropertyFactory : public TypedPropertyFactory<ComboProperty>
{
};
class TES_EXPORT HexPropertyFactory : public TypedPropertyFactory<HexProperty>
{
};
class TES_EXPORT IntegerPropertyFactory : public TypedPropertyFactory<IntegerProperty>
{
};
class TES_EXPORT TextPropertyFactory : public TypedPropertyFactory<TextProperty>
{
};
class TES_EXPORT UuidPropertyFactory : public TypedPropertyFactory<UuidProperty>
{
};

} // namespace TES
