// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QObject>
#include <QString>

namespace TES {

// Work that runs on a QThread of its own, started by ThreadManager::runJob, and reports back
// through queued signals to a ThreadListener on the main thread. The manager moves the job
// to its thread and deletes it when the thread finishes; the QThread itself is left to the
// job's author (connect its finished() to its deleteLater() to have it go too).
//
// Nothing in the host uses it; it is there for plug-ins.
class TES_EXPORT ThreadJob : public QObject
{
    Q_OBJECT

public:
    explicit ThreadJob(QObject *parent = nullptr);
    ~ThreadJob() override;

signals:
    void progressTextUpdated(const QString &text);
    void progressValueUpdated(int val);
    // Not connected by the manager; a job may emit it for listeners of its own. The listener's
    // threadFinished() follows the thread, not this signal.
    void threadFinished();

private slots:
    // The work, called on the job's thread when it starts. The thread's event loop runs
    // until somebody stops it: the job ends it, typically with thread()->quit() as its last
    // step. Until then the thread does not finish, and neither the job nor the listener hears
    // of an end.
    virtual void run() = 0;
};

} // namespace TES
