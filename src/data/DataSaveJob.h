// SPDX-License-Identifier: MIT
#pragma once

#include "services/AsynchronousJob.h"
#include "tessera_export.h"

#include <QString>

namespace TES {

class ProgressMonitor;

// Writes the project to an archive on a pool thread: gathers "version.json", the global state,
// the plug-in's files and the scene into a DataState, then writes it as a zip. DataManager
// makes it for a save and hands it to a WaitDialog, whose queue owns it.
//
// Two monitors: the one the dialog sets (getProgressMonitor) moves the dialog's bar and text;
// the data monitor, aimed at DataManager, is the one SceneManager and the plug-in are given,
// and its reports are dropped. The job's outcome stays here: DataManager does not look at it.
class TES_EXPORT DataSaveJob : public AsynchronousJob
{
public:
    // The data monitor is borrowed and must outlive the job.
    DataSaveJob(QString const &path, ProgressMonitor *dataMonitor);
    ~DataSaveJob() override;

    void run() override;

private:
    QString _path;
    bool _success = false;
    ProgressMonitor *_dataMonitor;
};

} // namespace TES
