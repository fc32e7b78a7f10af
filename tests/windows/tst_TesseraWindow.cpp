#include "app/Core.h"
#include "data/DataManager.h"
#include "designer/ScreenDesignerWindow.h"
#include "events/EventBus.h"
#include "events/GlobalStateDirtyChangedEvent.h"
#include "services/GlobalState.h"
#include "services/Log.h"
#include "support/ModalAnswerer.h"
#include "support/RecordingHandler.h"
#include "windows/ConsoleWindow.h"
#include "windows/PropertyEditorWindow.h"
#include "windows/ScreenManagerWindow.h"
#include "windows/ScreenTreeWindow.h"
#include "windows/TesseraWindow.h"
#include "windows/ToolBoxWindow.h"

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTextEdit>
#include <QToolBar>
#include <QtTest>

#include <functional>
#include <memory>

using namespace TES;
using TES::Test::ModalAnswerer;
using TES::Test::RecordingHandler;

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

// The event that the global state raises whenever its dirty flag changes, raised by hand.
void announceDirty(bool dirty)
{
    EventBus::i().raiseEventNow(QSharedPointer<GlobalStateDirtyChangedEvent>::create(dirty));
}

// Opens the menu from the menu bar and clicks the entry, as a user does.
void clickMenuEntry(TesseraWindow &window, QMenu *menu, QAction *entry)
{
    QMenuBar *bar = window.menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
    QTRY_VERIFY(menu->isVisible());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
}

QAction *entry(QMenu *menu, QString const &text)
{
    for (QAction *action : menu->actions()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

// Runs the event loop with `start` as its first task, until something ends it. The exit
// must happen inside a running loop: an exit outside one would end the next dialog at once.
int runUntilExit(std::function<void()> start)
{
    QTimer::singleShot(0, qApp, std::move(start));
    QTimer guard; // a hung run fails instead of blocking the suite
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(-1); });
    guard.start(60000);
    return QCoreApplication::exec();
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

    void menus();
    void toolBar();
    void docks_data();
    void docks();
    void layoutFitsPrimaryScreen();
    void statusText();
    void consoleToggle();
    void commandsReachCore();
    void stateSavedAndRestored();
    void firstRunWithoutFiles();
    void resetWindowsRestoresConstructionLayout();
    void titleEvents_data();
    void titleEvents();
    void titleFollowsDirtyFlag();
    void titleNamesTheCurrentFile();
    void closeButtonAnsweredNo();
    void closeButtonAnsweredYes();

private:
    // Makes a new window the way Core does, shown.
    TesseraWindow &makeWindow();
    void deleteWindow();

    std::unique_ptr<Core> _core;
};

void tst_TesseraWindow::init()
{
    QVERIFY(QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                          + "/.tes"));
    QFile::remove(stateFile("mainwindow.state"));
    QFile::remove(stateFile("mainwindow.geom"));
    new EventBus();
    new GlobalState();
    GlobalState::i().setDirty(false); // as start-up's clean request leaves it
    EventBus::i().setEventsEnabled(true);
    new Log("tessera.log", true);
    // Not started: the window's commands only need it to be there.
    _core = std::make_unique<Core>();
}

