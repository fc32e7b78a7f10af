// SPDX-License-Identifier: MIT
#include "app/Core.h"
#include "designer/ScreenDesignerWindow.h"
#include "events/EventBus.h"
#include "events/GlobalStateEvents.h"
#include "services/GlobalState.h"
#include "services/Log.h"
#include "support/ExitLoop.h"
#include "support/ModalAnswerer.h"
#include "support/RecordingHandler.h"
#include "support/Services.h"
#include "windows/ConsoleWindow.h"
#include "windows/TesseraWindow.h"

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTextEdit>
#include <QToolBar>
#include <QtTest>

#include <functional>
#include <memory>

using namespace TES;
using TES::Test::ExitLoop;
using TES::Test::ModalAnswerer;
using TES::Test::RecordingHandler;
using TES::Test::Services;
using Types = QList<unsigned long long>;

namespace {

QString const BaseTitle = "Corvane Graphics Tessera";

QString stateFile(QString const &name)
{
    return Core::pluginDataDirectory() + "/" + name;
}

QByteArray readAll(QString const &path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

void announceDirty(bool dirty)
{
    EventBus::i().raiseEventNow(QSharedPointer<GlobalStateDirtyChangedEvent>::create(dirty));
}

// Opens the menu from the menu bar and clicks the entry, as a user does.
void clickMenuEntry(TesseraWindow &window, QMenu *menu, QString const &text)
{
    QAction *entry = nullptr;
    for (QAction *action : menu->actions())
        entry = action->text() == text ? action : entry;
    QVERIFY(entry);
    QMenuBar *bar = window.menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
    QTRY_VERIFY(menu->isVisible());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
}

QStringList consoleLines()
{
    QString const text = ConsoleWindow::i().findChild<QTextEdit *>()->toPlainText();
    QStringList lines = text.split('\n', Qt::SkipEmptyParts);
    for (QString &line : lines)
        line = line.mid(10); // the "(hh:mm:ss)" stamp
    return lines;
}

} // namespace

class tst_TesseraWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void construction();
    void menuCommands();
    void stateSavedRestoredAndReset();
    void titleEvents();
    void title();
    void closeButton();

private:
    TesseraWindow &makeWindow();

    std::optional<Services> _services;
    std::unique_ptr<Core> _core;
};

void tst_TesseraWindow::init()
{
    QVERIFY(QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                          + "/.tes"));
    QFile::remove(stateFile("mainwindow.state"));
    QFile::remove(stateFile("mainwindow.geom"));
    _services.emplace(Services::Bus | Services::State | Services::Logging);
    _core = std::make_unique<Core>(); // not started: the commands only need it there
}

void tst_TesseraWindow::cleanup()
{
    delete TesseraWindow::ip();
    _core.reset();
    _services.reset();
}

TesseraWindow &tst_TesseraWindow::makeWindow()
{
    auto *window = new TesseraWindow(nullptr);
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowExposed(window))
        qWarning("window not exposed");
    return *window;
}

