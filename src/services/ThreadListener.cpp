// SPDX-License-Identifier: MIT
#include "services/ThreadListener.h"

namespace TES {

ThreadListener::ThreadListener(QObject *parent) : QObject(parent) {}

ThreadListener::~ThreadListener() = default;

} // namespace TES
