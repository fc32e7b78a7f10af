// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QList>
#include <QUuid>

#include <functional>

namespace TES {

// The reorderings of an ordered list of siblings, written once over three operations of the
// list's owner: where an id stands, how many there are, and a move to a place. SceneObject
// runs them over its children and Screen over its roots; each adds its own guards. "Raise"
// moves toward index 0, "lower" toward the end.
class TES_EXPORT SiblingOrder
{
public:
    using IndexOf = std::function<int(QUuid const &)>;
    using Count = std::function<unsigned int()>;
    using Move = std::function<void(QUuid const &, unsigned int)>;

    SiblingOrder(IndexOf indexOf, Count count, Move move);

    // One place up; for the first sibling the place passed is 0xFFFFFFFF, which the owner's
    // move must bear.
    void raise(QUuid const &id) const;
    // Each present id one place up, unless it already stands at its place among those raised.
    void raiseAll(QList<QUuid> const &ids) const;
    void raiseToTop(QUuid const &id) const;
    void raiseAllToTop(QList<QUuid> const &ids) const;
    void lower(QUuid const &id) const;
    // From the last present id back: one place down unless it stands last. Unlike raiseAll,
    // only the very last place is tested; owners rely on this.
    void lowerAll(QList<QUuid> const &ids) const;
    void lowerToBottom(QUuid const &id) const;
    void lowerAllToBottom(QList<QUuid> const &ids) const;

private:
    // The ids that stand in the list, in the order given.
    QList<QUuid> _present(QList<QUuid> const &ids) const;

    IndexOf _indexOf;
    Count _count;
    Move _move;
};

} // namespace TES
