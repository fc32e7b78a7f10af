// SPDX-License-Identifier: MIT
#include "services/Log.h"

#include "events/EventBus.h"
#include "services/GlobalState.h"
#include "services/LogStateListener.h"
#include "services/LogThreadMessageEvent.h"

#include <QCoreApplication>
#include <QTime>
#include <QTimer>

namespace TES {

template<>
Log *Singleton<Log>::_instance = nullptr;

Log::Log(QString const &fileName, bool useBuffering) : _useBuffering(useBuffering)
{
    _instance = this;
    _file.setFileName(fileName);
    _file.open(QIODevice::WriteOnly | QIODevice::Text);

    // The user's LOG_LEVEL preference (User value 0). It is read once, here: the user file is
    // loaded later in the start-up, and only a change of the value moves the level after that.
    _level = GlobalState::ip() ? static_cast<LogLevel>(
                 GlobalState::ip()->getInt(GlobalPropertyType::User, UserLogLevel))
                               : LogLevel::User;

    writeMessage("Initializing Log System", "Log", LogSeverity::Info, LogLevel::Debug);
    writeMessage("Opening log file: " + fileName, "Log", LogSeverity::Info, LogLevel::Debug);
    if (EventBus::ip())
        EventBus::ip()->addHandler(&LogStateListener::instance());
}

Log::~Log()
{
    if (EventBus::ip())
        EventBus::ip()->removeHandler(&LogStateListener::instance());
    writeMessage("Closing log file: " + _file.fileName(), "Log", LogSeverity::Info,
                 LogLevel::Debug);
    _instance = nullptr;
    _file.close();
}

QString Log::SeverityWord(LogSeverity severity)
{
    switch (severity) {
    case LogSeverity::Info:
        return QStringLiteral("Info");
    case LogSeverity::Warning:
        return QStringLiteral("Warning");
    case LogSeverity::Error:
        return QStringLiteral("Error");
    }
    return QString();
}

void Log::writeMessage(QString const &message, QString const &source, LogSeverity severity,
                       LogLevel level)
{
    if (static_cast<int>(level) > static_cast<int>(_level))
        return;

    LogMessage record;
    record.message = message;
    record.source = source;
    record.timestamp = QTime::currentTime().toString("(hh:mm:ss)");
    record.severity = severity;
    record.level = level;

    if (_useBuffering)
        _buffer.append(record);
    else if (_listener)
        _listener->logMessageWritten(record);

    QString const line
        = QString::asprintf("%s[%s]<%s> : %s\n", record.timestamp.toLocal8Bit().constData(),
                            source.toLocal8Bit().constData(),
                            SeverityWord(severity).toLocal8Bit().constData(),
                            message.toLocal8Bit().constData())
              .trimmed();
    _file.write(line.toUtf8());
    _file.write("\n");

    if (!_flushScheduled) {
        QTimer::singleShot(5000, this, SLOT(_flushLogFile()));
        _flushScheduled = true;
    }
}

void Log::WriteThreadMessage(QString const &message, QString const &source, LogSeverity severity,
                             LogLevel level)
{
    if (!_instance)
        return;
    QCoreApplication::postEvent(_instance,
                                new LogThreadMessageEvent(message, source, severity, level), 0);
}

void Log::setListener(ILogListener *listener)
{
    _listener = listener;
}

void Log::flushBuffer()
{
    if (!_listener)
        return;
    for (LogMessage const &record : qAsConst(_buffer))
        _listener->logMessageWritten(record);
    _buffer.clear();
}

void Log::setUseBuffering(bool useBuffering)
{
    _useBuffering = useBuffering;
}

LogLevel Log::getLevel() const
{
    return _level;
}

void Log::setLevel(LogLevel level)
{
    _level = level;
    writeMessage(QString("Setting Log Level to : %1").arg(static_cast<int>(level)), "Log",
                 LogSeverity::Info, LogLevel::Debug);
}

bool Log::event(QEvent *event)
{
    if (event->type() == LogThreadMessageEvent::EventType) {
        auto *line = static_cast<LogThreadMessageEvent *>(event);
        writeMessage(line->message, line->source, line->severity, line->level);
        return true;
    }
    return QObject::event(event);
}

void Log::_flushLogFile()
{
    if (_file.isOpen())
        _file.flush();
    _flushScheduled = false;
}

} // namespace TES
