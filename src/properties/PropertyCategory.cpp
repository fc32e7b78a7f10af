// SPDX-License-Identifier: MIT
#include "properties/PropertyCategory.h"

#include "properties/PropertyModel.h"

namespace TES {

PropertyCategory::PropertyCategory(PropertyModel *model, QString const &id)
    : PropertyListing(model, id, true)
{}

PropertyCategory::~PropertyCategory() = default;

bool PropertyCategory::getVisible() const
{
    return _visible;
}

void PropertyCategory::setVisible(bool visible)
{
    if (_change(_visible, visible))
        _model->categoryVisibleStateChanged(this);
}

void PropertyCategory::setExpanded(bool expanded)
{
    if (_change(_expanded, expanded))
        _model->categoryExpandStateChanged(this);
}

} // namespace TES
