// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QWidget>

namespace TES {

// The central widget of the main window, the place of the tabs of the open screens and the
// design surface. It is an empty frame that holds the centre.
//
// Created by TesseraWindow as its central widget and owned by it.
class TES_EXPORT ScreenDesignerWindow : public QWidget
{
    Q_OBJECT

public:
    explicit ScreenDesignerWindow(QWidget *parent = nullptr);
    ~ScreenDesignerWindow() override;

    static ScreenDesignerWindow &i();
    static ScreenDesignerWindow *ip();

    static ScreenDesignerWindow *_instance;
};

} // namespace TES
