// SPDX-License-Identifier: MIT
#include "services/ThreadJob.h"

namespace TES {

ThreadJob::ThreadJob(QObject *parent) : QObject(parent) {}

ThreadJob::~ThreadJob() = default;

} // namespace TES
