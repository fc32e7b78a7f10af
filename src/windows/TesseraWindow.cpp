// SPDX-License-Identifier: MIT
#include "windows/TesseraWindow.h"

#include "app/Core.h"
#include "data/DataManager.h"
#include "designer/ScreenDesignerWindow.h"
#include "designer/ScreenOverlay.h"
#include "events/EventBus.h"
#include "services/GlobalState.h"
#include "services/HostConstants.h"
#include "services/Log.h"
#include "services/Utils.h"
#include "windows/ConsoleWindow.h"
#include "windows/PropertyEditorWindow.h"
#include "windows/ScreenManagerWindow.h"
#include "windows/ScreenTreeWindow.h"
#include "windows/ToolBoxWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

namespace TES {

TesseraWindow *TesseraWindow::_instance = nullptr;

namespace {

// The files lie in the plug-in's data directory; empty when that directory is missing, and
// then there is nothing to read or write (the bare file name would land in the root).
QString stateFilePath(QString const &name)
{
    QString const directory = Core::pluginDataDirectory();
    if (directory.isEmpty())
        return QString();
    return directory + QDir::separator() + name;
}

void raiseGlobalStateEvent(unsigned long long type)
{
    EventBus::RaiseNow(QSharedPointer<Event>::create(type, EVM_GLOBALSTATE));
}

QDockWidget *makeDock(QMainWindow *window, QString const &title, QString const &objectName,
                      Qt::DockWidgetAreas areas, QDockWidget::DockWidgetFeatures features)
{
    auto *dock = new QDockWidget(title, window);
    dock->setObjectName(objectName);
    dock->setAllowedAreas(areas);
    dock->setFeatures(features);
    return dock;
}

} // namespace

TesseraWindow::TesseraWindow(QWidget *parent) : QMainWindow(parent)
{
    _instance = this;

    _baseTitle = "Corvane Graphics Tessera";
    resize(1400, 800);
    setWindowTitle(_baseTitle);
    setWindowIcon(QIcon(HostConstants::IconApplication));

    setCentralWidget(new ScreenDesignerWindow(this));
    // Once the design surface stands, before any dock; it dies with the window.
    new ScreenOverlay(this);

    _createDocks();
    _createMenus();
    _createToolBar();

    _statusBar = new QStatusBar(this);
    _statusBar->setSizeGripEnabled(true);
    setStatusBar(_statusBar);

    if (EventBus::ip())
        EventBus::ip()->addHandler(this);

    reset();

    // Version 0 marks the in-memory defaults; the files use version 1, and the two never mix.
    _defaultGeometry = saveGeometry();
    _defaultState = QMainWindow::saveState(0);
}

TesseraWindow::~TesseraWindow()
{
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
    _instance = nullptr;
}

TesseraWindow &TesseraWindow::i()
{
    return *_instance;
}

TesseraWindow *TesseraWindow::ip()
{
    return _instance;
}

void TesseraWindow::_createDocks()
{
    Qt::DockWidgetAreas const sides = Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea;
    QDockWidget::DockWidgetFeatures const fixed
        = QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable;

    _screenTreeDock = makeDock(this, "Screen Tree", "ScreenTreeDock", sides, fixed);
    _screenTreeDock->setWidget(new ScreenTreeWindow(_screenTreeDock));

    _screenManagerDock = makeDock(this, "Screens", "ScreenManagerDock", sides, fixed);
    _screenManagerDock->setWidget(new ScreenManagerWindow(_screenManagerDock));

    _toolBoxDock = makeDock(this, "Tool Box", "ToolBoxDock", sides, fixed);
    _toolBoxDock->setWidget(new ToolBoxWindow(_toolBoxDock));

    _propertyEditorDock = makeDock(this, "Object Editor", "PropertyEditorDock", sides, fixed);
    _propertyEditorDock->setWidget(new PropertyEditorWindow(_propertyEditorDock));

    // Only the console can be closed, and so only the console has a toggle in the Window menu.
    _consoleDock
        = makeDock(this, "Console", "ConsoleDock", Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea,
                   fixed | QDockWidget::DockWidgetClosable);
    _consoleDock->setWidget(new ConsoleWindow());
}

void TesseraWindow::_createMenus()
{
    _menuBar = new QMenuBar(this);
    _menuBar->setObjectName("menuBar");
    _menuBar->setGeometry(QRect(1080, 0, 1400, 22));

    auto addMenu = [this](QString const &objectName, QString const &title) {
        auto *menu = new QMenu(title, _menuBar);
        menu->setObjectName(objectName);
        _menuBar->addMenu(menu);
        return menu;
    };
    auto addAction = [this](QMenu *menu, QString const &text, QString const &objectName,
                            void (TesseraWindow::*slot)()) {
        auto *action = new QAction(text, this);
        action->setObjectName(objectName);
        connect(action, &QAction::triggered, this, slot);
        menu->addAction(action);
        return action;
    };

    _fileMenu = addMenu("FileMenu", "File");
    addAction(_fileMenu, "New", "FileMenuNew", &TesseraWindow::_file_newTriggered);
    addAction(_fileMenu, "Open", "FileMenuOpen", &TesseraWindow::_file_openTriggered);
    _fileMenu->addSeparator();
    // Unlike their neighbours the two Save entries carry no object name, and keep it so.
    addAction(_fileMenu, "Save", QString(), &TesseraWindow::_file_saveTriggered);
    addAction(_fileMenu, "Save As", QString(), &TesseraWindow::_file_saveAsTriggered);
    _fileMenu->addSeparator();
    addAction(_fileMenu, "Exit", QString(), &TesseraWindow::_file_exitTriggered);

    _editMenu = addMenu("EditMenu", "Edit");
    addAction(_editMenu, "Preferences", "EditMenuPreferences",
              &TesseraWindow::_edit_preferencesTriggered);

    _windowMenu = addMenu("WindowMenu", "Window");
    _windowMenu->addAction(_consoleDock->toggleViewAction());
    _windowMenu->addSeparator();
    addAction(_windowMenu, "Reset Windows", "WindowMenuReset", &TesseraWindow::resetState);

    _helpMenu = addMenu("HelpMenu", "Help");
    _aboutAction = std::make_unique<QAction>("About");
    _aboutAction->setObjectName("HelpMenuAbout");
    _helpMenu->addAction(_aboutAction.get());

    setMenuBar(_menuBar);
}

void TesseraWindow::_createToolBar()
{
    _toolBar = new QToolBar(this);
    _toolBar->setObjectName("MainToolBar");
    _toolBar->setMovable(false);
    _toolBar->setFloatable(false);
    _toolBar->setIconSize(QSize(24, 24));
    addToolBar(Qt::TopToolBarArea, _toolBar);

    auto addAction = [this](QString const &text, QString const &toolTip, QString const &icon,
                            void (TesseraWindow::*slot)()) {
        auto *action = new QAction(QIcon(icon), text, this);
        action->setToolTip(toolTip);
        // All three share one object name, which stays as it is.
        action->setObjectName("ToolBarNewDesign");
        connect(action, &QAction::triggered, this, slot);
        _toolBar->addAction(action);
    };
    addAction("New Design", "Create New Design", HostConstants::IconNew,
              &TesseraWindow::_file_newTriggered);
    addAction("Open Design", "Open Existing Design", HostConstants::IconOpen,
              &TesseraWindow::_file_openTriggered);
    addAction("Save Design", "Save Design", HostConstants::IconSave,
              &TesseraWindow::_file_saveTriggered);
}

QMenuBar *TesseraWindow::menuBar() const
{
    return _menuBar;
}

QMenu *TesseraWindow::fileMenu() const
{
    return _fileMenu;
}

QMenu *TesseraWindow::editMenu() const
{
    return _editMenu;
}

QMenu *TesseraWindow::windowMenu() const
{
    return _windowMenu;
}

QMenu *TesseraWindow::helpMenu() const
{
    return _helpMenu;
}

QToolBar *TesseraWindow::toolBar() const
{
    return _toolBar;
}

QDockWidget *TesseraWindow::screenTreeDock() const
{
    return _screenTreeDock;
}

QDockWidget *TesseraWindow::screenManagerDock() const
{
    return _screenManagerDock;
}

QDockWidget *TesseraWindow::toolBoxDock() const
{
    return _toolBoxDock;
}

QDockWidget *TesseraWindow::propertyEditorDock() const
{
    return _propertyEditorDock;
}

QDockWidget *TesseraWindow::consoleDock() const
{
    return _consoleDock;
}

void TesseraWindow::setStatusText(QString const &text)
{
    _statusBar->setStatusTip(text);
}

void TesseraWindow::setBaseTitle(QString const &title)
{
    _baseTitle = title;
    _updateWindowTitle();
}

void TesseraWindow::reset()
{
    QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    QSize const screenSize = screen->size();
    QRect const screenGeometry = screen->geometry();
    int const w = static_cast<int>(static_cast<float>(screenSize.width()) * 0.85f);
    int const h = static_cast<int>(static_cast<float>(screenSize.height()) * 0.85f);
    move((screenSize.width() - w) / 2 + screenGeometry.x(),
         (screenSize.height() - h) / 2 + screenGeometry.y());
    resize(w, h);

    QList<QDockWidget *> const left{_screenTreeDock, _screenManagerDock};
    addDockWidget(Qt::LeftDockWidgetArea, _screenTreeDock);
    addDockWidget(Qt::LeftDockWidgetArea, _screenManagerDock);
    resizeDocks(left, {h / 2, h / 2}, Qt::Vertical);
    int const s = static_cast<int>(static_cast<float>(w) * 0.2f);
    resizeDocks(left, {s, s}, Qt::Horizontal);

    QList<QDockWidget *> const right{_toolBoxDock, _propertyEditorDock};
    addDockWidget(Qt::RightDockWidgetArea, _toolBoxDock);
    addDockWidget(Qt::RightDockWidgetArea, _propertyEditorDock);
    _propertyEditorDock->raise();
    resizeDocks(right, {h / 2, h / 2}, Qt::Vertical);
    resizeDocks({_toolBoxDock}, {s}, Qt::Horizontal);

    addDockWidget(Qt::BottomDockWidgetArea, _consoleDock);
    // The side docks run the full height; the console stands between them.
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
}

void TesseraWindow::resetState()
{
    restoreGeometry(_defaultGeometry);
    restoreState(_defaultState, 0);
    raiseGlobalStateEvent(EVT_GLOBALSTATE_RESET_UI);
}

void TesseraWindow::saveState()
{
    QByteArray const state = QMainWindow::saveState(1);
    QByteArray const geometry = saveGeometry();
    QString const statePath = stateFilePath("mainwindow.state");
    QString const geometryPath = stateFilePath("mainwindow.geom");
    // A failed write goes unreported: the next run starts from the default layout.
    if (!statePath.isEmpty())
        Utils::WriteFile(statePath, state);
    if (!geometryPath.isEmpty())
        Utils::WriteFile(geometryPath, geometry);
    raiseGlobalStateEvent(EVT_GLOBALSTATE_SAVE_UI);
}

void TesseraWindow::loadState()
{
    QString const statePath = stateFilePath("mainwindow.state");
    QString const geometryPath = stateFilePath("mainwindow.geom");
    QByteArray const state = statePath.isEmpty() ? QByteArray() : Utils::ReadFile(statePath);
    QByteArray const geometry
        = geometryPath.isEmpty() ? QByteArray() : Utils::ReadFile(geometryPath);
    // Either refuses what it cannot read and leaves the layout of reset() in place.
    restoreState(state, 1);
    restoreGeometry(geometry);
    raiseGlobalStateEvent(EVT_GLOBALSTATE_LOAD_UI);
}

QString TesseraWindow::getEventHandlerName() const
{
    return "TesseraWindow";
}

bool TesseraWindow::canHandleEvent(unsigned long long mask) const
{
    return (mask & (EVM_PROJECT | EVM_GLOBALSTATE)) != 0;
}

bool TesseraWindow::persistent() const
{
    return true;
}

void TesseraWindow::handleEvent(QSharedPointer<Event> event)
{
    switch (event->type()) {
    case EVT_GLOBALSTATE_DIRTY_CHANGED:
    case EVT_PROJECT_REQUEST_RESET:
    case EVT_PROJECT_REQUEST_BLANK:
    case EVT_PROJECT_LOADED:
    case EVT_PROJECT_CURRENTFILECHANGED:
        _updateWindowTitle();
        break;
    default:
        break;
    }
}

void TesseraWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    if (!Core::_instance || !Core::_instance->close())
        return;
    if (Log::ip())
        Log::ip()->writeMessage("Closing main window.", "Main Window", LogSeverity::Info,
                                LogLevel::Debug);
    setVisible(false);
}

