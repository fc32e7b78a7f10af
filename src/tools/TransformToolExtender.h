#pragma once

#include "tessera_export.h"

namespace TES {

class ITransformToolDelegate;

// The hook by which a plug-in decides what reparenting means for the transform tool. The one
// instance is made and owned by ToolManager, which lives with the process; the plug-in sets
// _delegate directly (there is no setter), and the tool reads it on each use. While
// _delegate is null no reparent target is ever offered.
class TES_EXPORT TransformToolExtender
{
public:
    TransformToolExtender();
    virtual ~TransformToolExtender();

    static TransformToolExtender &i();
    static TransformToolExtender *ip();
    // The delegate of the instance, null without an instance.
    static ITransformToolDelegate *Delegate();

    static TransformToolExtender *_instance;

    ITransformToolDelegate *_delegate = nullptr;
};

} // namespace TES
