// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

namespace TES {

// Observes the start and stop of the application. A plug-in implements it and installs it
// with Core::setListener; Core does not own it.
class TES_EXPORT CoreLifecycleListener
{
public:
    // The very last step of a successful Core::initialize: the window is shown, the bus is on
    // and the project is clean.
    virtual void coreInitialized() = 0;
    // The very first step of Core::destroy, while every service still stands.
    virtual void coreDestroying() = 0;
};

} // namespace TES
