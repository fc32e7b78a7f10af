// SPDX-License-Identifier: MIT
#include "app/Core.h"

#include "app/CoreLifecycleListener.h"
#include "data/DataManager.h"
#include "designer/SelectionOverlay.h"
#include "events/EventBus.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "services/GlobalState.h"
#include "services/Log.h"
#include "services/PluginManager.h"
#include "tools/ToolManager.h"
#include "widgets/PluginDialog.h"
#include "windows/TesseraWindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QStandardPaths>

#include <cstdio>

namespace TES {

Core *Core::_instance = nullptr;

namespace {

bool projectDirty()
{
    return GlobalState::ip() && GlobalState::ip()->getDirty();
}

QString currentFile()
{
    return DataManager::ip() ? DataManager::ip()->currentFile() : QString();
}

DataManager *dataManager()
{
    return DataManager::ip();
}

// The session value LAST_PROJECT_DIR, which initialize() sets to ".".
QString lastProjectDir()
{
    return GlobalState::ip()
               ? GlobalState::ip()->getString(GlobalPropertyType::Session, SessionLastProjectDir)
               : QString();
}

// The project commands' questions: a box on the stack over the main window with custom "Yes"
// and "No" buttons; the answer is the role of the button clicked. The default button names a
// standard button that such a box does not hold, so no default results; that stays.
int ask(QString const &title, QString const &text, QString const &informativeText,
        QMessageBox::Icon icon, QMessageBox::StandardButton defaultButton,
        QSize const &size = QSize())
{
    QMessageBox box(TesseraWindow::ip());
    box.setWindowTitle(title);
    box.setText(text);
    if (!informativeText.isEmpty())
        box.setInformativeText(informativeText);
    box.setIcon(icon);
    box.addButton("Yes", QMessageBox::YesRole);
    box.addButton("No", QMessageBox::NoRole);
    box.setDefaultButton(defaultButton);
    if (size.isValid())
        box.resize(size);
    box.exec();
    return box.buttonRole(box.clickedButton());
}

} // namespace

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
    new PluginManager();
    new DataManager();
    new SceneManager();
    new SelectionManager();
    new ToolManager();
    // The Log comes last of the services, since its constructor reads the user's log level.
    new Log("tessera.log", true);

    _args = args;
    _createApplicationDirectory();

    _window = new TesseraWindow(nullptr);
    // Once the design surface stands; it lives and dies with the window.
    new SelectionOverlay(_window);

    if (!_choosePlugin())
        return false;

    // After the plug-in is loaded: the user file lies in the plug-in's data directory.
    GlobalState::i().loadUserState();

    Log::i().writeMessage("Creating main window.", "Core", LogSeverity::Info, LogLevel::Debug);
    _window->show();
    _window->loadState();

    GlobalState::i().setString(GlobalPropertyType::Session, SessionLastProjectDir, ".");

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

    if (_window)
        _window->saveState();
    if (Log::ip())
        Log::ip()->writeMessage("Destroying Tessera Systems", "Core", LogSeverity::Info,
                                LogLevel::Debug);
    if (EventBus::ip())
        EventBus::ip()->setEventsEnabled(false);
    // Hidden, not deleted: the window lives until the process ends.
    if (_window)
        _window->setVisible(false);
    if (PluginManager::ip())
        PluginManager::ip()->unloadPlugin();

    // The others log as they go: the Log dies last. The scene, selection and tool managers live
    // on with the process.
    EventBus::destroy();
    GlobalState::destroy();
    DataManager::destroy();
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
    QString const name = _pluginName();
    if (name.isEmpty())
        return QDir(_applicationDirectory()).canonicalPath();
    return QDir(_applicationDirectory() + QDir::separator() + name).canonicalPath();
}

void Core::reset()
{
    EventBus *bus = EventBus::ip();
    if (!bus)
        return;
    bus->setEventsEnabled(false);
    if (GlobalState::ip())
        GlobalState::ip()->reset();
    if (SceneManager::ip())
        SceneManager::ip()->reset();
    bus->reset();
    bus->setEventsEnabled(true);
    for (unsigned long long type :
         {EVT_PROJECT_PREBLANK, EVT_PROJECT_REQUEST_BLANK, EVT_PROJECT_POSTBLANK})
        bus->raiseEventNow(QSharedPointer<Event>::create(type, EVM_PROJECT));
}

bool Core::newDesign()
{
    _saveIfAsked();

    // Asked whatever the save did, also when nothing had to be saved.
    if (ask("Create New Design", "Create New Design?", QString(), QMessageBox::Warning,
            QMessageBox::No)
        == QMessageBox::NoRole)
        return true;

    reset();
    if (dataManager())
        dataManager()->newDesign();
    EventBus::RaiseNow(QSharedPointer<Event>::create(EVT_PROJECT_NEW, EVM_PROJECT));
    return true;
}

