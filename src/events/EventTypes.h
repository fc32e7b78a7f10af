// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>

namespace TES {

// Category masks, one bit each. A handler selects events by testing these bits.
constexpr unsigned long long EVM_PROJECT = 1;
constexpr unsigned long long EVM_COMMAND = 2;
constexpr unsigned long long EVM_SCREEN = 4;
constexpr unsigned long long EVM_TOOL = 8;
constexpr unsigned long long EVM_SCENE = 16;
constexpr unsigned long long EVM_SELECT = 32;
constexpr unsigned long long EVM_GLOBALSTATE = 64;

// Event type numbers. They are part of the plug-in interface: never renumber them.
constexpr unsigned long long EVT_TYPE_ERROR = 0;
constexpr unsigned long long EVT_PROJECT_STATE = 1;
constexpr unsigned long long EVT_PROJECT_DIRTY_STATE = 2;
constexpr unsigned long long EVT_PROJECT_REQUEST_RESET = 3;
constexpr unsigned long long EVT_PROJECT_PREBLANK = 4;
constexpr unsigned long long EVT_PROJECT_REQUEST_BLANK = 5;
constexpr unsigned long long EVT_PROJECT_POSTBLANK = 6;
constexpr unsigned long long EVT_PROJECT_LOADED = 7;
constexpr unsigned long long EVT_PROJECT_CURRENTFILECHANGED = 8;
constexpr unsigned long long EVT_PROJECT_NEW = 9;
constexpr unsigned long long EVT_COMMAND_NEW_PROJECT = 10;
constexpr unsigned long long EVT_COMMAND_OPEN_PROJECT = 11;
constexpr unsigned long long EVT_COMMAND_CLOSE_PROJECT = 12;
constexpr unsigned long long EVT_COMMAND_REQUEST_CLOSE_PROJECT = 13;
constexpr unsigned long long EVT_COMMAND_SAVE_PROJECT = 14;
constexpr unsigned long long EVT_SCREEN_ABOUT_TO_ADD = 15;
constexpr unsigned long long EVT_SCREEN_ADDED = 16;
constexpr unsigned long long EVT_SCREEN_ABOUT_TO_REMOVE = 17;
constexpr unsigned long long EVT_SCREEN_REMOVED = 18;
constexpr unsigned long long EVT_SCREEN_RENAMED = 19;
constexpr unsigned long long EVT_SCREEN_ACTIVE_CHANGING = 20;
constexpr unsigned long long EVT_SCREEN_ACTIVE_CHANGED = 21;
constexpr unsigned long long EVT_SCREEN_VISIBLE_CHANGING = 22;
constexpr unsigned long long EVT_SCREEN_VISIBLE_CHANGED = 23;
constexpr unsigned long long EVT_SCREEN_RESOLUTION_CHANGED = 24;
constexpr unsigned long long EVT_SCREEN_LIST_CHANGED = 25;
constexpr unsigned long long EVT_SCREEN_ABOUT_TO_MOVE = 26;
constexpr unsigned long long EVT_SCREEN_MOVED = 27;
constexpr unsigned long long EVT_SCREEN_LIST_REORDERED = 28;
constexpr unsigned long long EVT_SCREEN_OVERLAY_ACTIVATED = 29;
constexpr unsigned long long EVT_SCREEN_OVERLAY_DEACTIVATED = 30;
constexpr unsigned long long EVT_SCREEN_REPAINT_REQUEST = 31;
constexpr unsigned long long EVT_SCREEN_ROOTABOUTTOADD = 32;
constexpr unsigned long long EVT_SCREEN_ROOTADDED = 33;
constexpr unsigned long long EVT_SCREEN_ROOTABOUTTOREMOVE = 34;
constexpr unsigned long long EVT_SCREEN_ROOTREMOVED = 35;
constexpr unsigned long long EVT_SCREEN_ROOTABOUTTOMOVE = 36;
constexpr unsigned long long EVT_SCREEN_ROOTMOVED = 37;
constexpr unsigned long long EVT_GLOBALSTATE_VALUE_CHANGED = 38;
constexpr unsigned long long EVT_GLOBALSTATE_DIRTY_CHANGED = 39;
constexpr unsigned long long EVT_GLOBALSTATE_REQUEST_CLEAN = 40;
constexpr unsigned long long EVT_GLOBALSTATE_LOADED = 41;
constexpr unsigned long long EVT_GLOBALSTATE_RESET_UI = 42;
constexpr unsigned long long EVT_GLOBALSTATE_SAVE_UI = 43;
constexpr unsigned long long EVT_GLOBALSTATE_LOAD_UI = 44;
constexpr unsigned long long EVT_GLOBALSTATE_CLOSE_UI = 45;
constexpr unsigned long long EVT_TOOL_ACTIVATING = 46;
constexpr unsigned long long EVT_TOOL_ACTIVATED = 47;
constexpr unsigned long long EVT_TOOL_DEACTIVATING = 48;
constexpr unsigned long long EVT_TOOL_DEACTIVATED = 49;
constexpr unsigned long long EVT_SCENE_CHILDABOUTTOADD = 50;
constexpr unsigned long long EVT_SCENE_CHILDADDED = 51;
constexpr unsigned long long EVT_SCENE_CHILDABOUTTODELETE = 52;
constexpr unsigned long long EVT_SCENE_CHILDABOUTTOREMOVE = 53;
constexpr unsigned long long EVT_SCENE_CHILDREMOVED = 54;
constexpr unsigned long long EVT_SCENE_CHILDABOUTTOMOVE = 55;
constexpr unsigned long long EVT_SCENE_CHILDMOVED = 56;
constexpr unsigned long long EVT_SCENE_CHILDABOUTTOREPARENT = 57;
constexpr unsigned long long EVT_SCENE_CHILDREPARENTED = 58;
constexpr unsigned long long EVT_SCENE_SCENEOBJECTSTATECHANGED = 59;
constexpr unsigned long long EVT_SCENE_SCENEOBJECTRENAMED = 60;
constexpr unsigned long long EVT_SCENE_REPAINT = 61;
constexpr unsigned long long EVT_SELECT_CHANGED = 62;
constexpr unsigned long long EVT_SELECT_REFRESH = 63;
// The first number free for a plug-in's own events.
constexpr unsigned long long EVT_USER = 64;

// The name of an event type: the constant's name for 0 to 63; for any other number the
// installed user printer's answer, or "EVT_USER" when none is installed.
TES_EXPORT QString printEventType(unsigned long long type);

// Lets a plug-in name its own event numbers. A later call replaces an earlier one; null
// restores the default. Always returns true.
TES_EXPORT bool setUserEventTypePrinter(QString (*printer)(unsigned long long));

} // namespace TES
