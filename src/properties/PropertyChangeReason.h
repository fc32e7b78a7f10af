// SPDX-License-Identifier: MIT
#pragma once

namespace TES {

// Where a value change comes from, carried through every change to the listeners. A view
// cell that made the edit itself already shows the new value and skips its own refresh.
enum class PropertyChangeReason {
    ReasonInternal = 0, // code: setters, reset, loading, clamping, multi-object write-through
    ReasonView = 1      // the property's own editor widget
};

} // namespace TES