bool Core::open()
{
    if (promptForSave() == QMessageBox::YesRole) {
        // Answering Yes saves and ends the command: the user picks Open again afterwards.
        if (dataManager() && dataManager()->save() != DataResultFailed)
            return true;
        QString const path = promptForSaveAs();
        if (path.isEmpty())
            return false;
        return dataManager() && dataManager()->saveAs(path) != DataResultFailed;
    }

    QString const path = QFileDialog::getOpenFileName(
        TesseraWindow::ip(), "Open Project", lastProjectDir(), "Tessera Project Files (*.zip)");
    if (path.isEmpty())
        return false;

    if (Log::ip())
        Log::ip()->writeMessage("Opening project: " + path, "Tessera", LogSeverity::Info,
                                LogLevel::User);
    // The design in memory goes before the file is known to be good.
    reset();
    unsigned int const result = dataManager() ? dataManager()->open(path) : DataResultFailed;
    if (result == DataResultInvalid)
        QMessageBox::critical(TesseraWindow::ip(), "Invalid Project",
                              "The selected file is not a valid Tessera project archive.",
                              QMessageBox::Ok);
    // Every answer of open() is non-zero: true also after the error box.
    return result != DataResultFailed;
}

bool Core::save(bool prompt)
{
    if (!currentFile().isEmpty()) {
        if (prompt && promptForSave() != QMessageBox::YesRole)
            return false;
        if (dataManager() && dataManager()->save() != DataResultFailed)
            return true;
    }
    return saveAs();
}

bool Core::saveAs()
{
    QString const path = promptForSaveAs();
    if (path.isEmpty())
        return false;
    return dataManager() && dataManager()->saveAs(path) != DataResultFailed;
}

bool Core::close()
{
    _saveIfAsked();

    // A project saved above stays saved when the user stays.
    if (promptForExit() != QMessageBox::YesRole)
        return false;

    if (Log::ip())
        Log::ip()->writeMessage("Shutting down...", "Tessera", LogSeverity::Info, LogLevel::User);
    QCoreApplication::exit(0);
    return true;
}

int Core::promptForSave()
{
    if (!projectDirty())
        return QMessageBox::NoRole;

    return ask("Save Current Project?", "The current project has unsaved changes.", "Save now?",
               QMessageBox::Question, QMessageBox::Yes);
}

QString Core::promptForSaveAs()
{
    QString proposal = lastProjectDir();
    if (!proposal.endsWith(QDir::separator()))
        proposal += QDir::separator();
    // The current file is a full path, so the proposal then has two directories in it; the
    // file dialog copes.
    QString const file = currentFile();
    proposal += file.isEmpty() ? QString("MyProject.zip") : file;
    return QFileDialog::getSaveFileName(TesseraWindow::ip(), "Save Project As", proposal,
                                        "Tessera Project Files (*.zip)");
}

int Core::promptForExit()
{
    return ask("Confirm Exit", "Exit Tessera?", QString(), QMessageBox::Question, QMessageBox::Yes,
               QSize(300, 200));
}

void Core::_saveIfAsked()
{
    if (promptForSave() != QMessageBox::YesRole || !dataManager())
        return;
    if (dataManager()->save() != DataResultFailed)
        return;
    // No current file, or the old one could not be deleted. A failed save does not stop the
    // caller.
    QString const path = promptForSaveAs();
    if (!path.isEmpty())
        dataManager()->saveAs(path);
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

bool Core::_choosePlugin()
{
    std::vector<PluginDescriptor> const plugins = PluginManager::i().availablePlugins();
    if (plugins.empty())
        return true;

    std::size_t chosen = 0;
    if (plugins.size() > 1) {
        PluginDialog dialog(plugins);
        // Refusing the choice ends the start: nothing after this runs.
        if (dialog.exec() != QDialog::Accepted)
            return false;
        // Ok with no row selected leaves the index out of range: no plug-in then.
        chosen = std::size_t(dialog.selectedIndex());
    }
    // A plug-in that fails to load is skipped silently; the run goes on without one.
    if (chosen < plugins.size() && PluginManager::i().loadPlugin(plugins[chosen]))
        _createPluginDirectory();
    return true;
}

QString Core::_pluginName()
{
    PluginManager const *manager = PluginManager::ip();
    return manager && manager->pluginIsLoaded() ? manager->currentPlugin().name() : QString();
}

void Core::_createPluginDirectory()
{
    QString const name = _pluginName();
    if (name.isEmpty())
        return;
    QString const path = _applicationDirectory() + QDir::separator() + name;
    if (QDir(path).exists())
        return;
    QDir().mkpath(path); // a failure is ignored, as for the application directory
    std::printf("Creating plugin directory at %s\n", path.toLocal8Bit().constData());
    std::fflush(stdout);
}

} // namespace TES
