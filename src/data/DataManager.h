// SPDX-License-Identifier: MIT
#pragma once

#include "services/Singleton.h"
#include "tessera_export.h"

#include <QObject>
#include <QString>

namespace TES {

class IDataManagerInterface;

// The results of DataManager::open, save and saveAs.
enum DataResult : unsigned int {
    // Nothing was saved: no current file, or the old file could not be deleted.
    DataResultFailed = 0,
    // The file does not exist.
    DataResultNotFound = 1,
    // The file is not a project archive.
    DataResultInvalid = 2,
    // The operation ran.
    DataResultDone = 3,
};

// Turns the project into an archive and back, and keeps the name of the current file. A save
// or a load runs as a job on a pool thread behind a modal WaitDialog, which shuts out the
// user meanwhile; the job fills or reads a DataState through GlobalState, the plug-in's
// IDataManagerInterface and SceneManager. A load runs with the EventBus off, so that nothing
// it does is announced, and is followed by EVT_PROJECT_CURRENTFILECHANGED, EVT_PROJECT_LOADED
// and EVT_GLOBALSTATE_REQUEST_CLEAN; every save and load ends with a clean project.
//
// Core creates the one instance at start-up and destroys it at the end; it handles no bus
// events. It shows no dialog of its own for a failure: the result and the log tell, and Core
// decides what the user sees. Log lines go through Log::WriteThreadMessage, so they land when
// the main event loop next runs.
class TES_EXPORT DataManager : public QObject, public Singleton<DataManager>
{
    Q_OBJECT

public:
    DataManager();
    ~DataManager() override;

    IDataManagerInterface *getInterface() const;
    // Plain store, not owned; null removes the plug-in from saves and loads. Always true.
    bool setInterface(IDataManagerInterface *interface);

    // Forgets the current file after Core::reset and announces a fresh design:
    // EVT_PROJECT_PREBLANK, EVT_PROJECT_REQUEST_BLANK, EVT_PROJECT_REQUEST_RESET,
    // EVT_PROJECT_POSTBLANK, EVT_PROJECT_CURRENTFILECHANGED, then EVT_GLOBALSTATE_REQUEST_CLEAN.
    void newDesign();
    // Forgets the current file, calls Core::reset, then raises EVT_PROJECT_CURRENTFILECHANGED
    // and EVT_GLOBALSTATE_REQUEST_CLEAN.
    void blankDesign();

    // Loads the archive at path. DataResultNotFound and DataResultInvalid leave everything as
    // it was; so does the plug-in's checkProject answering DataResultDone, which is then the
    // result. Otherwise the system is reset and loaded, the file becomes the current one and
    // the result is DataResultDone.
    unsigned int open(QString const &path);
    // DataResultFailed without a current file; otherwise saveAs(currentFile()).
    unsigned int save();
    // Deletes the file at path, then writes the project there and makes it the current file.
    // DataResultFailed when the old file cannot be deleted; otherwise DataResultDone, also
    // when the archive could not be written (the log tells).
    unsigned int saveAs(QString const &path);
    // The canonical path of the current project; empty for a new design.
    QString currentFile() const;

private:
    unsigned int _loadProject(QString const &path);
    unsigned int _saveProject(QString const &path);

    IDataManagerInterface *_interface = nullptr;
    QString _currentFile;
};

template<>
TES_EXPORT DataManager *Singleton<DataManager>::_instance;

} // namespace TES
