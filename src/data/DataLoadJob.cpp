// SPDX-License-Identifier: MIT
#include "data/DataLoadJob.h"

#include "data/DataManager.h"
#include "data/DataState.h"
#include "data/IDataManagerInterface.h"
#include "scene/SceneManager.h"
#include "services/GlobalState.h"
#include "services/ProgressMonitor.h"

namespace TES {

DataLoadJob::DataLoadJob(QString const &path, ProgressMonitor *dataMonitor)
    : _path(path), _dataMonitor(dataMonitor)
{}

DataLoadJob::~DataLoadJob() = default;

void DataLoadJob::run()
{
    getProgressMonitor()->setProgressText("Reading project archive...");
    DataState state;
    _success = state.read(_path);
    // No jobDone() on this path: the queue keeps waiting and the dialog stays up. DataManager
    // checked the archive's directory just before, so only a file changed meanwhile gets here.
    if (!_success)
        return;

    IDataManagerInterface *interface = DataManager::ip() ? DataManager::ip()->getInterface()
                                                         : nullptr;
    getProgressMonitor()->incrementValue();
    getProgressMonitor()->setMaxProgress(
        3 + static_cast<int>(interface ? interface->loadStepCount() : 0));
    getProgressMonitor()->setProgressText("Loading project data...");

    if (GlobalState::ip())
        GlobalState::ip()->load(state);
    // The hooks' answers are kept but change nothing: the load goes on.
    if (interface)
        _success = interface->preLoad(state, *_dataMonitor) != 0;
    // Screens and objects are made here, off the main thread, without a sound: the bus is off.
    if (SceneManager::ip())
        SceneManager::ip()->load(state, *_dataMonitor);
    if (interface)
        _success = interface->postLoad(state, *_dataMonitor) != 0;
    jobDone();
}

} // namespace TES
