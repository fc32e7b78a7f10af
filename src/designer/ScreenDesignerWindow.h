#pragma once

#include "tessera_export.h"

#include <QWidget>

namespace TES {

// The central widget of the main window: the tabs of the open screens above the design
// surface. For now an empty frame that holds the centre; the surface and its overlays come
// with the tools.
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