void tst_TesseraWindow::cleanup()
{
    deleteWindow();
    _core.reset();
    GlobalState::destroy();
    Log::destroy();
    EventBus::destroy();
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

void tst_TesseraWindow::deleteWindow()
{
    delete TesseraWindow::ip();
}

void tst_TesseraWindow::menus()
{
    TesseraWindow &window = makeWindow();
    QCOMPARE(window.QMainWindow::menuBar(), window.menuBar());
    QCOMPARE(window.menuBar()->objectName(), QString("menuBar"));

    // Each menu as "object name/title", then its entries as "text/object name", "-" for a
    // separator.
    QStringList found;
    for (QAction *menuAction : window.menuBar()->actions()) {
        QMenu *menu = menuAction->menu();
        QVERIFY(menu);
        found << menu->objectName() + "/" + menu->title();
        for (QAction *action : menu->actions()) {
            found << (action->isSeparator() ? QString("-")
                                            : action->text() + "/" + action->objectName());
            QVERIFY(action->isEnabled());
        }
    }
    QCOMPARE(found, QStringList({"FileMenu/File", "New/FileMenuNew", "Open/FileMenuOpen", "-",
                                 "Save/", "Save As/", "-", "Exit/", "EditMenu/Edit",
                                 "Preferences/EditMenuPreferences", "WindowMenu/Window", "Console/",
                                 "-", "Reset Windows/WindowMenuReset", "HelpMenu/Help",
                                 "About/HelpMenuAbout"}));

    QCOMPARE(window.fileMenu()->objectName(), QString("FileMenu"));
    QCOMPARE(window.editMenu()->objectName(), QString("EditMenu"));
    QCOMPARE(window.windowMenu()->objectName(), QString("WindowMenu"));
    QCOMPARE(window.helpMenu()->objectName(), QString("HelpMenu"));
    // The console's entry is its dock's own toggle; no other dock has one.
    QCOMPARE(window.windowMenu()->actions().first(), window.consoleDock()->toggleViewAction());
    // "About" belongs to nobody and does nothing.
    QCOMPARE(window.helpMenu()->actions().first()->parent(), nullptr);
}

void tst_TesseraWindow::toolBar()
{
    TesseraWindow &window = makeWindow();
    QToolBar *bar = window.toolBar();
    QCOMPARE(bar->objectName(), QString("MainToolBar"));
    QVERIFY(!bar->isMovable());
    QVERIFY(!bar->isFloatable());
    QCOMPARE(bar->iconSize(), QSize(24, 24));
    QCOMPARE(window.toolBarArea(bar), Qt::TopToolBarArea);

    struct Expected
    {
        QString text, toolTip, icon;
    };
    QList<Expected> const expected{{"New Design", "Create New Design", "new_icon.png"},
                                   {"Open Design", "Open Existing Design", "open_icon.png"},
                                   {"Save Design", "Save Design", "save_icon24.png"}};
    QCOMPARE(bar->actions().size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        QAction *action = bar->actions().at(i);
        QCOMPARE(action->text(), expected[i].text);
        QCOMPARE(action->toolTip(), expected[i].toolTip);
        // All three carry the same name.
        QCOMPARE(action->objectName(), QString("ToolBarNewDesign"));
        QImage const shown
            = action->icon().pixmap(24, 24).toImage().convertToFormat(QImage::Format_ARGB32);
        QImage const resource
            = QImage(":/resources/" + expected[i].icon).convertToFormat(QImage::Format_ARGB32);
        QVERIFY(!resource.isNull());
        QCOMPARE(shown, resource);
    }
}

void tst_TesseraWindow::docks_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("content");
    QTest::addColumn<int>("areas");
    QTest::addColumn<int>("features");
    QTest::addColumn<int>("area");

    int const sides = Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea;
    int const fixed = QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable;
    QTest::newRow("tree") << "ScreenTreeDock"
                          << "Screen Tree"
                          << "TES::ScreenTreeWindow" << sides << fixed
                          << int(Qt::LeftDockWidgetArea);
    QTest::newRow("screens") << "ScreenManagerDock"
                             << "Screens"
                             << "TES::ScreenManagerWindow" << sides << fixed
                             << int(Qt::LeftDockWidgetArea);
    QTest::newRow("tool box") << "ToolBoxDock"
                              << "Tool Box"
                              << "TES::ToolBoxWindow" << sides << fixed
                              << int(Qt::RightDockWidgetArea);
    QTest::newRow("editor") << "PropertyEditorDock"
                            << "Object Editor"
                            << "TES::PropertyEditorWindow" << sides << fixed
                            << int(Qt::RightDockWidgetArea);
    // The only dock that can be closed.
    QTest::newRow("console") << "ConsoleDock"
                             << "Console"
                             << "TES::ConsoleWindow"
                             << int(Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea)
                             << int(fixed | QDockWidget::DockWidgetClosable)
                             << int(Qt::BottomDockWidgetArea);
}

void tst_TesseraWindow::docks()
{
    QFETCH(QString, objectName);
    QFETCH(QString, title);
    QFETCH(QString, content);
    QFETCH(int, areas);
    QFETCH(int, features);
    QFETCH(int, area);

    TesseraWindow &window = makeWindow();
    QList<QDockWidget *> const accessors{window.screenTreeDock(), window.screenManagerDock(),
                                         window.toolBoxDock(), window.propertyEditorDock(),
                                         window.consoleDock()};
    QDockWidget *dock = window.findChild<QDockWidget *>(objectName);
    QVERIFY(dock);
    QVERIFY(accessors.contains(dock));
    QCOMPARE(dock->windowTitle(), title);
    QVERIFY(dock->widget());
    QCOMPARE(QString(dock->widget()->metaObject()->className()), content);
    QCOMPARE(int(dock->allowedAreas()), areas);
    QCOMPARE(int(dock->features()), features);
    QCOMPARE(int(window.dockWidgetArea(dock)), area);
    QVERIFY(dock->isVisible());
    QVERIFY(!dock->isFloating());
    QVERIFY(qobject_cast<ScreenDesignerWindow *>(window.centralWidget()));
}

