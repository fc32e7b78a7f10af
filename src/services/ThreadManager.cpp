// SPDX-License-Identifier: MIT
#include "services/ThreadManager.h"

#include "services/Log.h"
#include "services/ThreadJob.h"
#include "services/ThreadListener.h"

#include <QThread>

namespace TES {

template<>
ThreadManager *Singleton<ThreadManager>::_instance = nullptr;

ThreadManager::ThreadManager()
{
    _instance = this;
    if (Log::ip())
        Log::ip()->writeMessage("Initializing Thread Manager", "Data", LogSeverity::Info,
                                LogLevel::Debug);
}

ThreadManager::~ThreadManager()
{
    if (Log::ip())
        Log::ip()->writeMessage("Destroying Thread Manager", "Data", LogSeverity::Info,
                                LogLevel::Debug);
    _instance = nullptr;
}

bool ThreadManager::runJob(ThreadJob *job, ThreadListener *listener)
{
    if (!job)
        return false;

    auto *thread = new QThread();
    job->moveToThread(thread);
    connect(thread, SIGNAL(finished()), job, SLOT(deleteLater()));
    // run() and the listener's slots are not public: connected by name.
    connect(thread, SIGNAL(started()), job, SLOT(run()));
    if (listener) {
        connect(thread, SIGNAL(finished()), listener, SLOT(threadFinished()));
        connect(job, SIGNAL(progressTextUpdated(const QString &)), listener,
                SLOT(threadProgressText(const QString &)));
        connect(job, SIGNAL(progressValueUpdated(int)), listener, SLOT(threadProgressValue(int)));
    }
    thread->start(QThread::InheritPriority);
    return true;
}

} // namespace TES
