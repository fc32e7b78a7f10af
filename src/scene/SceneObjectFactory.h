// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QIcon>
#include <QSharedPointer>
#include <QString>

namespace TES {

class SceneObject;

// Makes the scene objects of one type. A plug-in registers one factory per type with
// SceneManager::addObjectFactory while it initialises; the tool box and the object creation
// tool offer the types by these texts. The host never deletes a factory.
class TES_EXPORT SceneObjectFactory
{
public:
    // The name of the type as the tool box and the creation tool show it.
    virtual QString text() = 0;
    // The caption of the type's tool box button.
    virtual QString label() = 0;
    virtual QIcon icon() = 0;
    // A new object with a fresh id, not yet in any tree. SceneManager takes the reference
    // and becomes the owner; the result is not checked, so never answer null.
    virtual QSharedPointer<SceneObject> create() = 0;

protected:
    ~SceneObjectFactory() = default;
};

} // namespace TES
