// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

namespace TES {

class PropertyView;

// Implemented by plug-in scene objects beside SceneObject, so that the object editor finds
// the view over the object's model by a cross-cast.
class TES_EXPORT IPropertyViewable
{
public:
    // The view that shows the object's model. The object keeps it; the pointer must stay
    // valid while the object lives.
    virtual PropertyView *propertyView() = 0;

protected:
    ~IPropertyViewable() = default;
};

} // namespace TES
