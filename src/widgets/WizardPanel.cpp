// SPDX-License-Identifier: MIT
#include "widgets/WizardPanel.h"

namespace TES {

WizardPanel::WizardPanel() = default;

WizardPanel::~WizardPanel() = default;

WizardDialog *WizardPanel::wizard() const
{
    return _wizard;
}

WizardDialogModel *WizardPanel::model() const
{
    return _model;
}

void WizardPanel::_setWizard(WizardDialog *wizard)
{
    _wizard = wizard;
}

} // namespace TES
