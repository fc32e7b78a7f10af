// SPDX-License-Identifier: MIT
#include "data/DataSaveJob.h"

#include "data/DataManager.h"
#include "data/DataState.h"
#include "data/IDataManagerInterface.h"
#include "data/ProjectArchive_p.h"
#include "scene/SceneManager.h"
#include "services/GlobalState.h"
#include "services/ProgressMonitor.h"

namespace TES {

DataSaveJob::DataSaveJob(QString const &path, ProgressMonitor *dataMonitor)
    : _path(path), _dataMonitor(dataMonitor)
{}

DataSaveJob::~DataSaveJob() = default;

void DataSaveJob::run()
{
    DataState state;
    getProgressMonitor()->setProgressText("Gathering project data...");
    ProjectArchive::AddVersion(state);

    IDataManagerInterface *interface = DataManager::ip() ? DataManager::ip()->getInterface()
                                                         : nullptr;
    unsigned int steps = (SceneManager::ip() ? SceneManager::ip()->getSaveStepCount() : 0) + 1;
    if (interface)
        steps += interface->saveStepCount();
    // Sized on the data monitor, whose reports nobody shows.
    _dataMonitor->setMaxProgress(static_cast<int>(steps));

    if (GlobalState::ip())
        GlobalState::ip()->save(state);
    if (interface)
        interface->preSave(state, *_dataMonitor);
    if (SceneManager::ip())
        SceneManager::ip()->save(state, *_dataMonitor);
    if (interface)
        interface->postSave(state, *_dataMonitor);

    getProgressMonitor()->setProgressText("Writing project archive...");
    _success = state.writeZip(_path);
    getProgressMonitor()->incrementValue();
    jobDone();
}

} // namespace TES
