// SPDX-License-Identifier: MIT
#pragma once

#include "events/Event.h"
#include "tessera_export.h"

#include <QString>
#include <QUuid>

namespace TES {

// The screen events, all of mask EVM_SCREEN. SceneManager raises them around the changes of
// its screen list, the active screen and the visible screens, a concrete screen around the
// changes of its roots; all at once, with EventBus::RaiseNow. Handlers select them by the
// mask and static_cast by the type number.

// The base of the screen events. Built plainly, it is the repaint request that SceneManager
// raises when the screen size changes.
class TES_EXPORT ScreenEvent : public Event
{
public:
    explicit ScreenEvent(unsigned long long type = EVT_SCREEN_REPAINT_REQUEST,
                         unsigned long long mask = EVM_SCREEN);
    ~ScreenEvent() override;
};

// A screen event naming one screen and its index in the screen list; the type is given by
// the subclass.
class TES_EXPORT ScreenGenericEvent : public ScreenEvent
{
public:
    ScreenGenericEvent(unsigned long long type, QUuid const &screen, int index);
    ~ScreenGenericEvent() override;

    QUuid screen() const;
    int index() const;

private:
    QUuid _screen;
    int _index;
};

// A ScreenGenericEvent of the fixed type T; the classes below add only their names.
template<unsigned long long T>
class FixedScreenEvent : public ScreenGenericEvent
{
public:
    FixedScreenEvent(QUuid const &screen, int index) : ScreenGenericEvent(T, screen, index) {}
};

// A ScreenGenericEvent of the fixed type T about a screen's tab on the design surface;
// visible() is the new state.
template<unsigned long long T>
class ScreenVisibilityEvent : public ScreenGenericEvent
{
public:
    ScreenVisibilityEvent(QUuid const &screen, int index, bool visible)
        : ScreenGenericEvent(T, screen, index), _visible(visible)
    {}

    bool visible() const { return _visible; }

private:
    bool _visible;
};

// A screen is about to join the list at index().
class TES_EXPORT ScreenAboutToAddEvent : public FixedScreenEvent<EVT_SCREEN_ABOUT_TO_ADD>
{
public:
    using FixedScreenEvent::FixedScreenEvent;
    ~ScreenAboutToAddEvent() override;
};

// A screen joined the list at index().
class TES_EXPORT ScreenAddedEvent : public FixedScreenEvent<EVT_SCREEN_ADDED>
{
public:
    using FixedScreenEvent::FixedScreenEvent;
    ~ScreenAddedEvent() override;
};

// A screen is about to leave the list.
class TES_EXPORT ScreenAboutToRemoveEvent : public FixedScreenEvent<EVT_SCREEN_ABOUT_TO_REMOVE>
{
public:
    using FixedScreenEvent::FixedScreenEvent;
    ~ScreenAboutToRemoveEvent() override;
};

// The active screen is about to change away from screen(); a null id and index -1 when
// no screen was active.
class TES_EXPORT ScreenActiveChangingEvent : public FixedScreenEvent<EVT_SCREEN_ACTIVE_CHANGING>
{
public:
    using FixedScreenEvent::FixedScreenEvent;
    ~ScreenActiveChangingEvent() override;
};

// The active screen is now screen(); a null id and index -1 when none is.
class TES_EXPORT ScreenActiveChangedEvent : public FixedScreenEvent<EVT_SCREEN_ACTIVE_CHANGED>
{
public:
    using FixedScreenEvent::FixedScreenEvent;
    ~ScreenActiveChangedEvent() override;
};

// A screen's tab on the design surface is about to be shown or hidden.
class TES_EXPORT ScreenVisibilityChangingEvent
    : public ScreenVisibilityEvent<EVT_SCREEN_VISIBLE_CHANGING>
{
public:
    using ScreenVisibilityEvent::ScreenVisibilityEvent;
    ~ScreenVisibilityChangingEvent() override;
};

// A screen's tab on the design surface was shown or hidden.
class TES_EXPORT ScreenVisibilityChangedEvent
    : public ScreenVisibilityEvent<EVT_SCREEN_VISIBLE_CHANGED>
{
public:
    using ScreenVisibilityEvent::ScreenVisibilityEvent;
    ~ScreenVisibilityChangedEvent() override;
};

// A screen was renamed; name() is the old name, the new one is the screen's own.
class TES_EXPORT ScreenRenamedEvent : public FixedScreenEvent<EVT_SCREEN_RENAMED>
{
public:
    ScreenRenamedEvent(QUuid const &screen, int index, QString const &name);
    ~ScreenRenamedEvent() override;

    QString name() const;

private:
    QString _name;
};

// The events a concrete screen raises around the changes of its list of roots, at once
// (EventBus::raiseEventNow), the first of a pair while the list is unchanged and the second
// after the change:
//
//   EVT_SCREEN_ROOTABOUTTOADD, EVT_SCREEN_ROOTADDED        the root at its new place
//   EVT_SCREEN_ROOTABOUTTOREMOVE, EVT_SCREEN_ROOTREMOVED   the root at its place
//   EVT_SCREEN_ROOTABOUTTOMOVE, EVT_SCREEN_ROOTMOVED       the root at its old place in the
//                                                          first, at its new in the second
//
// screen() and index() name the screen and its place in SceneManager's list, as in every
// screen event; root() and rootIndex() the root. Handlers static_cast to this class by the
// type number.
class TES_EXPORT ScreenRootEvent : public ScreenGenericEvent
{
public:
    // The screen's index is looked up in SceneManager: -1 for a screen not (or no longer) in
    // its list.
    ScreenRootEvent(unsigned long long type, QUuid const &screen, QUuid const &root, int rootIndex);
    ~ScreenRootEvent() override;

    QUuid root() const;
    int rootIndex() const;

private:
    QUuid _root;
    int _rootIndex;
};

} // namespace TES