void TesseraWindow::_file_newTriggered()
{
    if (Core::_instance)
        Core::_instance->newDesign();
}

void TesseraWindow::_file_openTriggered()
{
    if (Core::_instance)
        Core::_instance->open();
}

void TesseraWindow::_file_saveTriggered()
{
    if (Core::_instance)
        Core::_instance->save(false);
}

void TesseraWindow::_file_saveAsTriggered()
{
    if (Core::_instance)
        Core::_instance->saveAs();
}

void TesseraWindow::_file_generateTriggered() {}

void TesseraWindow::_file_exitTriggered()
{
    if (Core::_instance)
        Core::_instance->close();
}

void TesseraWindow::_edit_preferencesTriggered()
{
    // Runs the PreferencesDialog modally once the preferences stand.
}

void TesseraWindow::_updateWindowTitle()
{
    QString title = _baseTitle;
    QString const file = _currentFile();
    if (!file.isEmpty())
        title += " : " + file;
    if (_projectDirty())
        title += "*";
    setWindowTitle(title);
}

bool TesseraWindow::_projectDirty() const
{
    return GlobalState::ip() && GlobalState::ip()->getDirty();
}

QString TesseraWindow::_currentFile() const
{
    return DataManager::ip() ? DataManager::ip()->currentFile() : QString();
}

} // namespace TES
