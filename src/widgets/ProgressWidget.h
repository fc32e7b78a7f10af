// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QPointer>
#include <QWidget>

class QFrame;

namespace TES {

class ProgressWidgetModel;

// Shows a ProgressWidgetModel: a row of bread crumbs, one per stage on the model's stack with
// the active one in bold, over the active stage's widget. A click on a crumb shows that stage
// without popping the ones after it. The widget follows the model's stateChanged() and
// rebuilds the crumbs on each.
//
// The widget owns its crumbs; neither the model nor the stage widgets, which it only borrows
// into its frame while their stage is active and hands back parentless.
class TES_EXPORT ProgressWidget : public QWidget
{
    Q_OBJECT

public:
    ProgressWidget();
    ~ProgressWidget() override;

    ProgressWidgetModel *getModel() const;
    // Not owned; null shows nothing.
    void setModel(ProgressWidgetModel *model);

signals:
    // For users of the class to emit; the widget itself never does.
    void stageChanged();

private slots:
    void _modelStateChanged();
    void _crumbButtonPushed();

private:
    void _rebuildBreadCrumbs();
    void _releaseStageWidget();

    QPointer<ProgressWidgetModel> _model;
    QWidget *_crumbBar;
    QFrame *_stageFrame;
};

} // namespace TES
