#include "app/Core.h"

#include "app/CoreLifecycleListener.h"
#include "events/EventBus.h"
#include "services/GlobalState.h"
#include "services/Log.h"

#include <QDir>
#include <QStandardPaths>

#include <cstdio>

namespace TES {

Core *Core::_instance = nullptr;

Core::Core()
{
    _instance = this;
}

Core::~Core()
{
    _instance = nullptr;
}

bool Core::initialize(CommandLineParser::ArgumentMap const &args)
{
    // The bus starts off: nothing raised before it is switched on below reaches anybody.
    new EventBus();
    new GlobalState();
    // The Log comes last of the services, since its constructor reads the user's log level.
    new Log("tessera.log", true);

    _args = args;
    _createApplicationDirectory();

    // After the plug-in is loaded: the user file lies in the plug-in's data directory.
    GlobalState::i().loadUserState();
    GlobalState::i().setString(GlobalPropertyType::Session, 9, "."); // LAST_PROJECT_DIR

    EventBus::i().setEventsEnabled(true);
    Log::i().writeMessage("Initialization complete.", "Core", LogSeverity::Info, LogLevel::User);
    EventBus::i().raiseEventNow(
        QSharedPointer<Event>::create(EVT_GLOBALSTATE_REQUEST_CLEAN, EVM_GLOBALSTATE));

    if (_listener)
        _listener->coreInitialized();
    return true;
}

void Core::destroy()
{
    if (_listener)
        _listener->coreDestroying();
    if (GlobalState::ip())
        GlobalState::ip()->saveUserState();

    if (Log::ip())
        Log::ip()->writeMessage("Destroying Tessera Systems", "Core", LogSeverity::Info,
                                LogLevel::Debug);
    if (EventBus::ip())
        EventBus::ip()->setEventsEnabled(false);

    // The others log as they go: the Log dies last.
    EventBus::destroy();
    GlobalState::destroy();
    Log::destroy();
}

CoreLifecycleListener *Core::getListener() const
{
    return _listener;
}

void Core::setListener(CoreLifecycleListener *listener)
{
    _listener = listener;
}

CommandLineParser::ArgumentMap Core::commandLineArgs() const
{
    return _args;
}

QString Core::pluginDataDirectory()
{
    return QDir(_applicationDirectory()).canonicalPath();
}

QString Core::_applicationDirectory()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QDir::separator() + ".tes";
}

void Core::_createApplicationDirectory()
{
    QString const base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QDir const directory(base);
    if (directory.exists(".tes"))
        return;
    directory.mkpath(".tes"); // a failure is ignored: the run goes on without per-user files
    QString const shown = base + QDir::separator();
    std::printf("Creating TES directory at %s.tes\n", shown.toLocal8Bit().constData());
    std::fflush(stdout);
}

} // namespace TES
