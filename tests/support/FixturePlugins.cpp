// SPDX-License-Identifier: MIT
#include "support/FixturePlugins.h"

#include <QDir>
#include <QFile>

#include <dlfcn.h>

namespace TES::Test {

namespace {

QString callsFile()
{
    return QDir::current().absoluteFilePath("fixture_calls.txt");
}

} // namespace

QString FixturePlugins::library(QString const &fixture)
{
    return QString(TES_FIXTURE_DIR "/libfixture_%1.so").arg(fixture);
}

QString FixturePlugins::install(QString const &fixture, QString const &subdirectory,
                                QString const &root)
{
    QDir directory(root);
    directory.mkpath(subdirectory.isEmpty() ? QStringLiteral(".") : subdirectory);
    if (!subdirectory.isEmpty())
        directory.cd(subdirectory);
    QString const target = directory.absoluteFilePath(QFileInfo(library(fixture)).fileName());
    QFile::remove(target);
    QFile::copy(library(fixture), target);
    return target;
}

void FixturePlugins::removeAll(QString const &root)
{
    QDir(root).removeRecursively();
}

void FixturePlugins::startRecording()
{
    QFile file(callsFile());
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    qputenv("TES_FIXTURE_CALLS", QFile::encodeName(callsFile()));
}

QStringList FixturePlugins::calls()
{
    QFile file(callsFile());
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromLocal8Bit(file.readAll()).split('\n', Qt::SkipEmptyParts);
}

bool FixturePlugins::isOpen(QString const &path)
{
    void *handle = dlopen(QFile::encodeName(path).constData(), RTLD_NOW | RTLD_NOLOAD);
    if (!handle)
        return false;
    dlclose(handle); // NOLOAD still counts a reference
    return true;
}

} // namespace TES::Test