void tst_TesseraWindow::layoutFitsPrimaryScreen()
{
    TesseraWindow &window = makeWindow();
    QScreen *screen = QGuiApplication::primaryScreen();
    QSize const size = screen->size();
    int const w = int(size.width() * 0.85f);
    int const h = int(size.height() * 0.85f);
    QCOMPARE(window.size(), QSize(w, h));
    QCOMPARE(window.pos(), QPoint((size.width() - w) / 2 + screen->geometry().x(),
                                  (size.height() - h) / 2 + screen->geometry().y()));
    QCOMPARE(window.windowTitle(), BaseTitle);
    QVERIFY(!window.windowIcon().isNull());

    // The side docks take the corners; the console lies between them.
    QCOMPARE(window.corner(Qt::BottomLeftCorner), Qt::LeftDockWidgetArea);
    QCOMPARE(window.corner(Qt::BottomRightCorner), Qt::RightDockWidgetArea);
    QRect const console = window.consoleDock()->geometry();
    QVERIFY(window.screenManagerDock()->geometry().bottom() > console.top());
    QVERIFY(window.propertyEditorDock()->geometry().bottom() > console.top());
    QVERIFY(window.screenTreeDock()->geometry().right() < console.left());
    QVERIFY(window.toolBoxDock()->geometry().left() > console.right());
    // Each side is a pair, one above the other.
    QVERIFY(window.screenTreeDock()->geometry().bottom()
            < window.screenManagerDock()->geometry().top());
    QVERIFY(window.toolBoxDock()->geometry().bottom()
            < window.propertyEditorDock()->geometry().top());
}

void tst_TesseraWindow::statusText()
{
    TesseraWindow &window = makeWindow();
    window.setStatusText("Hold Shift to move along one axis");
    QCOMPARE(window.statusBar()->statusTip(), QString("Hold Shift to move along one axis"));
    QCOMPARE(window.statusBar()->currentMessage(), QString());
    QVERIFY(window.statusBar()->isSizeGripEnabled());
}

void tst_TesseraWindow::consoleToggle()
{
    TesseraWindow &window = makeWindow();
    QAction *toggle = entry(window.windowMenu(), "Console");
    QVERIFY(toggle);
    QVERIFY(toggle->isChecked());

    clickMenuEntry(window, window.windowMenu(), toggle);
    QTRY_VERIFY(!window.consoleDock()->isVisible());
    QVERIFY(!toggle->isChecked());

    clickMenuEntry(window, window.windowMenu(), toggle);
    QTRY_VERIFY(window.consoleDock()->isVisible());
    QVERIFY(toggle->isChecked());
}

void tst_TesseraWindow::commandsReachCore()
{
    TesseraWindow &window = makeWindow();

    ModalAnswerer answers({"No", "No", "No"});
    QTest::mouseClick(window.toolBar()->widgetForAction(window.toolBar()->actions().first()),
                      Qt::LeftButton);
    clickMenuEntry(window, window.fileMenu(), entry(window.fileMenu(), "New"));
    clickMenuEntry(window, window.fileMenu(), entry(window.fileMenu(), "Exit"));
    QCOMPARE(answers.seen, QStringList({"Create New Design | Create New Design? | ",
                                        "Create New Design | Create New Design? | ",
                                        "Confirm Exit | Exit Tessera? | "}));
    // Refused everywhere: the window stays.
    QVERIFY(window.isVisible());
}

void tst_TesseraWindow::stateSavedAndRestored()
{
    RecordingHandler recorder(EVM_GLOBALSTATE);
    TesseraWindow &first = makeWindow();
    // A user's arrangement: the console moved to the top, the tool box over to the left, the
    // window made smaller.
    first.addDockWidget(Qt::TopDockWidgetArea, first.consoleDock());
    first.addDockWidget(Qt::LeftDockWidgetArea, first.toolBoxDock());
    first.resize(first.width() - 100, first.height() - 50);
    QSize const arranged = first.size();

    first.saveState();
    QCOMPARE(recorder.types(), QList<unsigned long long>({EVT_GLOBALSTATE_SAVE_UI}));
    // Qt's own bytes, as written: the state with version 1.
    QCOMPARE(readAll(stateFile("mainwindow.state")), first.QMainWindow::saveState(1));
    QCOMPARE(readAll(stateFile("mainwindow.geom")), first.saveGeometry());
    deleteWindow();

    recorder.clear();
    TesseraWindow &second = makeWindow();
    QCOMPARE(second.dockWidgetArea(second.consoleDock()), Qt::BottomDockWidgetArea);
    second.loadState();
    QCOMPARE(recorder.types(), QList<unsigned long long>({EVT_GLOBALSTATE_LOAD_UI}));
    QCOMPARE(second.dockWidgetArea(second.consoleDock()), Qt::TopDockWidgetArea);
    QCOMPARE(second.dockWidgetArea(second.toolBoxDock()), Qt::LeftDockWidgetArea);
    QCOMPARE(second.dockWidgetArea(second.propertyEditorDock()), Qt::RightDockWidgetArea);
    QTRY_COMPARE(second.size(), arranged);
}

