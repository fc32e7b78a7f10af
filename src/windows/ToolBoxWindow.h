// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QWidget>

namespace TES {

// The content of the "Tool Box" dock: the categories of object types that a plug-in offers.
// It is an empty frame that holds the dock's place.
//
// Created by TesseraWindow, owned by its dock.
class TES_EXPORT ToolBoxWindow : public QWidget
{
    Q_OBJECT

public:
    explicit ToolBoxWindow(QWidget *parent = nullptr);
    ~ToolBoxWindow() override;

    static ToolBoxWindow &i();
    static ToolBoxWindow *ip();

    static ToolBoxWindow *_instance;
};

} // namespace TES
