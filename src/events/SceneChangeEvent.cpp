// SPDX-License-Identifier: MIT
#include "events/SceneChangeEvent.h"

namespace TES {

SceneChangeEvent::SceneChangeEvent(unsigned long long type, QList<SceneObjectInfo> const &infos,
                                   QString const &name)
    : SceneObjectEvent(type, infos.value(0)), _infos(infos), _name(name)
{}

SceneChangeEvent::~SceneChangeEvent() = default;

QList<SceneObjectInfo> SceneChangeEvent::infos() const
{
    return _infos;
}

SceneObjectInfo SceneChangeEvent::infoAt(int index) const
{
    return _infos.value(index);
}

SceneObjectInfo SceneChangeEvent::parentInfo() const
{
    return infoAt(0);
}

SceneObjectInfo SceneChangeEvent::childInfo() const
{
    return infoAt(1);
}

SceneObjectInfo SceneChangeEvent::newParentInfo() const
{
    return infoAt(2);
}

QString SceneChangeEvent::name() const
{
    return _name;
}

} // namespace TES
