// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "tessera_export.h"

#include <QWidget>

class QVBoxLayout;

namespace TES {

class PropertyView;
class PropertyViewContainer;

// The content of the "Object Editor" dock. It chooses which property view is on show: that of
// the single selected object (an object shows one when it implements IPropertyViewable), the
// merged view of several, or that of the active screen when nothing is selected. The views
// belong to their objects and screens; the container only shows them.
//
// Follows the project, the screens and the selection through EventBus, as a persistent
// handler from construction to destruction. Created by TesseraWindow, owned by its dock.
class TES_EXPORT PropertyEditorWindow : public QWidget, public IEventHandler
{
    Q_OBJECT

public:
    explicit PropertyEditorWindow(QWidget *parent = nullptr);
    ~PropertyEditorWindow() override;

    static PropertyEditorWindow &i();
    static PropertyEditorWindow *ip();

    // Shows a view that the caller keeps; null empties the editor.
    void setPropertyView(PropertyView *view);
    // Shows the active screen's view, or nothing without an active screen.
    void setScreenView();
    PropertyViewContainer *container() const;

    // "PropertyEditorWindow".
    QString getEventHandlerName() const override;
    // Project, screen and selection events.
    bool canHandleEvent(unsigned long long mask) const override;
    void handleEvent(QSharedPointer<Event> event) override;
    bool persistent() const override;

    static PropertyEditorWindow *_instance;

private:
    // The first selected object's view; false, and nothing shown, when it has none.
    bool _selectSingleView();
    // The merged view of the selected objects' views; false when they cannot be merged.
    bool _selectMultiView();

    QVBoxLayout *_layout;
    PropertyViewContainer *_container;
};

} // namespace TES
