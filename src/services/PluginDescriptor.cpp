// SPDX-License-Identifier: MIT
#include "services/PluginDescriptor.h"

#include <QByteArray>

namespace TES {

QString PluginDescriptor::name() const
{
    // A plug-in that fills all 32 bytes leaves no NUL; never read past the field.
    return QString::fromLatin1(interface.name,
                               int(qstrnlen(interface.name, sizeof interface.name)));
}

} // namespace TES
