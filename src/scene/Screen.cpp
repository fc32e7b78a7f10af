// SPDX-License-Identifier: MIT
#include "scene/Screen.h"

#include "events/EventBus.h"
#include "events/ScreenEvents.h"
#include "properties/AbstractTextProperty.h"
#include "properties/Property.h"
#include "properties/PropertyCategory.h"
#include "scene/SceneManager.h"
#include "scene/SceneObject.h"
#include "services/HostConstants.h"
#include "services/Utils.h"

namespace TES {

namespace {

QSharedPointer<SceneObject> resolve(QUuid const &id)
{
    if (!SceneManager::ip())
        return {};
    return SceneManager::ip()->getObject(id).toStrongRef();
}

} // namespace

Screen::Screen() : _nameValidator(this)
{
    _init();
}

Screen::Screen(QString const &name) : _nameValidator(this)
{
    _init();
    AbstractTextProperty::Set(&_model, "name", name, PropertyChangeReason::ReasonInternal);
}

Screen::~Screen()
{
    _model.removeListener(this);
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
}

void Screen::_init()
{
    _types.insert(Type());
    _model.setEventsEnabled(false);
    PropertyCategory *category = _model.addCategory("screen");
    category->setText("Screen");
    Property *name = _model.property("name");
    name->setText("Name");
    name->setHelpText("Sets the name of this object.");
    name->setValidator(&_nameValidator);
    category->addChild("name");
    _model.addListener(this);
    _model.setEventsEnabled(true);
    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
}

QString Screen::Type()
{
    return QStringLiteral("Screen");
}

QString Screen::type() const
{
    return Type();
}

QString Screen::getName() const
{
    return AbstractTextProperty::Get(&_model, "name");
}

bool Screen::setName(QString const &name)
{
    if (!SceneManager::ip())
        return false;
    return SceneManager::ip()->setScreenName(id(), name);
}

QIcon Screen::icon()
{
    return QIcon(HostConstants::IconScreen);
}

bool Screen::ownsRoot(QUuid const &id) const
{
    return Utils::ObjectInList(id, roots());
}

bool Screen::ownsObject(QUuid const &id) const
{
    for (QUuid const &rootId : roots()) {
        auto root = resolve(rootId);
        if (root && (rootId == id || root->hasChild(id, true)))
            return true;
    }
    return false;
}

QUuid Screen::findObjectByName(QString const &name) const
{
    for (QUuid const &rootId : roots()) {
        auto root = resolve(rootId);
        if (!root)
            continue;
        if (root->getName() == name)
            return rootId;
        QUuid const found = root->childWithName(name, true);
        if (!found.isNull())
            return found;
    }
    return QUuid();
}

void Screen::raiseRoot(QUuid const &id)
{
    // For the first root this passes 0xFFFFFFFF; moveRoot copes.
    _order().raise(id);
}

void Screen::raiseRoots(QList<QUuid> const &ids)
{
    if (!ids.isEmpty())
        _order().raiseAll(ids);
}

void Screen::raiseRootToTop(QUuid const &id)
{
    if (!id.isNull())
        _order().raiseToTop(id);
}

void Screen::raiseRootsToTop(QList<QUuid> const &ids)
{
    if (!ids.isEmpty())
        _order().raiseAllToTop(ids);
}

void Screen::lowerRoot(QUuid const &id)
{
    if (!id.isNull())
        _order().lower(id);
}

void Screen::lowerRoots(QList<QUuid> const &ids)
{
    if (!ids.isEmpty())
        _order().lowerAll(ids);
}

void Screen::lowerRootToBottom(QUuid const &id)
{
    _order().lowerToBottom(id);
}

void Screen::lowerRootsToBottom(QList<QUuid> const &ids)
{
    _order().lowerAllToBottom(ids);
}

bool Screen::rootsCanMoveUp(QList<QUuid> const &ids)
{
    QList<int> rows;
    for (QUuid const &id : ids) {
        if (!ownsRoot(id))
            return false;
        rows.append(indexOfRoot(id));
    }
    return Utils::ItemsCanMoveUp(rows);
}

bool Screen::rootsCanMoveDown(QList<QUuid> const &ids)
{
    QList<int> rows;
    for (QUuid const &id : ids) {
        if (!ownsRoot(id))
            return false;
        rows.append(indexOfRoot(id));
    }
    return Utils::ItemsCanMoveDown(rows, rootCount());
}

void Screen::activated() {}

void Screen::deactivated() {}

void Screen::initializeNew() {}

void Screen::propertyValueChanged(Property *property, QVariant const &oldValue, QVariant const &,
                                  PropertyChangeReason)
{
    if (!property || property->id() != "name")
        return;
    int const index = SceneManager::ip() ? SceneManager::ip()->screenIndex(id()) : -1;
    EventBus::RaiseNow(
        QSharedPointer<ScreenRenamedEvent>::create(id(), index, oldValue.toString()));
}

QString Screen::getEventHandlerName() const
{
    return QStringLiteral("Screen");
}

bool Screen::canHandleEvent(unsigned long long mask) const
{
    return (mask & EVM_GLOBALSTATE) != 0;
}

void Screen::handleEvent(QSharedPointer<Event>) {}

PropertyView *Screen::propertyView()
{
    // Made on first demand once property views exist; the screen will not delete it.
    return _propertyView;
}

bool Screen::_finalizeName(QString const &name)
{
    return AbstractTextProperty::Set(&_model, "name", name, PropertyChangeReason::ReasonInternal);
}

SiblingOrder Screen::_order()
{
    return SiblingOrder([this](QUuid const &id) { return indexOfRoot(id); },
                        [this] { return rootCount(); },
                        [this](QUuid const &id, unsigned int index) { moveRoot(id, index); });
}

} // namespace TES
