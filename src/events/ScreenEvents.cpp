// SPDX-License-Identifier: MIT
#include "events/ScreenEvents.h"

#include "scene/SceneManager.h"

namespace TES {

ScreenEvent::ScreenEvent(unsigned long long type, unsigned long long mask) : Event(type, mask) {}

ScreenEvent::~ScreenEvent() = default;

ScreenGenericEvent::ScreenGenericEvent(unsigned long long type, QUuid const &screen, int index)
    : ScreenEvent(type, EVM_SCREEN), _screen(screen), _index(index)
{}

ScreenGenericEvent::~ScreenGenericEvent() = default;

QUuid ScreenGenericEvent::screen() const
{
    return _screen;
}

int ScreenGenericEvent::index() const
{
    return _index;
}

ScreenAboutToAddEvent::~ScreenAboutToAddEvent() = default;
ScreenAddedEvent::~ScreenAddedEvent() = default;
ScreenAboutToRemoveEvent::~ScreenAboutToRemoveEvent() = default;
ScreenActiveChangingEvent::~ScreenActiveChangingEvent() = default;
ScreenActiveChangedEvent::~ScreenActiveChangedEvent() = default;
ScreenVisibilityChangingEvent::~ScreenVisibilityChangingEvent() = default;
ScreenVisibilityChangedEvent::~ScreenVisibilityChangedEvent() = default;

ScreenRenamedEvent::ScreenRenamedEvent(QUuid const &screen, int index, QString const &name)
    : FixedScreenEvent(screen, index), _name(name)
{}

ScreenRenamedEvent::~ScreenRenamedEvent() = default;

QString ScreenRenamedEvent::name() const
{
    return _name;
}

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
