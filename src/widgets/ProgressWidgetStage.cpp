// SPDX-License-Identifier: MIT
#include "widgets/ProgressWidgetStage.h"

#include "widgets/ProgressWidgetModel.h"

namespace TES {

ProgressWidgetStage::ProgressWidgetStage(QString const &name) : _name(name) {}

ProgressWidgetStage::~ProgressWidgetStage() = default;

QString ProgressWidgetStage::name() const
{
    return _name;
}

QString ProgressWidgetStage::getText() const
{
    return _text;
}

void ProgressWidgetStage::setText(QString const &text)
{
    _text = text;
    if (_model)
        _model->stageStateChanged(this);
}

ProgressWidgetModel *ProgressWidgetStage::model() const
{
    return _model;
}

bool ProgressWidgetStage::isValid() const
{
    return true;
}

bool ProgressWidgetStage::hasHelpText() const
{
    return false;
}

QString ProgressWidgetStage::helpText() const
{
    return QString();
}

void ProgressWidgetStage::update() {}

void ProgressWidgetStage::finalize() {}

void ProgressWidgetStage::reset() {}

void ProgressWidgetStage::load(KeyValueMap const &) {}

} // namespace TES
