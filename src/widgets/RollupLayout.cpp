// SPDX-License-Identifier: MIT
#include "widgets/RollupLayout.h"

#include <QWidget>

namespace TES {

RollupLayout::RollupLayout(QWidget *header) : _header(header)
{
    connect(&_timer, &QTimer::timeout, this, &RollupLayout::timerElapsed);
}

void RollupLayout::setContent(QWidget *content)
{
    _content = content;
    invalidate();
}

bool RollupLayout::getExpanded() const
{
    return _expanded;
}

void RollupLayout::setExpanded(bool expanded, bool immediate)
{
    if (_expanded == expanded)
        return;
    _expanded = expanded;
    if (!immediate) {
        _timer.start(10);
        return;
    }
    _fraction = expanded ? 1.0f : 0.0f;
    invalidate();
}

void RollupLayout::timerElapsed()
{
    // A change of direction in mid-animation carries on from the present fraction.
    if (_expanded && _fraction < 1.0f) {
        _fraction += 0.2f;
        if (_fraction >= 1.0f) {
            _fraction = 1.0f;
            _timer.stop();
        }
    } else if (!_expanded && _fraction > 0.0f) {
        _fraction -= 0.2f;
        if (_fraction <= 0.0f) {
            _fraction = 0.0f;
            _timer.stop();
        }
    }
    invalidate();
}

void RollupLayout::addItem(QLayoutItem *) {}

QLayoutItem *RollupLayout::itemAt(int) const
{
    return nullptr;
}

QLayoutItem *RollupLayout::takeAt(int)
{
    return nullptr;
}

int RollupLayout::count() const
{
    return 0;
}

void RollupLayout::setGeometry(QRect const &rect)
{
    if (!parentWidget())
        return;
    if (_header)
        _header->setGeometry(0, 0, rect.width(), 20);
    if (_content) {
        _content->setGeometry(0, 20, rect.width(),
                              int(float(_content->sizeHint().height()) * _fraction));
    }
}

QSize RollupLayout::sizeHint() const
{
    int const width = parentWidget() ? parentWidget()->width() : 0;
    return QSize(width, (_content ? _content->height() : 0) + 20);
}

} // namespace TES
