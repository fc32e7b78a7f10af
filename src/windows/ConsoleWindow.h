// SPDX-License-Identifier: MIT
#pragma once

#include "services/ILogListener.h"
#include "tessera_export.h"

#include <QWidget>

class QTextEdit;
class QToolBar;

namespace TES {

// The content of the "Console" dock: every message that the Log lets through, one plain line
// each, with a tool bar to clear them. It is the Log's listener from construction to
// destruction; on arrival it takes the Log's backlog and switches its buffering off, so that
// later messages come straight here. Keeps no list of its own: the text is the record.
//
// Created by TesseraWindow, owned by its dock.
class TES_EXPORT ConsoleWindow : public QWidget, public ILogListener
{
    Q_OBJECT

public:
    ConsoleWindow();
    ~ConsoleWindow() override;

    static ConsoleWindow &i();
    static ConsoleWindow *ip();

    // Appends one line, white space trimmed. The view follows new lines only when it was
    // already at the bottom; a user who has scrolled up keeps their place.
    void writeLine(QString const &text);
    void logMessageWritten(LogMessage const &message) override;

    static ConsoleWindow *_instance;

private slots:
    void _clear();

private:
    QToolBar *_toolBar = nullptr;
    QTextEdit *_textEdit = nullptr;
};

} // namespace TES
