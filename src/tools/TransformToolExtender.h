// SPDX-License-Identifier: MIT
#pragma once

#include "services/Singleton.h"
#include "tessera_export.h"

namespace TES {

class ITransformToolDelegate;

// The hook by which a plug-in decides what reparenting means for the transform tool. The one
// instance is made and owned by ToolManager, which lives with the process; the plug-in sets
// _delegate directly (there is no setter), and the tool reads it on each use. While
// _delegate is null no reparent target is ever offered.
class TES_EXPORT TransformToolExtender : public Singleton<TransformToolExtender>
{
public:
    TransformToolExtender();
    virtual ~TransformToolExtender();

    // The delegate of the instance, null without an instance.
    static ITransformToolDelegate *Delegate();

    ITransformToolDelegate *_delegate = nullptr;
};

template<>
TES_EXPORT TransformToolExtender *Singleton<TransformToolExtender>::_instance;

} // namespace TES
