#pragma once

#include "tessera_export.h"

#include <QWidget>

namespace TES {

// The content of the "Screen Tree" dock: the object tree of the active screen with its tool
// bar. For now an empty frame that holds the dock's place; the tree comes with the scene model.
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
