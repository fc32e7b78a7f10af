// SPDX-License-Identifier: MIT
#include "windows/ConsoleWindow.h"

#include "services/HostConstants.h"
#include "services/Log.h"

#include <QAction>
#include <QScrollBar>
#include <QTextEdit>
#include <QToolBar>
#include <QVBoxLayout>

namespace TES {

ConsoleWindow *ConsoleWindow::_instance = nullptr;

ConsoleWindow::ConsoleWindow()
{
    _instance = this;
    resize(400, 300);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    _toolBar = new QToolBar(this);
    layout->setMenuBar(_toolBar);

    auto *clear = new QAction(this);
    clear->setToolTip("Clear");
    clear->setIcon(QIcon(HostConstants::IconDelete));
    _toolBar->addAction(clear);
    connect(clear, &QAction::triggered, this, &ConsoleWindow::_clear);

    _textEdit = new QTextEdit(this);
    _textEdit->setReadOnly(true);
    layout->addWidget(_textEdit);

    // In this order: the backlog arrives first and in order, and only then do new messages
    // bypass the buffer.
    if (Log::ip()) {
        Log::ip()->setListener(this);
        Log::ip()->flushBuffer();
        Log::ip()->setUseBuffering(false);
    }
}

ConsoleWindow::~ConsoleWindow()
{
    _instance = nullptr;
    if (Log::ip())
        Log::ip()->setListener(nullptr);
}

ConsoleWindow &ConsoleWindow::i()
{
    return *_instance;
}

ConsoleWindow *ConsoleWindow::ip()
{
    return _instance;
}

void ConsoleWindow::writeLine(QString const &text)
{
    QScrollBar *bar = _textEdit->verticalScrollBar();
    int const value = bar->value();
    int const maximum = bar->maximum();

    _textEdit->moveCursor(QTextCursor::End, QTextCursor::MoveAnchor);
    _textEdit->append(text.trimmed());

    if (value >= maximum - 4)
        _textEdit->ensureCursorVisible();
    else
        bar->setValue(value);
}

void ConsoleWindow::logMessageWritten(LogMessage const &message)
{
    QString line = message.timestamp;
    // A plain message for the user reads as the time and the text; all else names its source
    // and severity.
    if (message.level == LogLevel::User && message.severity == LogSeverity::Info)
        line += " : " + message.message;
    else
        line += "[" + message.source + "]<" + Log::SeverityWord(message.severity)
                + "> : " + message.message;
    writeLine(line);
}

void ConsoleWindow::_clear()
{
    _textEdit->clear();
}

} // namespace TES
