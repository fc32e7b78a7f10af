// SPDX-License-Identifier: MIT
#pragma once

#include "services/Singleton.h"
#include "tessera_export.h"

#include <QObject>

namespace TES {

class ThreadJob;
class ThreadListener;

// Starts ThreadJobs, each on a new QThread of its own. A singleton without state; Core does
// not create it: a plug-in that wants it constructs it and destroys it again.
class TES_EXPORT ThreadManager : public QObject, public Singleton<ThreadManager>
{
    Q_OBJECT

public:
    ThreadManager();
    ~ThreadManager() override;

    // Moves the job to a new, parentless QThread and starts it; the job's run() is called
    // there. The job is deleted when the thread finishes; the thread is not stopped or
    // deleted by the manager. With a listener, the job's progress signals and the thread's
    // end reach it through queued connections. False, and no thread, for a null job.
    bool runJob(ThreadJob *job, ThreadListener *listener);
};

template<>
TES_EXPORT ThreadManager *Singleton<ThreadManager>::_instance;

} // namespace TES