void tst_TesseraWindow::construction()
{
    TesseraWindow &window = makeWindow();
    QCOMPARE(window.menuBar()->objectName(), QString("menuBar"));
    // Each menu as "object name/title", its entries as "text/object name", "-" a separator.
    QStringList found;
    for (QAction *menuAction : window.menuBar()->actions()) {
        QMenu *menu = menuAction->menu();
        QVERIFY(menu);
        found << menu->objectName() + "/" + menu->title();
        for (QAction *action : menu->actions())
            found << (action->isSeparator() ? QString("-")
                                            : action->text() + "/" + action->objectName());
    }
    QCOMPARE(found, QStringList({"FileMenu/File", "New/FileMenuNew", "Open/FileMenuOpen", "-",
                                 "Save/", "Save As/", "-", "Exit/", "EditMenu/Edit",
                                 "Preferences/EditMenuPreferences", "WindowMenu/Window", "Console/",
                                 "-", "Reset Windows/WindowMenuReset", "HelpMenu/Help",
                                 "About/HelpMenuAbout"}));
    // The console's entry is its dock's own toggle; "About" belongs to nobody.
    QCOMPARE(window.windowMenu()->actions().first(), window.consoleDock()->toggleViewAction());
    QCOMPARE(window.helpMenu()->actions().first()->parent(), nullptr);

    QToolBar *bar = window.toolBar();
    QCOMPARE(bar->objectName(), QString("MainToolBar"));
    QVERIFY(!bar->isMovable() && !bar->isFloatable());
    QCOMPARE(bar->iconSize(), QSize(24, 24));
    QCOMPARE(window.toolBarArea(bar), Qt::TopToolBarArea);
    QStringList tools;
    for (QAction *action : bar->actions()) {
        tools << action->text() + "|" + action->toolTip() + "|" + action->objectName();
        QVERIFY(!action->icon().isNull());
    }
    // All three carry the same name.
    QCOMPARE(tools, QStringList({"New Design|Create New Design|ToolBarNewDesign",
                                 "Open Design|Open Existing Design|ToolBarNewDesign",
                                 "Save Design|Save Design|ToolBarNewDesign"}));
    // "name|title|content|allowed areas|features|area", the flags as numbers.
    QStringList docks;
    for (QDockWidget *dock :
         {window.screenTreeDock(), window.screenManagerDock(), window.toolBoxDock(),
          window.propertyEditorDock(), window.consoleDock()}) {
        QCOMPARE(window.findChild<QDockWidget *>(dock->objectName()), dock);
        QVERIFY(dock->isVisible() && !dock->isFloating());
        docks << QString("%1|%2|%3|%4|%5|%6")
                     .arg(dock->objectName(), dock->windowTitle(),
                          dock->widget()->metaObject()->className())
                     .arg(int(dock->allowedAreas()))
                     .arg(int(dock->features()))
                     .arg(int(window.dockWidgetArea(dock)));
    }
    // Left and right, movable and floatable; the console alone goes top or bottom, and closes.
    QCOMPARE(docks, QStringList({"ScreenTreeDock|Screen Tree|TES::ScreenTreeWindow|3|6|1",
                                 "ScreenManagerDock|Screens|TES::ScreenManagerWindow|3|6|1",
                                 "ToolBoxDock|Tool Box|TES::ToolBoxWindow|3|6|2",
                                 "PropertyEditorDock|Object Editor|TES::PropertyEditorWindow|3|6|2",
                                 "ConsoleDock|Console|TES::ConsoleWindow|12|7|8"}));
    QVERIFY(qobject_cast<ScreenDesignerWindow *>(window.centralWidget()));
    QCOMPARE(window.windowTitle(), BaseTitle);

    // The status text is the bar's tip, not a message.
    window.setStatusText("Hold Shift to move along one axis");
    QCOMPARE(window.statusBar()->statusTip(), QString("Hold Shift to move along one axis"));
    QCOMPARE(window.statusBar()->currentMessage(), QString());
}

void tst_TesseraWindow::menuCommands()
{
    TesseraWindow &window = makeWindow();
    QAction *toggle = window.consoleDock()->toggleViewAction();
    QVERIFY(toggle->isChecked());
    clickMenuEntry(window, window.windowMenu(), "Console");
    QTRY_VERIFY(!window.consoleDock()->isVisible());
    QVERIFY(!toggle->isChecked());
    clickMenuEntry(window, window.windowMenu(), "Console");
    QTRY_VERIFY(window.consoleDock()->isVisible());
    QVERIFY(toggle->isChecked());

    ModalAnswerer answers({"No", "No", "No"});
    QTest::mouseClick(window.toolBar()->widgetForAction(window.toolBar()->actions().first()),
                      Qt::LeftButton);
    clickMenuEntry(window, window.fileMenu(), "New");
    clickMenuEntry(window, window.fileMenu(), "Exit");
    QCOMPARE(answers.seen, QStringList({"Create New Design | Create New Design? | ",
                                        "Create New Design | Create New Design? | ",
                                        "Confirm Exit | Exit Tessera? | "}));
    QVERIFY(window.isVisible());
}

void tst_TesseraWindow::stateSavedRestoredAndReset()
{
    RecordingHandler recorder(EVM_GLOBALSTATE);
    TesseraWindow &first = makeWindow();
    QSize const constructed = first.size();
    QByteArray const before = first.QMainWindow::saveState(1);
    // A first run: nothing to restore, a damaged file likewise, and the event goes out.
    first.loadState();
    QCOMPARE(recorder.types(), Types({EVT_GLOBALSTATE_LOAD_UI}));
    QFile garbage(stateFile("mainwindow.state"));
    QVERIFY(garbage.open(QIODevice::WriteOnly));
    garbage.write("not a state");
    garbage.close();
    first.loadState();
    QCOMPARE(first.QMainWindow::saveState(1), before);

    first.addDockWidget(Qt::TopDockWidgetArea, first.consoleDock());
    first.addDockWidget(Qt::LeftDockWidgetArea, first.toolBoxDock());
    first.resize(constructed - QSize(100, 50));
    QSize const arranged = first.size();
    recorder.clear();
    first.saveState();
    QCOMPARE(recorder.types(), Types({EVT_GLOBALSTATE_SAVE_UI}));
    QByteArray const savedState = readAll(stateFile("mainwindow.state"));
    QByteArray const savedGeometry = readAll(stateFile("mainwindow.geom"));
    QCOMPARE(savedState, first.QMainWindow::saveState(1)); // Qt's own bytes, version 1
    QCOMPARE(savedGeometry, first.saveGeometry());
    delete &first;

    TesseraWindow &window = makeWindow();
    QCOMPARE(window.dockWidgetArea(window.consoleDock()), Qt::BottomDockWidgetArea);
    window.loadState();
    QCOMPARE(window.dockWidgetArea(window.consoleDock()), Qt::TopDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(window.toolBoxDock()), Qt::LeftDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(window.propertyEditorDock()), Qt::RightDockWidgetArea);
    QTRY_COMPARE(window.size(), arranged);

    // Reset: the layout of construction, not the one loaded; the files wait for the next save.
    window.toolBoxDock()->setFloating(true);
    recorder.clear();
    clickMenuEntry(window, window.windowMenu(), "Reset Windows");
    QCOMPARE(recorder.types(), Types({EVT_GLOBALSTATE_RESET_UI}));
    QCOMPARE(window.dockWidgetArea(window.consoleDock()), Qt::BottomDockWidgetArea);
    QVERIFY(!window.toolBoxDock()->isFloating());
    QCOMPARE(window.dockWidgetArea(window.toolBoxDock()), Qt::RightDockWidgetArea);
    QTRY_COMPARE(window.size(), constructed);
    QCOMPARE(readAll(stateFile("mainwindow.state")), savedState);
    QCOMPARE(readAll(stateFile("mainwindow.geom")), savedGeometry);
}

