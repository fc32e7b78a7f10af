// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QDialog>

class QDialogButtonBox;
class QTextEdit;

namespace TES {

// "Help Viewer": a fixed-size dialog that shows a help text, plain or rich, read-only, with
// one OK button. The wizard dialog opens it for its help pages; plug-ins may too. It owns its
// widgets through Qt's parent chain.
class TES_EXPORT HelpViewDialog : public QDialog
{
    Q_OBJECT

public:
    HelpViewDialog();
    explicit HelpViewDialog(const QString &text);
    ~HelpViewDialog() override;

    // Rich text is interpreted, as QTextEdit::setText does.
    void setText(const QString &text);

private slots:
    void _accept();

private:
    QTextEdit *_textEdit;
    QDialogButtonBox *_buttonBox;
};

} // namespace TES
