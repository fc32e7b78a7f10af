// SPDX-License-Identifier: MIT
#include "scene/SiblingOrder.h"

namespace TES {

SiblingOrder::SiblingOrder(IndexOf indexOf, Count count, Move move)
    : _indexOf(std::move(indexOf)), _count(std::move(count)), _move(std::move(move))
{}

void SiblingOrder::raise(QUuid const &id) const
{
    int const index = _indexOf(id);
    if (index < 0)
        return;
    _move(id, static_cast<unsigned int>(index - 1));
}

void SiblingOrder::raiseAll(QList<QUuid> const &ids) const
{
    unsigned int position = 0;
    for (QUuid const &id : _present(ids)) {
        int const index = _indexOf(id);
        if (index != static_cast<int>(position))
            _move(id, static_cast<unsigned int>(index - 1));
        ++position;
    }
}

void SiblingOrder::raiseToTop(QUuid const &id) const
{
    if (_indexOf(id) >= 0)
        _move(id, 0);
}

void SiblingOrder::raiseAllToTop(QList<QUuid> const &ids) const
{
    unsigned int position = 0;
    for (QUuid const &id : _present(ids))
        _move(id, position++);
}

void SiblingOrder::lower(QUuid const &id) const
{
    int const index = _indexOf(id);
    if (index >= 0 && static_cast<unsigned int>(index) + 1 < _count())
        _move(id, static_cast<unsigned int>(index) + 1);
}

void SiblingOrder::lowerAll(QList<QUuid> const &ids) const
{
    QList<QUuid> const present = _present(ids);
    for (int i = present.size() - 1; i >= 0; --i) {
        QUuid const &id = present.at(i);
        int const index = _indexOf(id);
        if (index != static_cast<int>(_count()) - 1)
            _move(id, static_cast<unsigned int>(index) + 1);
    }
}

void SiblingOrder::lowerToBottom(QUuid const &id) const
{
    int const index = _indexOf(id);
    if (index >= 0 && static_cast<unsigned int>(index) + 1 < _count())
        _move(id, _count() - 1);
}

void SiblingOrder::lowerAllToBottom(QList<QUuid> const &ids) const
{
    for (QUuid const &id : _present(ids))
        _move(id, _count() - 1);
}

QList<QUuid> SiblingOrder::_present(QList<QUuid> const &ids) const
{
    QList<QUuid> present;
    for (QUuid const &id : ids) {
        if (_indexOf(id) >= 0)
            present.append(id);
    }
    return present;
}

} // namespace TES
