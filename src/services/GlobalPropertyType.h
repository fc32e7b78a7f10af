// SPDX-License-Identifier: MIT
#pragma once

namespace TES {

// The three groups of GlobalState values: Project values are saved with the project,
// Session values live for this run only, User values are the user's preferences.
enum class GlobalPropertyType { Project = 0, Session = 1, User = 2 };

} // namespace TES