void tst_TesseraWindow::titleEvents()
{
    TesseraWindow &window = makeWindow();
    struct Case
    {
        unsigned long long type, mask;
        bool rebuilds;
    };
    QList<Case> const cases{
        {EVT_PROJECT_REQUEST_RESET, EVM_PROJECT, true},
        {EVT_PROJECT_REQUEST_BLANK, EVM_PROJECT, true},
        {EVT_PROJECT_LOADED, EVM_PROJECT, true},
        {EVT_PROJECT_CURRENTFILECHANGED, EVM_PROJECT, true},
        {EVT_GLOBALSTATE_DIRTY_CHANGED, EVM_GLOBALSTATE, true},
        // Close relatives, and the right type under a mask the window doesn't take.
        {EVT_PROJECT_NEW, EVM_PROJECT, false},
        {EVT_PROJECT_POSTBLANK, EVM_PROJECT, false},
        {EVT_GLOBALSTATE_REQUEST_CLEAN, EVM_GLOBALSTATE, false},
        {EVT_PROJECT_LOADED, EVM_SCREEN, false}};
    for (Case const &c : cases) {
        window.setWindowTitle("stale");
        if (c.type == EVT_GLOBALSTATE_DIRTY_CHANGED)
            announceDirty(false);
        else
            EventBus::i().raiseEventNow(QSharedPointer<Event>::create(c.type, c.mask));
        QVERIFY2(window.windowTitle() == (c.rebuilds ? BaseTitle : QString("stale")),
                 qPrintable(printEventType(c.type)));
    }
}

void tst_TesseraWindow::title()
{
    TesseraWindow &window = makeWindow();
    GlobalState::i().setDirty(true);
    QCOMPARE(window.windowTitle(), BaseTitle + "*");
    // A new base shows at once, the star behind it without a blank.
    window.setBaseTitle("Panel Studio");
    QCOMPARE(window.windowTitle(), QString("Panel Studio*"));
    // The flag is what counts, not the event's payload.
    announceDirty(false);
    QCOMPARE(window.windowTitle(), QString("Panel Studio*"));
    GlobalState::i().setDirty(false);
    QCOMPARE(window.windowTitle(), QString("Panel Studio"));
}

void tst_TesseraWindow::closeButton()
{
    TesseraWindow &window = makeWindow();
    Log::i().setLevel(LogLevel::Debug);
    QStringList const before = consoleLines();
    {
        // Declined: the window stays, and not a line more.
        ModalAnswerer answers({"No"});
        QVERIFY(!window.close());
        QCOMPARE(answers.seen, QStringList({"Confirm Exit | Exit Tessera? | "}));
        QVERIFY(window.isVisible());
        QCOMPARE(consoleLines(), before);
    }
    ModalAnswerer answers({"Yes"});
    bool closed = true;
    // The run ends through Core, whose exit ends the event loop.
    QCOMPARE(ExitLoop::Run([&] { closed = window.close(); }), 0);
    QCOMPARE(answers.seen, QStringList({"Confirm Exit | Exit Tessera? | "}));
    QVERIFY(!closed); // the close event itself is never accepted
    QVERIFY(!window.isVisible());
    QCOMPARE(consoleLines().mid(before.size()),
             QStringList({" : Shutting down...", "[Main Window]<Info> : Closing main window."}));
}

QTEST_MAIN(tst_TesseraWindow)
#include "tst_TesseraWindow.moc"
