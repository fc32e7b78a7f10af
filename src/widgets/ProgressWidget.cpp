// SPDX-License-Identifier: MIT
#include "widgets/ProgressWidget.h"

#include "widgets/BreadCrumbButton.h"
#include "widgets/ProgressWidgetModel.h"
#include "widgets/ProgressWidgetStage.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace TES {

ProgressWidget::ProgressWidget() : _crumbBar(new QWidget(this)), _stageFrame(new QFrame(this))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);

    _crumbBar->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    layout->addWidget(_crumbBar);

    _stageFrame->setFrameShape(QFrame::Box);
    _stageFrame->setFrameShadow(QFrame::Sunken);
    _stageFrame->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto *frameLayout = new QVBoxLayout(_stageFrame);
    frameLayout->setSpacing(0);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_stageFrame);
}

ProgressWidget::~ProgressWidget()
{
    // The stage owns its widget: it must not go down with the frame.
    _releaseStageWidget();
}

ProgressWidgetModel *ProgressWidget::getModel() const
{
    return _model;
}

void ProgressWidget::setModel(ProgressWidgetModel *model)
{
    if (_model)
        disconnect(_model, &ProgressWidgetModel::stateChanged, this,
                   &ProgressWidget::_modelStateChanged);
    _model = model;
    if (_model)
        connect(_model, &ProgressWidgetModel::stateChanged, this,
                &ProgressWidget::_modelStateChanged);
    _modelStateChanged();
    update();
}

void ProgressWidget::_releaseStageWidget()
{
    QLayoutItem *item = _stageFrame->layout()->takeAt(0);
    if (!item)
        return;
    if (QWidget *widget = item->widget()) {
        widget->setParent(nullptr);
        widget->hide();
    }
    delete item;
}

void ProgressWidget::_modelStateChanged()
{
    _rebuildBreadCrumbs();
    _releaseStageWidget();
    if (!_model || _model->getActiveStage().isEmpty())
        return;
    ProgressWidgetStage *active = _model->stage(_model->getActiveStage());
    QWidget *widget = active ? active->stageWidget() : nullptr;
    if (!widget)
        return;
    _stageFrame->layout()->addWidget(widget);
    widget->show();
    update();
}

void ProgressWidget::_rebuildBreadCrumbs()
{
    if (QLayout *old = _crumbBar->layout()) {
        while (QLayoutItem *item = old->takeAt(0)) {
            // Later: the crumb being clicked may be the one that brought us here.
            if (QWidget *widget = item->widget()) {
                widget->hide();
                widget->deleteLater();
            }
            delete item;
        }
        delete old;
    }
    auto *layout = new QHBoxLayout(_crumbBar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    if (!_model)
        return;

    QStringList const stack = _model->stack();
    for (int i = 0; i < stack.size(); ++i) {
        ProgressWidgetStage *stage = _model->stage(stack.at(i));
        auto *button = new BreadCrumbButton(stage ? stage->getText() : QString());
        button->setFlat(true);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        button->setObjectName(stack.at(i));
        if (stack.at(i) == _model->getActiveStage()) {
            QFont font = button->font();
            font.setWeight(75);
            button->setFont(font);
        }
        int const width = button->sizeHint().width() + 4;
        button->setMinimumWidth(width);
        button->setMaximumWidth(width);
        connect(button, &QPushButton::clicked, this, &ProgressWidget::_crumbButtonPushed);
        layout->addWidget(button);
        if (i + 1 < stack.size()) {
            auto *arrow = new QLabel(">");
            arrow->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
            layout->addWidget(arrow);
        } else {
            layout->addStretch();
        }
    }
}

void ProgressWidget::_crumbButtonPushed()
{
    if (_model && sender())
        _model->setActiveStage(sender()->objectName());
}

} // namespace TES
