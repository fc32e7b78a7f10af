// SPDX-License-Identifier: MIT
#include "services/PluginManager.h"

#include "services/Log.h"
#include "services/PluginEntryPoints.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QVector>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>

namespace TES {

template<>
PluginManager *Singleton<PluginManager>::_instance = nullptr;

namespace {

// The extension of the platform's shared libraries: the one string to change for another
// platform.
constexpr char libraryExtension[] = "so";

QString detachedString(QString const &text)
{
    return QString(text.constData(), text.size());
}

// A copy that shares nothing with the original: a QImage over a plug-in's constant array, or
// its colour table, would point into a library that is closed after the scan. Only what
// draws the picture is kept; the text metadata stays behind.
QImage detachedImage(QImage const &image)
{
    QImage copy(image.size(), image.format());
    if (image.isNull() || copy.isNull())
        return QImage();
    std::size_t const lineBytes = std::size_t(std::min(copy.bytesPerLine(), image.bytesPerLine()));
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(copy.scanLine(y), image.constScanLine(y), lineBytes);
    QVector<QRgb> const table = image.colorTable();
    copy.setColorTable(QVector<QRgb>(table.cbegin(), table.cend()));
    copy.setDotsPerMeterX(image.dotsPerMeterX());
    copy.setDotsPerMeterY(image.dotsPerMeterY());
    copy.setOffset(image.offset());
    copy.setDevicePixelRatio(image.devicePixelRatio());
    return copy;
}

PluginGetInterfaceFunction getInterfaceOf(void *handle)
{
    return reinterpret_cast<PluginGetInterfaceFunction>(
        dlsym(handle, "TesseraPlugin_GetInterface"));
}

// Reads one candidate library into the descriptor; true when it is a plug-in to list. The
// library is closed again in every case.
bool inspect(QString const &path, PluginDescriptor &descriptor)
{
    void *handle = dlopen(path.toLocal8Bit().constData(), RTLD_NOW);
    if (!handle) {
        if (char const *error = dlerror())
            std::fprintf(stderr, "%s\n", error);
        return false;
    }

    bool listed = false;
    if (PluginGetInterfaceFunction getInterface = getInterfaceOf(handle)) {
        auto getInfo
            = reinterpret_cast<PluginGetInfoFunction>(dlsym(handle, "TesseraPlugin_GetInfo"));
        if (getInfo) {
            // The record dies inside this block, while the library that may own parts of it
            // is still open.
            PluginInfo const info = getInfo();
            descriptor.image = detachedImage(info.image);
            descriptor.title = detachedString(info.title);
            descriptor.description = detachedString(info.description);
        }
        if (getInterface(&descriptor.interface) == 0) {
            descriptor.path = path;
            listed = true;
        }
    }
    dlclose(handle);
    return listed;
}

} // namespace

PluginManager::PluginManager()
{
    _instance = this;
}

PluginManager::~PluginManager()
{
    _instance = nullptr;
}

std::vector<PluginDescriptor> PluginManager::availablePlugins() const
{
    std::vector<PluginDescriptor> found;

    QDir root(QCoreApplication::applicationDirPath() + "/plugins");
    if (!root.exists()) {
        root.setPath("./plugins");
        if (!root.exists())
            return found;
    }

    QStringList const filter{QStringLiteral("*.") + QLatin1String(libraryExtension)};
    QFileInfoList const directories
        = root.entryInfoList(QDir::AllDirs | QDir::NoDotAndDotDot, QDir::NoSort);
    for (QFileInfo const &directory : directories) {
        QFileInfoList const files
            = QDir(directory.absoluteFilePath()).entryInfoList(filter, QDir::Files, QDir::NoSort);
        for (QFileInfo const &file : files) {
            PluginDescriptor descriptor;
            if (inspect(file.absoluteFilePath(), descriptor))
                found.push_back(descriptor);
        }
    }
    return found;
}

bool PluginManager::loadPlugin(PluginDescriptor const &descriptor)
{
    if (!descriptor.interface.initialize || !descriptor.interface.shutdown)
        return false;

    QByteArray const path = descriptor.path.toLocal8Bit();
    void *handle = dlopen(path.constData(), RTLD_NOW);
    if (!handle)
        return false;

    // The library was closed after the scan and may now lie at another address, so the
    // function pointers from the scan cannot be trusted: ask the library again.
    PluginDescriptor loaded = descriptor;
    loaded.interface = PluginInterface();
    PluginGetInterfaceFunction getInterface = getInterfaceOf(handle);
    PluginInterface &fresh = loaded.interface;
    if (!getInterface || getInterface(&fresh) != 0 || !fresh.initialize || !fresh.shutdown
        || fresh.initialize(path.constData()) != 0) {
        dlclose(handle);
        return false;
    }

    // Written once initialize has returned, whatever the words suggest.
    if (Log::ip())
        Log::ip()->writeMessage(QString("Initializing Plugin \"%1\" v%2.%3.%4...")
                                    .arg(loaded.name())
                                    .arg(fresh.versionMajor)
                                    .arg(fresh.versionMinor)
                                    .arg(fresh.versionPatch),
                                "Plugin", LogSeverity::Info, LogLevel::User);
    loaded.handle = handle;
    _current = loaded;
    return true;
}

void PluginManager::unloadPlugin()
{
    if (!_current.handle)
        return;
    _current.interface.shutdown();
    // No dlclose: objects of the plug-in's classes may still be alive.
    _current = PluginDescriptor();
}

bool PluginManager::pluginIsLoaded() const
{
    return _current.handle != nullptr;
}

PluginDescriptor PluginManager::currentPlugin() const
{
    return _current;
}

} // namespace TES
