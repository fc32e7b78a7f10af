#include "support/TestSceneEvent.h"

namespace TES::Test {

TestSceneEvent::TestSceneEvent(unsigned long long type, QList<SceneObjectInfo> const &infos,
                               QString const &name)
    : SceneObjectEvent(type, infos.value(0)), _infos(infos), _name(name)
{}

TestSceneEvent::~TestSceneEvent() = default;

QList<SceneObjectInfo> TestSceneEvent::infos() const
{
    return _infos;
}

SceneObjectInfo TestSceneEvent::infoAt(int index) const
{
    return _infos.value(index);
}

QString TestSceneEvent::name() const
{
    return _name;
}

} // namespace TES::Test