void tst_TesseraWindow::firstRunWithoutFiles()
{
    RecordingHandler recorder(EVM_GLOBALSTATE);
    TesseraWindow &window = makeWindow();
    QByteArray const before = window.QMainWindow::saveState(1);
    window.loadState();
    // Nothing to restore, and the event goes out all the same.
    QCOMPARE(recorder.types(), QList<unsigned long long>({EVT_GLOBALSTATE_LOAD_UI}));
    QCOMPARE(window.QMainWindow::saveState(1), before);

    // A damaged file is refused the same way.
    QFile garbage(stateFile("mainwindow.state"));
    QVERIFY(garbage.open(QIODevice::WriteOnly));
    garbage.write("not a state");
    garbage.close();
    window.loadState();
    QCOMPARE(window.QMainWindow::saveState(1), before);
}

void tst_TesseraWindow::resetWindowsRestoresConstructionLayout()
{
    TesseraWindow &first = makeWindow();
    QSize const constructed = first.size();
    first.addDockWidget(Qt::TopDockWidgetArea, first.consoleDock());
    first.resize(constructed - QSize(120, 80));
    first.saveState();
    deleteWindow();
    QByteArray const savedState = readAll(stateFile("mainwindow.state"));
    QByteArray const savedGeometry = readAll(stateFile("mainwindow.geom"));

    TesseraWindow &window = makeWindow();
    window.loadState();
    QCOMPARE(window.dockWidgetArea(window.consoleDock()), Qt::TopDockWidgetArea);
    window.toolBoxDock()->setFloating(true);

    RecordingHandler recorder(EVM_GLOBALSTATE);
    clickMenuEntry(window, window.windowMenu(), entry(window.windowMenu(), "Reset Windows"));
    QCOMPARE(recorder.types(), QList<unsigned long long>({EVT_GLOBALSTATE_RESET_UI}));
    // The layout of construction, not the one loaded from the files.
    QCOMPARE(window.dockWidgetArea(window.consoleDock()), Qt::BottomDockWidgetArea);
    QVERIFY(!window.toolBoxDock()->isFloating());
    QCOMPARE(window.dockWidgetArea(window.toolBoxDock()), Qt::RightDockWidgetArea);
    QTRY_COMPARE(window.size(), constructed);
    // The files wait for the next save.
    QCOMPARE(readAll(stateFile("mainwindow.state")), savedState);
    QCOMPARE(readAll(stateFile("mainwindow.geom")), savedGeometry);
}

void tst_TesseraWindow::titleEvents_data()
{
    QTest::addColumn<quint64>("type");
    QTest::addColumn<quint64>("mask");
    QTest::addColumn<bool>("rebuilds");

    QTest::newRow("request reset")
        << quint64(EVT_PROJECT_REQUEST_RESET) << quint64(EVM_PROJECT) << true;
    QTest::newRow("request blank")
        << quint64(EVT_PROJECT_REQUEST_BLANK) << quint64(EVM_PROJECT) << true;
    QTest::newRow("loaded") << quint64(EVT_PROJECT_LOADED) << quint64(EVM_PROJECT) << true;
    QTest::newRow("current file") << quint64(EVT_PROJECT_CURRENTFILECHANGED) << quint64(EVM_PROJECT)
                                  << true;
    QTest::newRow("dirty") << quint64(EVT_GLOBALSTATE_DIRTY_CHANGED) << quint64(EVM_GLOBALSTATE)
                           << true;
    // Close relatives that leave the title alone.
    QTest::newRow("new") << quint64(EVT_PROJECT_NEW) << quint64(EVM_PROJECT) << false;
    QTest::newRow("post blank") << quint64(EVT_PROJECT_POSTBLANK) << quint64(EVM_PROJECT) << false;
    QTest::newRow("request clean")
        << quint64(EVT_GLOBALSTATE_REQUEST_CLEAN) << quint64(EVM_GLOBALSTATE) << false;
    // The right type under a mask the window does not take.
    QTest::newRow("foreign mask") << quint64(EVT_PROJECT_LOADED) << quint64(EVM_SCREEN) << false;
}

