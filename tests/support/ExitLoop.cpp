// SPDX-License-Identifier: MIT
#include "support/ExitLoop.h"

#include <QCoreApplication>
#include <QTimer>

namespace TES::Test {

int ExitLoop::Run(std::function<void()> start)
{
    QTimer::singleShot(0, qApp, std::move(start));
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(-1); });
    guard.start(60000);
    return QCoreApplication::exec();
}

} // namespace TES::Test
