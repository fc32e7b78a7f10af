// SPDX-License-Identifier: MIT
#pragma once

#include "events/SceneEvent.h"
#include "scene/SceneObjectInfo.h"
#include "tessera_export.h"

namespace TES {

// A scene event about one object, named by its SceneObjectInfo.
class TES_EXPORT SceneObjectEvent : public SceneEvent
{
public:
    SceneObjectEvent(unsigned long long type, SceneObjectInfo const &info);
    ~SceneObjectEvent() override;

    SceneObjectInfo info() const;

private:
    SceneObjectInfo _info;
};

} // namespace TES
