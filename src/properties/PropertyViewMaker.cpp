// SPDX-License-Identifier: MIT
#include "properties/PropertyViewMaker.h"

#include <map>

namespace TES {

namespace {

// Function-local, so that the view layer's static initialisers can fill it in any order.
struct Makers
{
    std::map<QString, PropertyViewMaker::CellMaker> cells;
    PropertyViewMaker::ViewMaker view = nullptr;
    PropertyViewMaker::ViewDeleter deleter = nullptr;
};

Makers &makers()
{
    static Makers instance;
    return instance;
}

} // namespace

void PropertyViewMaker::SetCellMaker(QString const &type, CellMaker maker)
{
    makers().cells[type] = maker;
}

PropertyViewNameCell *PropertyViewMaker::MakeCell(QString const &type, Property *property)
{
    auto const found = makers().cells.find(type);
    if (!property || found == makers().cells.end() || !found->second)
        return nullptr;
    return found->second(property);
}

void PropertyViewMaker::SetViewMakers(ViewMaker make, ViewDeleter destroy)
{
    makers().view = make;
    makers().deleter = destroy;
}

PropertyView *PropertyViewMaker::MakeView(PropertyModel *model)
{
    return makers().view ? makers().view(model) : nullptr;
}

void PropertyViewMaker::DestroyView(PropertyView *view)
{
    if (view && makers().deleter)
        makers().deleter(view);
}

} // namespace TES
