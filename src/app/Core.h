#pragma once

#include "app/CommandLineParser.h"
#include "tessera_export.h"

#include <QString>

namespace TES {

class CoreLifecycleListener;

// The spine of the application: creates the services in a fixed order, picks and loads the
// plug-in, shows the main window, and tears everything down again in a fixed order. Core
// keeps almost no state of its own; it is the place where order is decided.
//
// main() creates the one Core on the heap and never deletes it.
class TES_EXPORT Core
{
public:
    Core();
    virtual ~Core();

    // The start sequence; false means the start was refused and the event loop must not run.
    bool initialize(CommandLineParser::ArgumentMap const &args);
    // The stop sequence; also called after a refused start.
    void destroy();

    CoreLifecycleListener *getListener() const;
    void setListener(CoreLifecycleListener *listener);

    // A copy of the parsed "-key=value" options, for the plug-in.
    CommandLineParser::ArgumentMap commandLineArgs() const;

    // The per-user data directory: ".tes" below the generic configuration location. Empty
    // when it does not exist.
    static QString pluginDataDirectory();

    static Core *_instance;

private:
    static void _createApplicationDirectory();
    static QString _applicationDirectory();

    CommandLineParser::ArgumentMap _args;
    CoreLifecycleListener *_listener = nullptr;
};

} // namespace TES
