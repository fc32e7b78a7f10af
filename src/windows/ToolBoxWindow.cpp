// SPDX-License-Identifier: MIT
#include "windows/ToolBoxWindow.h"

namespace TES {

ToolBoxWindow *ToolBoxWindow::_instance = nullptr;

ToolBoxWindow::ToolBoxWindow(QWidget *parent) : QWidget(parent)
{
    _instance = this;
}

ToolBoxWindow::~ToolBoxWindow()
{
    _instance = nullptr;
}

ToolBoxWindow &ToolBoxWindow::i()
{
    return *_instance;
}

ToolBoxWindow *ToolBoxWindow::ip()
{
    return _instance;
}

} // namespace TES
