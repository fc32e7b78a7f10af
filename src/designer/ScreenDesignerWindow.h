// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "services/Singleton.h"
#include "tessera_export.h"

#include <QUuid>
#include <QWidget>

class QTabBar;

namespace TES {

class ScreenDesignArea;

// The central widget of the main window: a tab bar with one tab for each visible screen
// (closable, movable; its data the screen's id, its text the screen's name) above the design
// surface. Choosing a tab makes its screen active; closing one hides its screen.
//
// Created by TesseraWindow as its central widget and owned by it. A persistent handler on the
// bus: it follows loads, blanking, renames, the active screen and the visible set, and
// repaints the surface when a screen asks for it or a scene changes.
class TES_EXPORT ScreenDesignerWindow : public QWidget,
                                        public IEventHandler,
                                        public Singleton<ScreenDesignerWindow>
{
    Q_OBJECT

public:
    explicit ScreenDesignerWindow(QWidget *parent = nullptr);
    ~ScreenDesignerWindow() override;

    // The design surface of the instance; null without one.
    static ScreenDesignArea *DesignArea();

    ScreenDesignArea *screenDesignArea() const;
    QTabBar *tabBar() const;

    // "ScreenDesignerWindow".
    QString getEventHandlerName() const override;
    // EVM_PROJECT, EVM_SCREEN, EVM_SCENE and EVM_SELECT.
    bool canHandleEvent(unsigned long long mask) const override;
    void handleEvent(QSharedPointer<Event> event) override;
    bool persistent() const override;

public slots:
    // The current tab's screen, or none, becomes the active screen.
    void tabChanged(int index);

private slots:
    // Hides the tab's screen and activates the screen of the tab then current.
    void _closeTab(int index);

private:
    int _screenTabIndex(QUuid const &id) const;
    int _tabIndexByName(QString const &name) const;
    void _addTab(QUuid const &id);
    void _removeAllTabs();

    QTabBar *_tabBar = nullptr;
    ScreenDesignArea *_designArea = nullptr;
};

template<>
TES_EXPORT ScreenDesignerWindow *Singleton<ScreenDesignerWindow>::_instance;

} // namespace TES
