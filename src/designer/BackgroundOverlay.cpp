// SPDX-License-Identifier: MIT
#include "designer/BackgroundOverlay.h"

namespace TES {

BackgroundOverlay::BackgroundOverlay(QObject *parent) : IScreenOverlayOwner(parent) {}

BackgroundOverlay::~BackgroundOverlay() = default;

void BackgroundOverlay::activateOverlay() {}

void BackgroundOverlay::deactivateOverlay() {}

void BackgroundOverlay::handleOverlayEvent(QEvent *) {}

} // namespace TES
