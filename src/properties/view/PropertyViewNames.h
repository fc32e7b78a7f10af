// SPDX-License-Identifier: MIT
#pragma once

#include "properties/view/PropertyViewNameCell.h"
#include "tessera_export.h"

namespace TES {

// The name cells of the host's property types. Each makes its value cell and differs from
// the others only in whether it has a context menu and how a drag step changes the value
// (every write with ReasonInternal); TypedViewName does the work from those two facts.
class TES_EXPORT TypedViewName : public PropertyViewNameCell
{
    Q_OBJECT

public:
    // One drag step on the property; the answer is adjustValue's. Null: no drag.
    using Step = bool (*)(Property *property, int delta);

    TypedViewName(Property *property, PropertyViewValueCell *right, bool contextMenu, Step step);

    bool adjustValue(int delta) override;
    bool canAdjust() const override;
    bool hasContextMenu() const override;

private:
    bool _contextMenu;
    Step _step;
};

// Drag: above 0 after (value as 0 or 1) + delta is true.
class TES_EXPORT BooleanViewName : public TypedViewName
{
public:
    explicit BooleanViewName(Property *property);
};

// No drag, no context menu.
class TES_EXPORT ButtonViewName : public TypedViewName
{
public:
    explicit ButtonViewName(Property *property);
};

// Drag: one index per 11 pixels of travel; shorter travel keeps the anchor.
class TES_EXPORT ComboViewName : public TypedViewName
{
public:
    explicit ComboViewName(Property *property);
};

// Drag: plus delta.
class TES_EXPORT FloatViewName : public TypedViewName
{
public:
    explicit FloatViewName(Property *property);
};

// Drag: plus delta, held at 0 and 0xFFFFFFFF.
class TES_EXPORT HexViewName : public TypedViewName
{
public:
    explicit HexViewName(Property *property);
};

// Drag: plus delta, unclamped; the property refuses what leaves its limits.
class TES_EXPORT IntegerViewName : public TypedViewName
{
public:
    explicit IntegerViewName(Property *property);
};

// No drag.
class TES_EXPORT TextViewName : public TypedViewName
{
public:
    explicit TextViewName(Property *property);
};

// No drag.
class TES_EXPORT UuidViewName : public TypedViewName
{
public:
    explicit UuidViewName(Property *property);
};

} // namespace TES
