// SPDX-License-Identifier: MIT
#include "services/DebugPrint.h"

#include <QEvent>
#include <QMetaEnum>
#include <QTextStream>

#include <cstdio>

namespace TES {

void printQS(QString const &text)
{
    std::puts(text.toLocal8Bit().constData());
}

void printQEvent(QEvent const *event)
{
    if (!event)
        return;
    QMetaEnum const types
        = QEvent::staticMetaObject.enumerator(QEvent::staticMetaObject.indexOfEnumerator("Type"));
    QTextStream out(stdout);
    out << "QEvent " << types.valueToKey(event->type()) << Qt::endl;
}

} // namespace TES
