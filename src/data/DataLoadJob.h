// SPDX-License-Identifier: MIT
#pragma once

#include "services/AsynchronousJob.h"
#include "tessera_export.h"

#include <QString>

namespace TES {

class ProgressMonitor;

// Reads a project archive on a pool thread and loads it into the global state, the plug-in
// and the scene, in that order. DataManager makes it for an open, with the EventBus off, and
// hands it to a WaitDialog, whose queue owns it.
//
// An archive that cannot be read ends the job without jobDone(): its queue, and the dialog
// with it, then wait for good. DataManager has checked the archive's directory just before,
// so that does not normally happen. The monitors are split as in DataSaveJob.
class TES_EXPORT DataLoadJob : public AsynchronousJob
{
public:
    // The data monitor is borrowed and must outlive the job.
    DataLoadJob(QString const &path, ProgressMonitor *dataMonitor);
    ~DataLoadJob() override;

    void run() override;

private:
    QString _path;
    bool _success = false;
    ProgressMonitor *_dataMonitor;
};

} // namespace TES
