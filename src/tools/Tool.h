// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"
#include "tools/IScreenOverlayOwner.h"

#include <QString>

namespace TES {

class KeyValueMap;

// A tool: what mouse and key events on the design surface mean while it is active. A tool
// object lives only while it is active: ToolManager makes it through its ToolFactory, hangs it
// on the tool overlay (slot 5) of the design surface and deletes it on deactivation. Input
// reaches it through handleOverlayEvent, painting through paintEvent on the tool overlay.
class TES_EXPORT Tool : public IScreenOverlayOwner
{
    Q_OBJECT

public:
    explicit Tool(QObject *parent = nullptr);
    ~Tool() override;

    // Pure. The tool's type name, equal to its factory's.
    virtual QString type() const = 0;
    // Sets the tool up from the activation's parameters, before it is attached; false refuses
    // the activation and the tool is deleted. The default accepts.
    virtual bool activate(KeyValueMap const &params);
    // The tool is about to be detached and deleted. The default does nothing.
    virtual void deactivate();
    // The state the tool depends on has changed (ToolManager::update, or an activation of the
    // tool's own type while it is active). The default does nothing.
    virtual void update();
};

} // namespace TES
