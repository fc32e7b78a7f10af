// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QPointer>
#include <QWidget>

#include <list>
#include <memory>

class QVBoxLayout;

namespace TES {

class PropertyModel;
class PropertyView;

// The slot in which the object editor swaps property views: one view on show at a time,
// either a caller's (not owned), one made here over a model (owned), or a merged view of
// several models with the temporary model behind it (both owned).
class TES_EXPORT PropertyViewContainer : public QWidget
{
    Q_OBJECT

public:
    PropertyViewContainer();
    ~PropertyViewContainer() override;

    // Takes the view on show out (a caller's view is unparented, not deleted) and deletes
    // what this container made, views before their model.
    void clearPropertyModel();
    // Shows the caller's view, which stays the caller's; null leaves the container empty.
    void setPropertyView(PropertyView *view);
    // Shows a new view over the model; null leaves the container empty.
    void setPropertyModel(PropertyModel *model);
    // The merged view of the views' models.
    bool createMultiView(std::list<PropertyView *> const &views);
    // The merged view of the models. No merged model is made: the result is false and the
    // container is left empty.
    bool createMultiView(std::list<PropertyModel *> const &models);

    // The view on show; null when empty.
    PropertyView *currentView() const;

private:
    void _show(PropertyView *view);

    QVBoxLayout *_layout;
    // Guarded: a caller's view may be deleted by its owner while on show.
    QPointer<PropertyView> _currentView;
    PropertyView *_ownedView = nullptr;
    std::shared_ptr<PropertyModel> _multiModel;
    PropertyView *_multiView = nullptr;
};

} // namespace TES
