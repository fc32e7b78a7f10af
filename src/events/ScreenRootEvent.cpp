#include "events/ScreenRootEvent.h"

#include "scene/SceneManager.h"

namespace TES {

namespace {

int screenIndex(QUuid const &screen)
{
    return SceneManager::ip() ? SceneManager::ip()->screenIndex(screen) : -1;
}

} // namespace

ScreenRootEvent::ScreenRootEvent(unsigned long long type, QUuid const &screen, QUuid const &root,
                                 int rootIndex)
    : ScreenGenericEvent(type, screen, screenIndex(screen)), _root(root), _rootIndex(rootIndex)
{}

ScreenRootEvent::~ScreenRootEvent() = default;

QUuid ScreenRootEvent::root() const
{
    return _root;
}

int ScreenRootEvent::rootIndex() const
{
    return _rootIndex;
}

} // namespace TES
