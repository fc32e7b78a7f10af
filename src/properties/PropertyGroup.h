// SPDX-License-Identifier: MIT
#pragma once

#include "properties/PropertyListing.h"

namespace TES {

// A collapsible set of properties inside a category, listing property ids in display order.
// The model creates and owns it (PropertyModel::addGroup); it shows only once a category
// lists its id. Changes of the visible and expanded flags go to the model's listeners. A new
// group is collapsed.
class TES_EXPORT PropertyGroup : public PropertyListing
{
public:
    PropertyGroup(PropertyModel *model, QString const &id);
    virtual ~PropertyGroup();

    // The effective visibility: false under a hidden or collapsed category, or none.
    bool getVisible() const;
    void setVisible(bool visible);
    void setExpanded(bool expanded);
    PropertyModel *model() const;
    // Always empty: the summary the user sees is built by the view.
    QString getSummary() const;

private:
    // The model reads the raw visible flag for its visibility rules and its JSON form.
    friend class PropertyModel;
};

} // namespace TES
