// SPDX-License-Identifier: MIT
#include "windows/ScreenTreeWindow.h"

namespace TES {

ScreenTreeWindow *ScreenTreeWindow::_instance = nullptr;

ScreenTreeWindow::ScreenTreeWindow(QWidget *parent) : QWidget(parent)
{
    _instance = this;
}

ScreenTreeWindow::~ScreenTreeWindow()
{
    _instance = nullptr;
}

ScreenTreeWindow &ScreenTreeWindow::i()
{
    return *_instance;
}

ScreenTreeWindow *ScreenTreeWindow::ip()
{
    return _instance;
}

} // namespace TES
