// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLineParser.h"
#include "tessera_export.h"

#include <QString>

namespace TES {

class CoreLifecycleListener;
class TesseraWindow;

// The spine of the application: creates the services in a fixed order, picks and loads the
// plug-in, shows the main window, and tears everything down again in a fixed order. It also
// runs the project commands of the main window's menus with their dialogs. Core keeps almost
// no state of its own; it is the place where order is decided.
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

    // The per-user data directory: with a plug-in loaded, the directory named after it in
    // ".tes" below the generic configuration location; without one, ".tes" itself. Empty
    // when it does not exist.
    static QString pluginDataDirectory();

    // Blanks the system without asking.
    void reset();
    // Offers to save a dirty project, then asks "Create New Design?". Always true.
    bool newDesign();
    // A dirty project is offered for saving first; answered Yes, it is saved and open() ends
    // there, true when the save went through. Otherwise asks for an archive ("Open Project"),
    // resets the system and loads it; a file that isn't a project shows "Invalid Project".
    // False only when no file was chosen.
    bool open();
    // Saves to the current file without a dialog; with `prompt`, only when the user answers Yes
    // to the save question, which a clean project never shows. Without a current file, or when
    // the save fails, as saveAs(). True when a save went through.
    bool save(bool prompt);
    // Asks for the archive to write ("Save Project As"); true when a save went through.
    bool saveAs();
    // Offers to save a dirty project, then asks "Exit Tessera?"; true when the application
    // will exit, and then the event loop has been told to end.
    bool close();

    // QMessageBox::YesRole or NoRole, as int; NoRole at once for a clean project.
    int promptForSave();
    // The chosen path, empty when cancelled.
    QString promptForSaveAs();
    // QMessageBox::YesRole or NoRole, as int.
    int promptForExit();

    static Core *_instance;

private:
    static void _createApplicationDirectory();
    static QString _applicationDirectory();
    // The save that newDesign and close offer: a Yes saves to the current file, or to one the
    // user picks when there is none.
    void _saveIfAsked();
    // Discovers the plug-ins, asks the user to choose among several, and loads the one
    // taken; false when the user refused the choice.
    bool _choosePlugin();
    static QString _pluginName();
    static void _createPluginDirectory();

    TesseraWindow *_window = nullptr;
    CommandLineParser::ArgumentMap _args;
    CoreLifecycleListener *_listener = nullptr;
};

} // namespace TES
