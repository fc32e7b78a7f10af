// SPDX-License-Identifier: MIT
#pragma once

#include "properties/PropertyListing.h"

namespace TES {

// A top-level band of a property view: lists the ids of properties and groups in display
// order. The model creates and owns it (PropertyModel::addCategory); listing an id does not
// touch the property or group itself. Changes of the visible and expanded flags go to the
// model's listeners. A new category is expanded.
class TES_EXPORT PropertyCategory : public PropertyListing
{
public:
    PropertyCategory(PropertyModel *model, QString const &id);
    virtual ~PropertyCategory();

    // The category's own flag, which is also its effective visibility.
    bool getVisible() const;
    void setVisible(bool visible);
    void setExpanded(bool expanded);
};

} // namespace TES
