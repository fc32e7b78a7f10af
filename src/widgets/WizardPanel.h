// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>
#include <QWidget>

namespace TES {

class WizardDialog;
class WizardDialogModel;

// What a panel's validate() has to say: a message for the dialog's message line, and whether
// it is an error that keeps the user from going on.
struct TES_EXPORT WizardPanelStatus
{
    bool isError = false;
    QString message;
};

// One page of a WizardDialog, written by a plug-in. The dialog shows the panel while it is
// the current one, and the panel reports a change of its own state by calling
// wizard()->panelUpdated(this), upon which the dialog validates it. The WizardDialogModel
// owns the panel at all times; the dialog only parents it while it is shown.
class TES_EXPORT WizardPanel : public QWidget
{
    Q_OBJECT

public:
    WizardPanel();
    ~WizardPanel() override;

    // The dialog showing the panel; null while it is not the current one.
    WizardDialog *wizard() const;
    WizardDialogModel *model() const;
    // The dialog sets and clears itself here.
    void _setWizard(WizardDialog *wizard);

    // The panel's key and its text in the list of steps; unique within a model.
    virtual QString panelName() const = 0;
    // The heading above the shown panel.
    virtual QString panelTitle() const = 0;
    // True when there is nothing to say. Otherwise fills status: an error blocks Next, any
    // other message is shown as a warning.
    virtual bool validate(WizardPanelStatus &status) = 0;
    // Window title of the help dialog.
    virtual QString helpTitle() const = 0;
    // Help contents, plain or rich text; empty leaves Help disabled.
    virtual QString helpText() const = 0;
    // The panel has just become the current one.
    virtual void enterPanel() = 0;
    // The panel stops being the current one.
    virtual void leavePanel() = 0;
    // The wizard ends successfully; called on every panel in order, seen or not.
    virtual void finalizePanel() = 0;

private:
    friend class WizardDialogModel;

    WizardDialog *_wizard = nullptr;
    WizardDialogModel *_model = nullptr;
};

} // namespace TES
