// SPDX-License-Identifier: MIT
#include "tools/Tool.h"

namespace TES {

Tool::Tool(QObject *parent) : IScreenOverlayOwner(parent) {}

Tool::~Tool() = default;

bool Tool::activate(KeyValueMap const &)
{
    return true;
}

void Tool::deactivate() {}

void Tool::update() {}

} // namespace TES
