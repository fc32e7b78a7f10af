// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QWidget>

class QToolBar;

namespace TES {

// The content of the "Screens" dock: an empty frame of a tool bar above a container, which a
// plug-in fills with its own screen list and actions. The host puts nothing in either.
//
// Created by TesseraWindow, owned by its dock. Takes no events.
class TES_EXPORT ScreenManagerWindow : public QWidget
{
    Q_OBJECT

public:
    explicit ScreenManagerWindow(QWidget *parent = nullptr);
    ~ScreenManagerWindow() override;

    static ScreenManagerWindow &i();
    static ScreenManagerWindow *ip();

    // Sits above the container, empty until a plug-in adds actions.
    QToolBar *toolBar() const;
    // Carries a QVBoxLayout without margins or spacing, for the plug-in's widgets.
    QWidget *container() const;

    static ScreenManagerWindow *_instance;

private:
    QToolBar *_toolBar = nullptr;
    QWidget *_container = nullptr;
};

} // namespace TES
