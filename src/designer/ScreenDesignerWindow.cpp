// SPDX-License-Identifier: MIT
#include "designer/ScreenDesignerWindow.h"

namespace TES {

ScreenDesignerWindow *ScreenDesignerWindow::_instance = nullptr;

ScreenDesignerWindow::ScreenDesignerWindow(QWidget *parent) : QWidget(parent)
{
    _instance = this;
}

ScreenDesignerWindow::~ScreenDesignerWindow()
{
    _instance = nullptr;
}

ScreenDesignerWindow &ScreenDesignerWindow::i()
{
    return *_instance;
}

ScreenDesignerWindow *ScreenDesignerWindow::ip()
{
    return _instance;
}

} // namespace TES