void tst_TesseraWindow::titleEvents()
{
    QFETCH(quint64, type);
    QFETCH(quint64, mask);
    QFETCH(bool, rebuilds);

    TesseraWindow &window = makeWindow();
    window.setWindowTitle("stale");
    if (type == EVT_GLOBALSTATE_DIRTY_CHANGED)
        announceDirty(false);
    else
        EventBus::i().raiseEventNow(QSharedPointer<Event>::create(type, mask));
    QCOMPARE(window.windowTitle(), rebuilds ? BaseTitle : QString("stale"));
}

void tst_TesseraWindow::titleFollowsDirtyFlag()
{
    TesseraWindow &window = makeWindow();
    QCOMPARE(window.windowTitle(), BaseTitle);

    GlobalState::i().setDirty(true);
    QCOMPARE(window.windowTitle(), BaseTitle + "*");
    // A new base shows at once, the star kept behind it without a blank.
    window.setBaseTitle("Panel Studio");
    QCOMPARE(window.windowTitle(), QString("Panel Studio*"));
    GlobalState::i().setDirty(false);
    QCOMPARE(window.windowTitle(), QString("Panel Studio"));

    // The flag is what counts, not the event's payload.
    GlobalState::i().setDirty(true);
    announceDirty(false);
    QCOMPARE(window.windowTitle(), QString("Panel Studio*"));
    GlobalState::i().setDirty(false);

    // End to end through the event stream: a session value is untracked, so only its change
    // event marks the project; the clean request that ends a load or a blank takes the star
    // away. Both flag changes are raised inside a delivery and reach the window with the next
    // pump.
    QVERIFY(GlobalState::i().setString(GlobalPropertyType::Session, 9, "/projects"));
    QTRY_COMPARE(window.windowTitle(), QString("Panel Studio*"));
    EventBus::i().raiseEventNow(
        QSharedPointer<Event>::create(EVT_GLOBALSTATE_REQUEST_CLEAN, EVM_GLOBALSTATE));
    QTRY_COMPARE(window.windowTitle(), QString("Panel Studio"));
}

void tst_TesseraWindow::titleNamesTheCurrentFile()
{
    TesseraWindow &window = makeWindow();
    DataManager data;
    QString const path = QDir::current().absoluteFilePath("titled.zip");

    // The save names its file and leaves the project clean.
    QCOMPARE(data.saveAs("titled.zip"), unsigned(DataResultDone));
    QCOMPARE(window.windowTitle(), BaseTitle + " : " + path);
    GlobalState::i().setDirty(true);
    QCOMPARE(window.windowTitle(), BaseTitle + " : " + path + "*");

    // A new design has no file; its clean request takes the star away on the bus's next turn.
    data.newDesign();
    QCOMPARE(window.windowTitle(), BaseTitle + "*");
    QTRY_COMPARE(window.windowTitle(), BaseTitle);
    QFile::remove(path);
}

void tst_TesseraWindow::closeButtonAnsweredNo()
{
    TesseraWindow &window = makeWindow();
    Log::i().setLevel(LogLevel::Debug);
    QStringList const before = consoleLines();

    ModalAnswerer answers({"No"});
    QVERIFY(!window.close());
    QCOMPARE(answers.seen, QStringList({"Confirm Exit | Exit Tessera? | "}));
    QVERIFY(window.isVisible());
    // Declined: not a line more.
    QCOMPARE(consoleLines(), before);
}

void tst_TesseraWindow::closeButtonAnsweredYes()
{
    TesseraWindow &window = makeWindow();
    Log::i().setLevel(LogLevel::Debug);

    ModalAnswerer answers({"Yes"});
    bool closed = true;
    // The run ends through Core, whose exit ends the event loop.
    QCOMPARE(runUntilExit([&] { closed = window.close(); }), 0);
    QCOMPARE(answers.seen, QStringList({"Confirm Exit | Exit Tessera? | "}));
    QVERIFY(!closed); // the close event itself is never accepted
    QVERIFY(!window.isVisible());
    QStringList const lines = consoleLines();
    QVERIFY(lines.size() >= 2);
    QCOMPARE(lines.mid(lines.size() - 2),
             QStringList({" : Shutting down...", "[Main Window]<Info> : Closing main window."}));
}

QTEST_MAIN(tst_TesseraWindow)
#include "tst_TesseraWindow.moc"
