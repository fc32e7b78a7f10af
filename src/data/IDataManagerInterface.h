// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

namespace TES {

class DataState;
class ProgressMonitor;

// The plug-in's part in saving and loading a project. A plug-in implements it and installs it
// with DataManager::setInterface; DataManager does not own it.
//
// Every operation but checkProject runs on the pool thread of a save or load job while the
// main thread waits behind a modal dialog: touch no widget and not the EventBus, log through
// Log::WriteThreadMessage. The monitor handed in reaches no dialog: its reports are dropped,
// so the step counts below only size the work.
class TES_EXPORT IDataManagerInterface
{
public:
    // The steps that the plug-in adds to a save.
    virtual unsigned int saveStepCount() = 0;
    // The steps that the plug-in adds to a load.
    virtual unsigned int loadStepCount() = 0;
    // Sees an archive that the host has accepted as a project, on the main thread, before
    // anything is loaded; the state holds the entry names only, without data. Answering 3
    // (DataResultDone) ends the open there: nothing is loaded and the open reports 3. Any other
    // answer lets the load go on. A plug-in that wants to read "version.json" reads the archive
    // itself with DataState::read.
    virtual int checkProject(DataState &state) = 0;
    // Before the scene is saved, after the global state: the place to add files of its own.
    virtual void preSave(DataState &state, ProgressMonitor &monitor) = 0;
    // After the scene is saved, before the archive is written.
    virtual void postSave(DataState &state, ProgressMonitor &monitor) = 0;
    // Before the scene is loaded, after the global state; 0 is failure. The host goes on with
    // the load whatever the answer.
    virtual int preLoad(DataState &state, ProgressMonitor &monitor) = 0;
    // After the scene is loaded; 0 is failure. The host goes on whatever the answer.
    virtual int postLoad(DataState &state, ProgressMonitor &monitor) = 0;

protected:
    ~IDataManagerInterface() = default;
};

} // namespace TES
