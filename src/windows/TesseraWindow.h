// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "tessera_export.h"

#include <QByteArray>
#include <QMainWindow>
#include <QString>

#include <memory>

class QAction;
class QDockWidget;
class QMenu;
class QMenuBar;
class QStatusBar;
class QToolBar;

namespace TES {

// The application's single top-level window: the design area in the centre, five docks, the
// menus, the main tool bar and the status bar. It holds no logic of its own: every project
// command goes to Core, and its one reaction to the event bus is to keep its title ("base",
// " : " and the current file, a star while the project is dirty) right. It saves and restores
// the dock arrangement per plug-in.
//
// Core creates it, shows it, restores its state, saves the state at the end and hides it; the
// window is never deleted during a run. It subscribes itself to the EventBus as a persistent
// handler. Plug-ins reach the menus and docks through the accessors to add their own entries,
// and use ip() as the parent of their dialogs.
class TES_EXPORT TesseraWindow : public QMainWindow, public IEventHandler
{
    Q_OBJECT

public:
    explicit TesseraWindow(QWidget *parent = nullptr);
    ~TesseraWindow() override;

    static TesseraWindow &i();
    static TesseraWindow *ip();

    QMenuBar *menuBar() const;
    QMenu *fileMenu() const;
    QMenu *editMenu() const;
    QMenu *windowMenu() const;
    QMenu *helpMenu() const;
    QToolBar *toolBar() const;
    QDockWidget *screenTreeDock() const;
    QDockWidget *screenManagerDock() const;
    QDockWidget *toolBoxDock() const;
    QDockWidget *propertyEditorDock() const;
    QDockWidget *consoleDock() const;

    // Becomes the status bar's tip, not a transient message.
    void setStatusText(QString const &text);
    void setBaseTitle(QString const &title);

    // Lays the docks out for the primary screen: the window at 85% of it, centred; tree and
    // screens on the left, tool box and object editor on the right, each pair split in half
    // and a fifth of the width wide; the console at the bottom between the side docks.
    void reset();

    // Writes the dock arrangement and the geometry to "mainwindow.state" and
    // "mainwindow.geom" in the plug-in's data directory, and raises EVT_GLOBALSTATE_SAVE_UI.
    void saveState();
    // Restores what saveState wrote, if it can, and raises EVT_GLOBALSTATE_LOAD_UI in any case.
    void loadState();

    QString getEventHandlerName() const override;
    bool canHandleEvent(unsigned long long mask) const override;
    bool persistent() const override;
    void handleEvent(QSharedPointer<Event> event) override;

    static TesseraWindow *_instance;

public slots:
    // Back to the arrangement of construction, not to the saved one, leaving the files alone;
    // raises EVT_GLOBALSTATE_RESET_UI so that other windows reset what they own.
    void resetState();

protected:
    // Never accepted: the run ends through Core::close, which exits the event loop.
    void closeEvent(QCloseEvent *event) override;

private slots:
    void _file_newTriggered();
    void _file_openTriggered();
    void _file_saveTriggered();
    void _file_saveAsTriggered();
    void _file_generateTriggered();
    void _file_exitTriggered();
    void _edit_preferencesTriggered();

private:
    void _createDocks();
    void _createMenus();
    void _createToolBar();
    void _updateWindowTitle();
    bool _projectDirty() const;
    QString _currentFile() const;

    QDockWidget *_screenTreeDock = nullptr;
    QDockWidget *_screenManagerDock = nullptr;
    QDockWidget *_toolBoxDock = nullptr;
    QDockWidget *_propertyEditorDock = nullptr;
    QDockWidget *_consoleDock = nullptr;
    QMenuBar *_menuBar = nullptr;
    QMenu *_fileMenu = nullptr;
    QMenu *_editMenu = nullptr;
    QMenu *_windowMenu = nullptr;
    QMenu *_helpMenu = nullptr;
    QToolBar *_toolBar = nullptr;
    QStatusBar *_statusBar = nullptr;
    QByteArray _defaultGeometry;
    QByteArray _defaultState;
    QString _baseTitle;

    // "About" has no parent object and no connection; the window keeps it alive all the same.
    std::unique_ptr<QAction> _aboutAction;
};

} // namespace TES
