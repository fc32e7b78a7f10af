// SPDX-License-Identifier: MIT
#include "windows/ScreenManagerWindow.h"

#include <QLabel>
#include <QToolBar>
#include <QVBoxLayout>
#include <QtTest>

using namespace TES;

class tst_ScreenManagerWindow : public QObject
{
    Q_OBJECT

private slots:
    void emptyFrameForAPlugin();
};

void tst_ScreenManagerWindow::emptyFrameForAPlugin()
{
    ScreenManagerWindow window(nullptr);
    auto *outer = qobject_cast<QVBoxLayout *>(window.layout());
    QVERIFY(outer);
    QCOMPARE(outer->contentsMargins(), QMargins());
    QCOMPARE(outer->menuBar(), window.toolBar());
    QCOMPARE(outer->count(), 1);
    QCOMPARE(outer->itemAt(0)->widget(), window.container());
    // The host leaves both empty.
    QVERIFY(window.toolBar()->actions().isEmpty());
    auto *inner = qobject_cast<QVBoxLayout *>(window.container()->layout());
    QVERIFY(inner);
    QCOMPARE(inner->count(), 0);
    QCOMPARE(inner->contentsMargins(), QMargins());
    QCOMPARE(inner->spacing(), 0);
    // What a plug-in puts in shows below the tool bar.
    window.toolBar()->addAction("Add Screen");
    auto *list = new QLabel("screens");
    inner->addWidget(list);
    window.resize(200, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(list->isVisible());
    QVERIFY(list->mapTo(&window, QPoint()).y() >= window.toolBar()->geometry().bottom());
}

QTEST_MAIN(tst_ScreenManagerWindow)
#include "tst_ScreenManagerWindow.moc"
