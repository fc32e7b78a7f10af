// SPDX-License-Identifier: MIT
#include "services/Runnable.h"

#include <QTimer>

namespace TES {

Runnable::Runnable(QObject *parent) : QObject(parent) {}

Runnable::~Runnable() = default;

void Runnable::schedule()
{
    QTimer::singleShot(0, this, SLOT(_exec()));
}

} // namespace TES
