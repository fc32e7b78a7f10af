#pragma once

#include "events/ScreenGenericEvent.h"
#include "tessera_export.h"

#include <QUuid>

namespace TES {

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
