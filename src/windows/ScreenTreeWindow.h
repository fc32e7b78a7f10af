// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QWidget>

namespace TES {

// The content of the "Screen Tree" dock: the object tree of the active screen with its tool
// bar. It is an empty frame that holds the dock's place.
//
// Created by TesseraWindow, owned by its dock.
class TES_EXPORT ScreenTreeWindow : public QWidget
{
    Q_OBJECT

public:
    explicit ScreenTreeWindow(QWidget *parent = nullptr);
    ~ScreenTreeWindow() override;

    static ScreenTreeWindow &i();
    static ScreenTreeWindow *ip();

    static ScreenTreeWindow *_instance;
};

} // namespace TES
