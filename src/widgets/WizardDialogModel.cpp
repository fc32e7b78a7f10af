// SPDX-License-Identifier: MIT
#include "widgets/WizardDialogModel.h"

#include "widgets/WizardPanel.h"

namespace TES {

WizardDialogModel::WizardDialogModel() = default;

WizardDialogModel::~WizardDialogModel()
{
    qDeleteAll(_panels);
}

int WizardDialogModel::panelCount() const
{
    return _panels.size();
}

int WizardDialogModel::panelIndex(WizardPanel *panel) const
{
    return panel ? _panels.indexOf(panel) : -1;
}

bool WizardDialogModel::addPanel(WizardPanel *panel)
{
    if (!panel || getPanel(panel->panelName()))
        return false;
    _panels.append(panel);
    panel->_model = this;
    return true;
}

WizardPanel *WizardDialogModel::getPanel(QString const &name) const
{
    for (WizardPanel *panel : _panels) {
        if (panel->panelName() == name)
            return panel;
    }
    return nullptr;
}

WizardPanel *WizardDialogModel::panelAt(unsigned long index) const
{
    return index < unsigned(_panels.size()) ? _panels.at(int(index)) : nullptr;
}

QList<WizardPanel *> WizardDialogModel::panels() const
{
    return _panels;
}

KeyValueMap &WizardDialogModel::arguments()
{
    return _arguments;
}

KeyValueMap const &WizardDialogModel::arguments() const
{
    return _arguments;
}

} // namespace TES
