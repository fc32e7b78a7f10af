// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QDialog>
#include <QPointer>

class QFormLayout;
class QLabel;
class QPushButton;
class QSplitter;

namespace TES {

class WizardDialogModel;
class WizardPanel;

// Walks the user through the panels of a WizardDialogModel: the list of steps on the left,
// the current panel with its title and a message line on the right, Help, Back and Next at
// the bottom. A panel decides by validating whether the user may go on; Next on the last
// panel (shown as "Finish") finalises every panel and hides the dialog, which ends exec()
// without accept(): callers ask finished(), not the result code.
//
// The dialog owns its frame; not the model, and never a panel, which it parents only while
// the panel is shown. Panels reach it through panelUpdated().
class TES_EXPORT WizardDialog : public QDialog
{
    Q_OBJECT

public:
    WizardDialog();
    ~WizardDialog() override;

    WizardDialogModel *getModel() const;
    // Not owned. Adds the model's steps below those of an earlier model and shows the first
    // panel.
    void setModel(WizardDialogModel *model);
    // A panel's state changed: validate it and show what it says.
    void panelUpdated(WizardPanel *panel);
    // Whether the user went through to Finish.
    bool finished() const;

public slots:
    void previousPanel();
    void nextPanel();
    void help();

private:
    void _setPanel(int index);
    void _finalize();

    QSplitter *_splitter;
    QLabel *_titleLabel;
    QWidget *_panelContainer;
    // Guarded: the model may delete the panel on show.
    QPointer<WizardPanel> _currentPanel;
    QFormLayout *_stepsLayout;
    QLabel *_logoLabel;
    QLabel *_messageLabel;
    QPushButton *_helpButton;
    QPushButton *_backButton;
    QPushButton *_nextButton;
    WizardDialogModel *_model = nullptr;
    bool _finished = false;
};

} // namespace TES
