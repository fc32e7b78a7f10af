// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"
#include "tools/IScreenOverlayOwner.h"

namespace TES {

// An overlay owner that does nothing: paints nothing and takes no input. The host creates
// none; a plug-in may attach one to hold a slot, or derive from it.
class TES_EXPORT BackgroundOverlay : public IScreenOverlayOwner
{
    Q_OBJECT

public:
    explicit BackgroundOverlay(QObject *parent = nullptr);
    ~BackgroundOverlay() override;

    void activateOverlay() override;
    void deactivateOverlay() override;
    void handleOverlayEvent(QEvent *event) override;
};

} // namespace TES
