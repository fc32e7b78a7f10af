// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QImage>
#include <QString>

namespace TES {

// What a plug-in tells about itself for the "Framework Selection" dialog, returned by value
// from TesseraPlugin_GetInfo. The host copies every part of it deeply before the library is
// closed after the scan, so the plug-in may build it from static data (QStringLiteral, a
// QImage over a constant array).
struct TES_EXPORT PluginInfo
{
    // Shown at 100 by 100 pixels, scaled to fill.
    QImage image;
    // The plug-in's line in the dialog's list.
    QString title;
    // The text beside the picture; wrapped.
    QString description;
};

} // namespace TES
