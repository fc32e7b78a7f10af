// SPDX-License-Identifier: MIT
#include "designer/ScreenDesignArea.h"

#include "tools/IScreenOverlayOwner.h"

#include <QEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QScrollArea>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace TES {

ScreenDesignArea::ScreenDesignArea(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    _scrollArea = new QScrollArea(this);
    _scrollArea->setWidgetResizable(true);
    layout->addWidget(_scrollArea);

    _overlayContainer = new QWidget();
    _overlayContainer->installEventFilter(this);
    auto *stack = new QStackedLayout(_overlayContainer);
    stack->setStackingMode(QStackedLayout::StackAll);
    for (QWidget *&overlay : _overlayWidgets) {
        overlay = new QWidget(_overlayContainer);
        stack->addWidget(overlay);
    }
    _inputWidget = new QWidget(_overlayContainer);
    _inputWidget->setAttribute(Qt::WA_MouseTracking);
    _inputWidget->setAcceptDrops(true);
    _inputWidget->setFocusPolicy(Qt::ClickFocus);
    _inputWidget->installEventFilter(this);
    stack->addWidget(_inputWidget);
    // The stack lowers each widget it is given: put them back in order, slot 0 at the bottom
    // and the input widget on top.
    for (QWidget *overlay : _overlayWidgets)
        overlay->raise();
    _inputWidget->raise();
    _scrollArea->setWidget(_overlayContainer);
}

ScreenDesignArea::~ScreenDesignArea()
{
    // The owners outlive the area as a rule: leave their filters on widgets about to go.
    for (ScreenOverlayType type = 0; type < OverlayCount; ++type) {
        if (_overlayOwners[type])
            _overlayWidgets[type]->removeEventFilter(_overlayOwners[type]);
    }
}

QWidget *ScreenDesignArea::overlayContainer() const
{
    return _overlayContainer;
}

bool ScreenDesignArea::attachOverlay(ScreenOverlayType type, IScreenOverlayOwner *owner)
{
    if (type >= OverlayCount || _overlayOwners[type] == owner)
        return false;
    if (_overlayOwners[type])
        _detach(type);
    if (!owner)
        return true;
    _overlayOwners[type] = owner;
    _overlayWidgets[type]->installEventFilter(owner);
    owner->activateOverlay();
    _overlayWidgets[type]->update();
    return true;
}

bool ScreenDesignArea::detachOverlay(ScreenOverlayType type)
{
    if (type >= OverlayCount || !_overlayOwners[type])
        return false;
    _detach(type);
    return true;
}

bool ScreenDesignArea::detatchIfOwned(ScreenOverlayType type, IScreenOverlayOwner *owner)
{
    if (type >= OverlayCount || !owner || _overlayOwners[type] != owner)
        return false;
    _detach(type);
    return true;
}

bool ScreenDesignArea::isOverlayOwned(ScreenOverlayType type) const
{
    return type < OverlayCount && _overlayOwners[type];
}

IScreenOverlayOwner *ScreenDesignArea::getOverlayOwner(ScreenOverlayType type) const
{
    return _overlayOwners[type];
}

QWidget *ScreenDesignArea::getOverlayWidget(ScreenOverlayType type) const
{
    return _overlayWidgets[type];
}

QWidget *ScreenDesignArea::inputWidget() const
{
    return _inputWidget;
}

Qt::CursorShape ScreenDesignArea::getCursor() const
{
    return _inputWidget->cursor().shape();
}

void ScreenDesignArea::setCursor(Qt::CursorShape shape)
{
    if (shape == getCursor())
        return;
    _inputWidget->setCursor(shape);
    _inputWidget->update();
}

bool ScreenDesignArea::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == _overlayContainer) {
        if (event->type() == QEvent::Paint)
            _paintContainer();
        return false;
    }
    if (watched != _inputWidget)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Resize:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        return _forwardEvent(event);
    default:
        return false;
    }
}

void ScreenDesignArea::paintEvent(QPaintEvent *)
{
    _overlayContainer->update();
}

void ScreenDesignArea::_detach(ScreenOverlayType type)
{
    IScreenOverlayOwner *owner = _overlayOwners[type];
    _overlayWidgets[type]->removeEventFilter(owner);
    owner->deactivateOverlay();
    _overlayOwners[type] = nullptr;
    _overlayWidgets[type]->update();
}

bool ScreenDesignArea::_forwardEvent(QEvent *event)
{
    // The topmost owner that accepts takes the event: a tool sees input before the rubber band.
    for (int type = int(OverlayCount) - 1; type >= 0; --type) {
        IScreenOverlayOwner *owner = _overlayOwners[type];
        if (!owner)
            continue;
        event->setAccepted(false);
        owner->handleOverlayEvent(event);
        if (event->isAccepted())
            return true;
    }
    return false;
}

void ScreenDesignArea::_paintContainer()
{
    QPainter painter(_overlayContainer);
    QLinearGradient gradient(0, 0, 0, _overlayContainer->height() - 1);
    gradient.setColorAt(0.0, Qt::white);
    gradient.setColorAt(0.95, Qt::lightGray);
    gradient.setColorAt(1.0, Qt::darkGray);
    painter.fillRect(_overlayContainer->rect(), gradient);
}

} // namespace TES
