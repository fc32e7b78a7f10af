// SPDX-License-Identifier: MIT
#include "properties/view/PropertyViewContainer.h"

#include "properties/PropertyModel.h"
#include "properties/view/PropertyView.h"

#include <QVBoxLayout>

namespace TES {

PropertyViewContainer::PropertyViewContainer()
{
    _layout = new QVBoxLayout(this);
    _layout->setContentsMargins(0, 0, 0, 0);
    _layout->setSpacing(0);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

PropertyViewContainer::~PropertyViewContainer()
{
    clearPropertyModel();
}

void PropertyViewContainer::clearPropertyModel()
{
    if (_currentView) {
        _currentView->hide();
        _layout->removeWidget(_currentView);
        _currentView->setParent(nullptr);
    }
    _currentView = nullptr;
    delete _ownedView;
    _ownedView = nullptr;
    // The view goes before its model.
    delete _multiView;
    _multiView = nullptr;
    _multiModel.reset();
}

void PropertyViewContainer::setPropertyView(PropertyView *view)
{
    clearPropertyModel();
    _show(view);
}

void PropertyViewContainer::setPropertyModel(PropertyModel *model)
{
    clearPropertyModel();
    if (!model)
        return;
    _ownedView = new PropertyView();
    _ownedView->setModel(model);
    _show(_ownedView);
}

bool PropertyViewContainer::createMultiView(std::list<PropertyView *> const &views)
{
    std::list<PropertyModel *> models;
    for (PropertyView *view : views)
        models.push_back(view ? view->getModel() : nullptr);
    return createMultiView(models);
}

bool PropertyViewContainer::createMultiView(std::list<PropertyModel *> const &)
{
    clearPropertyModel();
    return false;
}

PropertyView *PropertyViewContainer::currentView() const
{
    return _currentView;
}

void PropertyViewContainer::_show(PropertyView *view)
{
    if (!view)
        return;
    _currentView = view;
    _layout->addWidget(view);
    view->show();
}

} // namespace TES
