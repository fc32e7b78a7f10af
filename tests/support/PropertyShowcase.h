// SPDX-License-Identifier: MIT
#pragma once

class QString;

namespace TES {
class PropertyModel;
}

namespace TES::Test {

// Fills a model with one property of every type the host shows, in two categories and a
// group, for tests of the property view and for looking at it:
//   "general" ("General"): "label" text, "count" integer 0..100 default 10, "ratio" float
//   -10..10 default 1.5 with its "..." button, "enabled" boolean default true, "mode" combo
//   ("Fast", "Slow", "Off") default 0, "mask" hex up to 0xFFFF, "key" uuid, "run" button, and
//   the group "margins" ("Margins", closed) with integers "left" and "right";
//   "notes" ("Notes"): "note" text.
// Numbers and floats write on editingFinished only, so that one typed value is one change.
// The float type is registered first (TestFloatProperty).
class PropertyShowcase
{
public:
    static void fill(PropertyModel &model);
};

} // namespace TES::Test
