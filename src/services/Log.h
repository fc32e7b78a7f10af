// SPDX-License-Identifier: MIT
#pragma once

#include "services/ILogListener.h"
#include "services/LogMessage.h"
#include "services/Singleton.h"
#include "tessera_export.h"

#include <QFile>
#include <QObject>
#include <QVector>

namespace TES {

// The application's message sink: appends timestamped lines to a text file and passes each
// message to one optional listener (the console). Until a listener asks for them, messages
// are buffered. Main thread only; other threads use WriteThreadMessage, which posts the
// line to the main thread.
//
// Core creates the Log last of the services and destroys it last; code that may run after
// that tests Log::ip() first.
class TES_EXPORT Log : public QObject, public Singleton<Log>
{
    Q_OBJECT

public:
    Log(QString const &fileName, bool useBuffering);
    ~Log() override;

    void writeMessage(QString const &message, QString const &source, LogSeverity severity,
                      LogLevel level);
    // Safe from any thread: the line is written on the main thread when its event loop next
    // runs, in posting order.
    static void WriteThreadMessage(QString const &message, QString const &source,
                                   LogSeverity severity, LogLevel level);

    void setListener(ILogListener *listener);
    // Hands the buffered messages, oldest first, to the listener; without one, keeps them.
    void flushBuffer();
    void setUseBuffering(bool useBuffering);
    LogLevel getLevel() const;
    void setLevel(LogLevel level);
    // "Info", "Warning" or "Error"; empty for any other value.
    static QString SeverityWord(LogSeverity severity);

    bool event(QEvent *event) override;

private slots:
    void _flushLogFile();

private:
    QFile _file;
    bool _useBuffering;
    LogLevel _level = LogLevel::All;
    QVector<LogMessage> _buffer;
    ILogListener *_listener = nullptr;
    bool _flushScheduled = false;
};

template<>
TES_EXPORT Log *Singleton<Log>::_instance;

} // namespace TES
