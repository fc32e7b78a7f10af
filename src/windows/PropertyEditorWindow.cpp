// SPDX-License-Identifier: MIT
#include "windows/PropertyEditorWindow.h"

#include "events/EventBus.h"
#include "events/EventTypes.h"
#include "events/ScreenEvents.h"
#include "properties/IPropertyViewable.h"
#include "properties/view/PropertyViewContainer.h"
#include "scene/SceneManager.h"
#include "scene/SceneObject.h"
#include "scene/Screen.h"
#include "scene/SelectionManager.h"

#include <QVBoxLayout>

namespace TES {

namespace {

// A selected object that shows a view; null when it is gone or shows none.
IPropertyViewable *viewable(QUuid const &id)
{
    if (!SceneManager::ip())
        return nullptr;
    QSharedPointer<SceneObject> const object = SceneManager::ip()->getObject(id).toStrongRef();
    return dynamic_cast<IPropertyViewable *>(object.data());
}

} // namespace

PropertyEditorWindow *PropertyEditorWindow::_instance = nullptr;

PropertyEditorWindow::PropertyEditorWindow(QWidget *parent) : QWidget(parent)
{
    _instance = this;
    _layout = new QVBoxLayout(this);
    _layout->setContentsMargins(0, 0, 0, 0);
    _layout->setSpacing(0);
    _container = new PropertyViewContainer();
    _layout->addWidget(_container);
    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
}

PropertyEditorWindow::~PropertyEditorWindow()
{
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
    _instance = nullptr;
}

PropertyEditorWindow &PropertyEditorWindow::i()
{
    return *_instance;
}

PropertyEditorWindow *PropertyEditorWindow::ip()
{
    return _instance;
}

void PropertyEditorWindow::setPropertyView(PropertyView *view)
{
    _container->setPropertyView(view);
}

void PropertyEditorWindow::setScreenView()
{
    QSharedPointer<Screen> screen;
    if (SceneManager::ip())
        screen = SceneManager::ip()->screen(SceneManager::ip()->getActiveScreen()).toStrongRef();
    _container->setPropertyView(screen ? screen->propertyView() : nullptr);
}

PropertyViewContainer *PropertyEditorWindow::container() const
{
    return _container;
}

QString PropertyEditorWindow::getEventHandlerName() const
{
    return QStringLiteral("PropertyEditorWindow");
}

bool PropertyEditorWindow::canHandleEvent(unsigned long long mask) const
{
    return (mask & (EVM_PROJECT | EVM_SCREEN | EVM_SELECT)) != 0;
}

void PropertyEditorWindow::handleEvent(QSharedPointer<Event> event)
{
    switch (event->type()) {
    case EVT_PROJECT_REQUEST_BLANK:
        _container->setPropertyView(nullptr);
        break;
    case EVT_PROJECT_LOADED:
        setScreenView();
        break;
    case EVT_SCREEN_ACTIVE_CHANGED: {
        auto active = event.dynamicCast<ScreenActiveChangedEvent>();
        if (!active || active->screen().isNull())
            _container->setPropertyView(nullptr);
        else
            setScreenView();
        break;
    }
    case EVT_SELECT_CHANGED: {
        unsigned int const count
            = SelectionManager::ip() ? SelectionManager::ip()->selectedCount() : 0;
        if (count == 0) {
            setScreenView();
        } else if (count == 1) {
            if (!_selectSingleView())
                setScreenView();
        } else if (!_selectMultiView()) {
            // Unlike a single object without a view, a selection that cannot be merged shows
            // nothing, not the screen.
            _container->setPropertyView(nullptr);
        }
        break;
    }
    default:
        break;
    }
}

bool PropertyEditorWindow::persistent() const
{
    return true;
}

bool PropertyEditorWindow::_selectSingleView()
{
    QList<QUuid> const selected
        = SelectionManager::ip() ? SelectionManager::ip()->selected() : QList<QUuid>();
    IPropertyViewable *object = selected.isEmpty() ? nullptr : viewable(selected.first());
    _container->setPropertyView(object ? object->propertyView() : nullptr);
    return object != nullptr;
}

bool PropertyEditorWindow::_selectMultiView()
{
    std::list<PropertyView *> views;
    if (SelectionManager::ip()) {
        for (QUuid const &id : SelectionManager::ip()->selected()) {
            if (IPropertyViewable *object = viewable(id))
                views.push_back(object->propertyView());
        }
    }
    if (!_container->createMultiView(views)) {
        _container->setPropertyView(nullptr);
        return false;
    }
    return true;
}

} // namespace TES
