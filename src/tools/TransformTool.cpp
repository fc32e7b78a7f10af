// SPDX-License-Identifier: MIT
#include "tools/TransformTool.h"

#include "designer/ScreenDesignArea.h"
#include "designer/ScreenDesignerWindow.h"
#include "designer/ScreenOverlay.h"
#include "events/EventBus.h"
#include "events/GlobalStateEvents.h"
#include "events/SceneObjectEvent.h"
#include "scene/SceneManager.h"
#include "scene/Screen.h"
#include "scene/SelectionManager.h"
#include "scene/TransformSceneObject.h"
#include "services/GlobalState.h"
#include "services/HostConstants.h"
#include "services/Utils.h"
#include "tools/ITransformToolDelegate.h"
#include "tools/TransformToolExtender.h"
#include "tools/TransformToolSelectRunnable.h"
#include "windows/TesseraWindow.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <functional>

namespace TES {

namespace {

QString const TranslationHint = "Translation Mode:  To reparent selected objects hold ctrl, move "
                                "over desired parent, and release left mouse button.";

// Which axes each grip scales, by RectanglePoint value.
struct GripAxes
{
    bool x;
    bool y;
};
constexpr std::array<GripAxes, 8> GripTable = {{{true, true},
                                                {false, true},
                                                {true, true},
                                                {true, false},
                                                {true, false},
                                                {true, true},
                                                {false, true},
                                                {true, true}}};

QSharedPointer<Screen> activeScreen()
{
    if (!SceneManager::ip())
        return {};
    return SceneManager::ip()->screen(SceneManager::ip()->getActiveScreen()).toStrongRef();
}

bool clipPicks()
{
    return GlobalState::ip() && GlobalState::ip()->getBool(GlobalPropertyType::Project, 7);
}

void setStatusText(QString const &text)
{
    if (TesseraWindow::ip())
        TesseraWindow::ip()->setStatusText(text);
}

// A label: the text in a white rounded rectangle with a black outline, placed by `place` once
// its size is known.
void drawLabel(QPainter &painter, QString const &text, std::function<void(QRect &)> const &place)
{
    painter.setBrush(QBrush(Qt::white, Qt::SolidPattern));
    painter.setPen(Qt::black);
    // Qt 5.15 folds the high-quality hint into this one.
    painter.setRenderHint(QPainter::Antialiasing);
    QRect const bounds = painter.fontMetrics().boundingRect(text);
    int const w = bounds.width();
    int const h = bounds.height();
    QRect label(0, 0, w + 10, h + 6);
    place(label);
    painter.drawRoundedRect(label, 1.0, 1.0);
    QPoint const centre = label.center();
    painter.drawText(centre.x() - w / 2 - 1,
                     centre.y() + h - 1 - h / 2 - painter.fontMetrics().descent(), text);
}

QString pointText(QPoint const &p)
{
    return QString::asprintf("(%d,%d)", p.x(), p.y());
}

} // namespace

TransformTool::TransformTool() : _gripPixmap(HostConstants::IconTransformGrip)
{
    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
}

TransformTool::~TransformTool()
{
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
}

QString TransformTool::Type()
{
    return "transform";
}

QString TransformTool::type() const
{
    return Type();
}

bool TransformTool::containsObject(QUuid const &id) const
{
    return _selected.contains(id);
}

bool TransformTool::isTopMostObject(QUuid const &id) const
{
    return _topMost.contains(id);
}

QRect TransformTool::boundingBox() const
{
    return _box;
}

void TransformTool::activateOverlay()
{
    _rebuild();
}

void TransformTool::deactivateOverlay()
{
    if (ScreenDesignArea *area = ScreenDesignerWindow::DesignArea())
        area->setCursor(Qt::ArrowCursor);
}

void TransformTool::update()
{
    _rebuild();
}

void TransformTool::handleOverlayEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        _buttonPressed(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonRelease:
        _buttonReleased(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseMove:
        if (QGuiApplication::mouseButtons() & Qt::LeftButton)
            _dragged(static_cast<QMouseEvent *>(event));
        else
            _mouseMoved(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::KeyPress:
        _keyPressed(static_cast<QKeyEvent *>(event));
        break;
    case QEvent::KeyRelease:
        _keyReleased(static_cast<QKeyEvent *>(event));
        break;
    case QEvent::Resize:
        _rebuild();
        break;
    case QEvent::DragMove:
        if (_mode != 0)
            event->accept();
        break;
    default:
        break;
    }
}

QString TransformTool::getEventHandlerName() const
{
    return "transform";
}

bool TransformTool::canHandleEvent(unsigned long long mask) const
{
    return mask & (EVM_SCENE | EVM_GLOBALSTATE);
}

void TransformTool::handleEvent(QSharedPointer<Event> event)
{
    if (event->type() == EVT_GLOBALSTATE_VALUE_CHANGED) {
        // SCREEN_WIDTH, SCREEN_HEIGHT and the two designer paddings; the group is not tested.
        unsigned int const id = event.staticCast<GlobalStateChangedEvent>()->id();
        if (id >= ProjectScreenWidth && id <= ProjectScreenDesignerHeightPadding)
            _rebuild();
    } else if (event->type() == EVT_SCENE_SCENEOBJECTSTATECHANGED) {
        // The tool's own changes rebuild once, after the loop that makes them.
        if (_changing)
            return;
        QUuid const id = event.staticCast<SceneObjectEvent>()->info().id();
        if (_selected.contains(id) && Utils::GetSceneObject(id))
            _rebuildCurrent();
    }
}

void TransformTool::_rebuild()
{
    _hasBox = false;
    QList<QUuid> const selected
        = SelectionManager::ip() ? SelectionManager::ip()->selected() : QList<QUuid>();
    // The tree holds still during a drag: the trim of an unchanged selection stands, and each
    // step of a large selection is spared a quadratic walk.
    if (_mode == 0 || selected != _selected)
        _topMost = Utils::TrimToAncestors(selected);
    _selected = selected;
    // With nothing selected the old box and grips stay and still answer hit tests; only the
    // painting stops.
    if (!_topMost.isEmpty())
        _rebuildBox();
}

void TransformTool::_rebuildCurrent()
{
    _hasBox = false;
    if (!_topMost.isEmpty())
        _rebuildBox();
}

void TransformTool::_rebuildBox()
{
    _box = ScreenOverlay::toScreenCoords(Utils::GetBoundingBox(_topMost));
    int const l = _box.left();
    int const t = _box.top();
    int const r = _box.right();
    int const b = _box.bottom();
    // The bottom middle grip sits one pixel left of the top middle one; kept so.
    std::array<QPoint, 8> const corners = {{{l - 3, t - 3},
                                            {(l + r) / 2 - 3, t - 3},
                                            {r - 4, t - 3},
                                            {l - 3, (t + b) / 2 - 3},
                                            {r - 4, (t + b) / 2 - 3},
                                            {l - 3, b - 4},
                                            {(l + r) / 2 - 4, b - 4},
                                            {r - 4, b - 4}}};
    for (std::size_t grip = 0; grip < corners.size(); ++grip)
        _grips[grip] = QRect(corners[grip], _gripPixmap.size());
    _hasBox = true;
    if (ScreenDesignArea *area = ScreenDesignerWindow::DesignArea())
        area->getOverlayWidget(OverlayTool)->update();
}

void TransformTool::_forEachObject(QList<QUuid> const &ids,
                                   std::function<void(TransformSceneObject &)> const &op)
{
    _changing = true;
    for (QUuid const &id : ids) {
        if (auto object = Utils::GetSceneObject(id).dynamicCast<TransformSceneObject>())
            op(*object);
    }
    _changing = false;
}

int TransformTool::_getGrip(QPoint const &p) const
{
    for (std::size_t grip = 0; grip < _grips.size(); ++grip) {
        if (_grips[grip].contains(p, false))
            return int(grip);
    }
    return -1;
}

void TransformTool::_updateCursor(QPoint const &p)
{
    ScreenDesignArea *area = ScreenDesignerWindow::DesignArea();
    if (!area)
        return;
    static constexpr std::array<Qt::CursorShape, 8> GripCursors
        = {Qt::SizeFDiagCursor, Qt::SizeVerCursor,   Qt::SizeBDiagCursor, Qt::SizeHorCursor,
           Qt::SizeHorCursor,   Qt::SizeBDiagCursor, Qt::SizeVerCursor,   Qt::SizeFDiagCursor};
    int const grip = _getGrip(p);
    if (grip >= 0 && _showGrips)
        area->setCursor(GripCursors[std::size_t(grip)]);
    else if (_box.contains(p, false))
        area->setCursor(Qt::SizeAllCursor);
    else
        area->setCursor(Qt::ArrowCursor);
}

void TransformTool::_buttonPressed(QMouseEvent *e)
{
    QPoint const p = e->pos();
    _moved = false;
    if (e->button() == Qt::LeftButton) {
        _grip = _getGrip(p);
        if (_grip >= 0) {
            _mode = 2;
            _startTransform(p);
            e->accept();
        } else if (_box.contains(p, false)) {
            _showGrips = false;
            _mode = 1;
            _startTransform(p);
            setStatusText(TranslationHint);
            e->accept();
        } else {
            // Left to the rubber band below.
            _mode = 0;
        }
    }
    _updateCursor(p);
}

void TransformTool::_startTransform(QPoint const &p)
{
    _startPosition = _box.topLeft();
    _startSize = _box.size();
    _lastPoint = p;
    bool const translating = _mode == 1;
    _forEachObject(_topMost, [translating](TransformSceneObject &object) {
        object.startTransform(translating);
    });
}

void TransformTool::_endTransform()
{
    _forEachObject(_topMost, [](TransformSceneObject &object) { object.acceptTransform(); });
}

void TransformTool::_mouseMoved(QMouseEvent *e)
{
    _updateCursor(e->pos());
    _lastPoint = e->pos();
}

void TransformTool::_dragged(QMouseEvent *e)
{
    if (!activeScreen())
        return;
    _moved = true;
    if (_mode == 1) {
        _handleBoxDrag(e);
        _reparentTarget
            = (e->modifiers() & Qt::ControlModifier) ? _dragPickWidget(e->pos()) : QUuid();
    } else if (_grip >= 0) {
        _handleGripDrag(e);
    }
}

void TransformTool::_handleBoxDrag(QMouseEvent *e)
{
    e->accept();
    QPoint const d = e->pos() - _lastPoint;
    // From the stored position: each step places the objects relative to where they stood at
    // the press.
    _forEachObject(_topMost,
                   [d](TransformSceneObject &object) { object.translate(d.x(), d.y(), false); });
    _rebuild();
}

void TransformTool::_handleGripDrag(QMouseEvent *e)
{
    QPoint const d = e->pos() - _lastPoint;
    GripAxes const axes = GripTable[std::size_t(_grip)];
    auto const grip = RectanglePoint(_grip);
    // The anchor has no effect on the scale.
    QPoint const anchor = ScreenOverlay::toScreenCoords(_box.topLeft());
    int const dx = axes.x ? d.x() : 0;
    int const dy = axes.y ? d.y() : 0;
    // The same pixels for every object, each from its own stored geometry.
    _forEachObject(_topMost,
                   [&](TransformSceneObject &object) { object.scale(anchor, grip, dx, dy); });
    _rebuild();
}

void TransformTool::_buttonReleased(QMouseEvent *e)
{
    QPoint const p = e->pos();
    if (_mode != 0) {
        e->accept();
        QSharedPointer<Screen> const screen = activeScreen();
        if (!_moved) {
            // A click on the box or a grip selects what lies there, once this event is done.
            QUuid const hit = screen
                                  ? screen->pick(ScreenOverlay::toWidgetCoords(p), clipPicks(), {})
                                  : QUuid();
            if (!hit.isNull())
                (new TransformToolSelectRunnable(hit))->schedule();
        } else if (e->modifiers() & Qt::ControlModifier) {
            QUuid const target = _dragPickWidget(p);
            ITransformToolDelegate *delegate = TransformToolExtender::Delegate();
            if (!target.isNull() && delegate)
                delegate->reparent(target, Utils::TrimToAncestors(_topMost));
        }
        _endTransform();
    }
    _mode = 0;
    _grip = -1;
    _showGrips = true;
    setStatusText(QString());
    _updateCursor(p);
    _reparentTarget = QUuid();
    // The grips come back.
    if (ScreenDesignArea *area = ScreenDesignerWindow::DesignArea())
        area->getOverlayWidget(OverlayTool)->update();
}

QUuid TransformTool::_dragPickWidget(QPoint const &p) const
{
    QSharedPointer<Screen> const screen = activeScreen();
    ITransformToolDelegate *delegate = TransformToolExtender::Delegate();
    if (!screen || !delegate)
        return QUuid();
    // Neither a moved object nor a screen root can take the objects.
    QList<QUuid> const exclude = _selected + screen->roots();
    QUuid const result = screen->pick(ScreenOverlay::toWidgetCoords(p), clipPicks(), exclude);
    if (result.isNull() || !delegate->canReparent(result, _selected))
        return QUuid();
    return result;
}

void TransformTool::_keyPressed(QKeyEvent *e)
{
    int const step = (e->modifiers() & Qt::ControlModifier) ? 1 : 10;
    QPoint d;
    switch (e->key()) {
    case Qt::Key_Left:
        d = QPoint(-step, 0);
        break;
    case Qt::Key_Up:
        d = QPoint(0, -step);
        break;
    case Qt::Key_Right:
        d = QPoint(step, 0);
        break;
    case Qt::Key_Down:
        d = QPoint(0, step);
        break;
    default:
        return;
    }
    // From the current position: arrow keys never open a transform.
    _forEachObject(QList<QUuid>(_topMost),
                   [d](TransformSceneObject &object) { object.translate(d.x(), d.y(), true); });
    _rebuild();
    e->accept();
}

void TransformTool::_keyReleased(QKeyEvent *e)
{
    if (e->key() != Qt::Key_Delete && e->key() != Qt::Key_Backspace)
        return;
    // No confirmation, and on the release of the key.
    if (SceneManager::ip())
        SceneManager::ip()->deleteObjects(QList<QUuid>(_topMost));
    e->accept();
}

void TransformTool::paintEvent(QWidget *overlay)
{
    if (!_hasBox)
        return;
    _paintBox(overlay);
    _paintReparentHighlight(overlay);
    _paintGrips(overlay);
    _paintTopLeftCoords(overlay);
    _paintBottomRightCoords(overlay);
    _paintWidthIndicator(overlay);
    _paintHeightIndicator(overlay);
}

void TransformTool::_paintBox(QWidget *overlay)
{
    PaintOutline(overlay, QRect(_box.topLeft(), QPoint(_box.right() - 1, _box.bottom() - 1)));
}

void TransformTool::_paintReparentHighlight(QWidget *overlay)
{
    if (_reparentTarget.isNull())
        return;
    auto target = Utils::GetSceneObject(_reparentTarget).dynamicCast<TransformSceneObject>();
    if (!target)
        return;
    QPainter painter(overlay);
    painter.setOpacity(0.3);
    painter.fillRect(ScreenOverlay::toScreenCoords(target->rootRectangle()), Qt::yellow);
}

void TransformTool::_paintGrips(QWidget *overlay)
{
    if (!_showGrips || (QGuiApplication::keyboardModifiers() & Qt::ControlModifier))
        return;
    QPainter painter(overlay);
    for (QRect const &grip : _grips)
        painter.drawPixmap(grip, _gripPixmap);
}

void TransformTool::_paintTopLeftCoords(QWidget *overlay)
{
    QPoint const corner = _box.topLeft();
    QPainter painter(overlay);
    drawLabel(painter, pointText(ScreenOverlay::toWidgetCoords(corner)),
              [corner](QRect &label) { label.moveBottomRight(corner - QPoint(11, 11)); });
}

void TransformTool::_paintBottomRightCoords(QWidget *overlay)
{
    QPoint const corner = _box.bottomRight();
    QPainter painter(overlay);
    drawLabel(painter, pointText(ScreenOverlay::toWidgetCoords(corner)),
              [corner](QRect &label) { label.moveTopLeft(corner + QPoint(10, 10)); });
}

void TransformTool::_paintWidthIndicator(QWidget *overlay)
{
    int const l = _box.left();
    int const t = _box.top();
    int const r = _box.right();
    QPainter painter(overlay);
    painter.setPen(QPen(Qt::red, 2, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(l, t - 10, r, t - 10);
    painter.drawLine(l, t - 10, l, t - 5);
    painter.drawLine(r, t - 10, r, t - 5);
    drawLabel(painter, QString::number(r - l + 1), [l, t, r](QRect &label) {
        label.moveLeft((l + r) / 2 - label.width() / 2);
        label.moveBottom(t - 11);
    });
}

void TransformTool::_paintHeightIndicator(QWidget *overlay)
{
    int const l = _box.left();
    int const t = _box.top();
    int const b = _box.bottom();
    QPainter painter(overlay);
    painter.setPen(QPen(Qt::blue, 2, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(l - 10, t, l - 10, b);
    painter.drawLine(l - 10, t, l - 5, t);
    painter.drawLine(l - 10, b, l - 5, b);
    drawLabel(painter, QString::number(b - t + 1), [l, t, b](QRect &label) {
        label.moveTop((t + b) / 2 - label.height() / 2);
        label.moveRight(l - 11);
    });
}

} // namespace TES
