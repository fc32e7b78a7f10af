// SPDX-License-Identifier: MIT
#include "data/DataManager.h"

#include "app/Core.h"
#include "data/DataLoadJob.h"
#include "data/DataSaveJob.h"
#include "data/DataState.h"
#include "data/IDataManagerInterface.h"
#include "data/ProjectArchive_p.h"
#include "events/EventBus.h"
#include "services/GlobalState.h"
#include "services/Log.h"
#include "services/ProgressMonitor.h"
#include "widgets/WaitDialog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <initializer_list>

namespace TES {

template<>
DataManager *Singleton<DataManager>::_instance = nullptr;

namespace {

void logInfo(QString const &text, QString const &source = QStringLiteral("DataManager"))
{
    Log::WriteThreadMessage(text, source, LogSeverity::Info, LogLevel::User);
}

void logError(QString const &text)
{
    Log::WriteThreadMessage(text, QStringLiteral("DataManager"), LogSeverity::Error,
                            LogLevel::User);
}

void raiseAll(std::initializer_list<unsigned long long> types, unsigned long long mask)
{
    for (unsigned long long type : types)
        EventBus::RaiseNow(QSharedPointer<Event>::create(type, mask));
}

void raiseCurrentFileChanged()
{
    raiseAll({EVT_PROJECT_CURRENTFILECHANGED}, EVM_PROJECT);
}

void raiseCleanRequest()
{
    raiseAll({EVT_GLOBALSTATE_REQUEST_CLEAN}, EVM_GLOBALSTATE);
}

void resetCore()
{
    if (Core::_instance)
        Core::_instance->reset();
}

// The file's directory becomes the one the file dialogs start in.
void rememberDirectory(QFileInfo const &file)
{
    if (GlobalState::ip())
        GlobalState::ip()->setString(GlobalPropertyType::Session, SessionLastProjectDir,
                                     file.absolutePath());
}

void setClean()
{
    if (GlobalState::ip())
        GlobalState::ip()->setDirty(false);
}

} // namespace

DataManager::DataManager()
{
    _instance = this;
}

DataManager::~DataManager()
{
    _instance = nullptr;
}

IDataManagerInterface *DataManager::getInterface() const
{
    return _interface;
}

bool DataManager::setInterface(IDataManagerInterface *interface)
{
    _interface = interface;
    return true;
}

void DataManager::newDesign()
{
    logInfo("Creating new design...", QStringLiteral("Core"));
    _currentFile.clear();
    raiseAll({EVT_PROJECT_PREBLANK, EVT_PROJECT_REQUEST_BLANK, EVT_PROJECT_REQUEST_RESET,
              EVT_PROJECT_POSTBLANK, EVT_PROJECT_CURRENTFILECHANGED},
             EVM_PROJECT);
    raiseCleanRequest();
}

void DataManager::blankDesign()
{
    logInfo("Creating blank design...", QStringLiteral("Core"));
    _currentFile.clear();
    resetCore();
    raiseCurrentFileChanged();
    raiseCleanRequest();
}

unsigned int DataManager::open(QString const &path)
{
    return _loadProject(path);
}

unsigned int DataManager::save()
{
    if (_currentFile.isEmpty())
        return DataResultFailed;
    return _saveProject(_currentFile);
}

unsigned int DataManager::saveAs(QString const &path)
{
    return _saveProject(path);
}

QString DataManager::currentFile() const
{
    return _currentFile;
}

unsigned int DataManager::_loadProject(QString const &path)
{
    DataState state;
    if (!QFile::exists(path)) {
        // The canonical path of a missing file is empty, and the message comes out so.
        logError("Error opening project file: " + QDir(path).canonicalPath() + ".  File not found");
        return DataResultNotFound;
    }
    if (!state.readNoData(path)) {
        logError("Error reading project file data");
        return DataResultInvalid;
    }
    if (!ProjectArchive::IsValidProject(state)) {
        logError("Error reading project file data.  Not a valid project state file.");
        return DataResultInvalid;
    }
    if (_interface && _interface->checkProject(state) == DataResultDone)
        return DataResultDone;

    resetCore();
    // Nothing the load does is announced: the events below make up for it.
    if (EventBus::ip())
        EventBus::ip()->setEventsEnabled(false);
    {
        // The monitor outlives the dialog, whose queue owns the job that borrows it.
        ProgressMonitor monitor(this);
        WaitDialog dialog("Loading Project", 500, 60);
        dialog.addJob(new DataLoadJob(path, &monitor));
        dialog.run();
    }

    QFileInfo const file(path);
    _currentFile = file.canonicalFilePath();
    rememberDirectory(file);
    if (EventBus::ip())
        EventBus::ip()->setEventsEnabled(true);
    raiseAll({EVT_PROJECT_CURRENTFILECHANGED, EVT_PROJECT_LOADED}, EVM_PROJECT);
    raiseCleanRequest();
    setClean();
    logInfo("Successfully read project file: " + path);
    return DataResultDone;
}

unsigned int DataManager::_saveProject(QString const &path)
{
    // The old file goes before the new one exists.
    QFile old(path);
    if (old.exists()) {
        old.remove();
        if (old.exists()) {
            logError("Failed to delete existing project file: " + path);
            return DataResultFailed;
        }
    }

    {
        ProgressMonitor monitor(this);
        WaitDialog dialog("Saving Project", 500, 60);
        dialog.addJob(new DataSaveJob(path, &monitor));
        dialog.run();
    }

    // Whether the archive was written is not looked at: only the log tells of a failure.
    QFileInfo const file(path);
    _currentFile = file.canonicalFilePath();
    // With the bus on, this change marks the project dirty; the flag is cleared below.
    rememberDirectory(file);
    raiseCurrentFileChanged();
    setClean();
    logInfo("Successfully wrote project file: " + path);
    return DataResultDone;
}

} // namespace TES
