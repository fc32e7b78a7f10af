// SPDX-License-Identifier: MIT
#include "properties/PropertyGroup.h"

#include "properties/PropertyModel.h"

namespace TES {

PropertyGroup::PropertyGroup(PropertyModel *model, QString const &id)
    : PropertyListing(model, id, false)
{}

PropertyGroup::~PropertyGroup() = default;

bool PropertyGroup::getVisible() const
{
    return _model->itemVisible(id());
}

void PropertyGroup::setVisible(bool visible)
{
    if (_change(_visible, visible))
        _model->groupVisibleStateChanged(this);
}

void PropertyGroup::setExpanded(bool expanded)
{
    if (_change(_expanded, expanded))
        _model->groupExpandStateChanged(this);
}

PropertyModel *PropertyGroup::model() const
{
    return _model;
}

QString PropertyGroup::getSummary() const
{
    return QString();
}

} // namespace TES
