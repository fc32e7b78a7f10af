// SPDX-License-Identifier: MIT
#pragma once

// Names the host and plug-ins share: the mime texts of drags between docks and the paths of
// the embedded icons.
namespace TES::HostConstants {

// Mime formats of drags between the docks and the design surface.
constexpr char MimeScreenTree[] = "ScreenTree";
constexpr char MimeToolBox[] = "ToolBox";

// Embedded icons.
constexpr char IconApplication[] = ":/resources/tessera_icon_32x32.png";
constexpr char IconApplicationLarge[] = ":/resources/tessera_icon_72x72.png";
constexpr char IconNew[] = ":/resources/new_icon.png";
constexpr char IconOpen[] = ":/resources/open_icon.png";
constexpr char IconSave[] = ":/resources/save_icon24.png";
constexpr char IconScreen[] = ":/resources/screen_icon.png";
constexpr char IconAdd[] = ":/resources/add_icon.png";
constexpr char IconDelete[] = ":/resources/delete_icon2.png";
constexpr char IconDeleteAll[] = ":/resources/delete_all.png";
constexpr char IconPlusButton[] = ":/resources/plusbutton.png";
constexpr char IconMinusButton[] = ":/resources/minusbutton.png";
constexpr char IconUpArrow[] = ":/resources/up_arrow.png";
constexpr char IconDownArrow[] = ":/resources/down_arrow.png";
constexpr char IconRaise[] = ":/resources/raise.png";
constexpr char IconLower[] = ":/resources/lower.png";
constexpr char IconTop[] = ":/resources/top.png";
constexpr char IconBottom[] = ":/resources/bottom.png";
constexpr char IconVisible[] = ":/resources/visible_icon.png";
constexpr char IconHidden[] = ":/resources/hidden_icon.png";
constexpr char IconLocked[] = ":/resources/locked_icon2.png";
constexpr char IconUnlocked[] = ":/resources/unlocked_icon2.png";
constexpr char IconEyedropper[] = ":/resources/eyedropper_icon4.png";
constexpr char IconTransformGrip[] = ":/resources/transformgrip.png";
constexpr char IconZoomIn[] = ":/resources/zoom_in.png";
constexpr char IconZoomOut[] = ":/resources/zoom_out.png";
constexpr char IconZoomReset[] = ":/resources/zoom_reset.png";

} // namespace TES::HostConstants
