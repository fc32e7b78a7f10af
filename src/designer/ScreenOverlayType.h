// SPDX-License-Identifier: MIT
#pragma once

namespace TES {

// A slot in the design surface's stack of overlays: 0 at the bottom, 7 on top. Values above 7
// are refused. The host uses three slots; the others are free for plug-ins.
using ScreenOverlayType = unsigned int;

constexpr ScreenOverlayType OverlayScreen = 1;    // ScreenOverlay: the active screen's picture
constexpr ScreenOverlayType OverlaySelection = 4; // SelectionOverlay: the rubber band
constexpr ScreenOverlayType OverlayTool = 5;      // the active Tool
constexpr ScreenOverlayType OverlayCount = 8;

} // namespace TES
