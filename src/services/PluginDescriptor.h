// SPDX-License-Identifier: MIT
#pragma once

#include "services/PluginInterface.h"
#include "tessera_export.h"

#include <QImage>
#include <QString>

namespace TES {

// One plug-in found on disk, copied by value. Discovery fills everything but `handle`; the
// picture and texts are the host's own deep copies, so a descriptor stays valid after its
// library is closed. PluginManager keeps the loaded plug-in's descriptor with `handle` set.
struct TES_EXPORT PluginDescriptor
{
    QImage image;
    QString title;
    QString description;
    PluginInterface interface;
    // Absolute path of the library file.
    QString path;
    // What dlopen answered; null unless this is the loaded plug-in.
    void *handle = nullptr;

    // The interface's name, read up to its NUL or its 32 bytes, whichever comes first.
    QString name() const;
};

} // namespace TES
