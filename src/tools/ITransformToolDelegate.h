// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QList>
#include <QUuid>

namespace TES {

// The plug-in's answer to what reparenting means: the transform tool offers it the object
// under the cursor when Control is held during a move, and hands it the moved objects on the
// release. Installed in TransformToolExtender::_delegate; not owned by the host.
class TES_EXPORT ITransformToolDelegate
{
public:
    virtual ~ITransformToolDelegate();
    // May the selection be put under the target? Called on every drag step with Control held.
    virtual bool canReparent(QUuid const &target, QList<QUuid> const &selection) = 0;
    // Puts the objects under the target, with whatever events that takes
    // (Utils::ReparentAndTranslate keeps them in place on screen).
    virtual void reparent(QUuid const &target, QList<QUuid> const &objects) = 0;
};

} // namespace TES
