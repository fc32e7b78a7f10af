// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>

namespace TES {

class Property;
class PropertyModel;
class PropertyView;
class PropertyViewNameCell;

// The seam through which the widget-free model reaches its widgets: properties ask it for
// their name cells and screens for their views, and the view layer of the library installs
// the makers when the library loads. A type without a maker gets no cell (null).
class TES_EXPORT PropertyViewMaker
{
public:
    using CellMaker = PropertyViewNameCell *(*)(Property *);
    using ViewMaker = PropertyView *(*)(PropertyModel *);
    using ViewDeleter = void (*)(PropertyView *);

    // Installs the maker of name cells for a type name; a later call replaces it.
    static void SetCellMaker(QString const &type, CellMaker maker);
    // A new name cell, owned by the caller; null without a maker or property.
    static PropertyViewNameCell *MakeCell(QString const &type, Property *property);
    static void SetViewMakers(ViewMaker make, ViewDeleter destroy);
    // A new view over the model, owned by the caller; null without a maker.
    static PropertyView *MakeView(PropertyModel *model);
    static void DestroyView(PropertyView *view);
};

} // namespace TES
