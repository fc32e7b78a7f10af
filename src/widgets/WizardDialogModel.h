// SPDX-License-Identifier: MIT
#pragma once

#include "data/KeyValueMap.h"
#include "tessera_export.h"

#include <QList>
#include <QString>

namespace TES {

class WizardPanel;

// The ordered panels of a WizardDialog, and a KeyValueMap in which they share their results.
// The model owns its panels and deletes them with itself; the dialog only shows them.
class TES_EXPORT WizardDialogModel
{
public:
    WizardDialogModel();
    ~WizardDialogModel();

    int panelCount() const;
    // -1 for null or a panel that is not in the model.
    int panelIndex(WizardPanel *panel) const;
    // False for null or a name already held; otherwise appends and takes ownership.
    bool addPanel(WizardPanel *panel);
    WizardPanel *getPanel(QString const &name) const;
    WizardPanel *panelAt(unsigned long index) const;
    QList<WizardPanel *> panels() const;
    KeyValueMap &arguments();
    KeyValueMap const &arguments() const;

private:
    QList<WizardPanel *> _panels;
    KeyValueMap _arguments;
};

} // namespace TES
