// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QObject>
#include <QString>

namespace TES {

// Receives the reports of one ThreadJob on its own (normally the main) thread, through the
// queued connections that ThreadManager::runJob makes. The listener is not owned by the
// manager and must outlive the job's thread.
class TES_EXPORT ThreadListener : public QObject
{
    Q_OBJECT

public:
    explicit ThreadListener(QObject *parent = nullptr);
    ~ThreadListener() override;

protected slots:
    // The job's progressTextUpdated().
    virtual void threadProgressText(const QString &text) = 0;
    // The job's progressValueUpdated().
    virtual void threadProgressValue(int val) = 0;
    // The job's thread has finished (QThread::finished), after the job stopped its loop.
    virtual void threadFinished() = 0;
};

} // namespace TES
