// SPDX-License-Identifier: MIT
#pragma once

namespace TES {

// The eight grips of a rectangle, by which the transform tool scales an object. The values
// are part of the plug-in interface: never renumber them.
enum class RectanglePoint {
    TopLeft = 0,
    TopMiddle = 1,
    TopRight = 2,
    MiddleLeft = 3,
    MiddleRight = 4,
    BottomLeft = 5,
    BottomMiddle = 6,
    BottomRight = 7
};

} // namespace TES
