// SPDX-License-Identifier: MIT
#include "windows/ScreenManagerWindow.h"

#include <QToolBar>
#include <QVBoxLayout>

namespace TES {

ScreenManagerWindow *ScreenManagerWindow::_instance = nullptr;

ScreenManagerWindow::ScreenManagerWindow(QWidget *parent) : QWidget(parent)
{
    _instance = this;

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);

    _toolBar = new QToolBar(this);
    _container = new QWidget(this);
    auto *containerLayout = new QVBoxLayout(_container);
    containerLayout->setContentsMargins(0, 0, 0, 0);
    containerLayout->setSpacing(0);

    layout->setMenuBar(_toolBar);
    layout->addWidget(_container);
}

ScreenManagerWindow::~ScreenManagerWindow()
{
    _instance = nullptr;
}

ScreenManagerWindow &ScreenManagerWindow::i()
{
    return *_instance;
}

ScreenManagerWindow *ScreenManagerWindow::ip()
{
    return _instance;
}

QToolBar *ScreenManagerWindow::toolBar() const
{
    return _toolBar;
}

QWidget *ScreenManagerWindow::container() const
{
    return _container;
}

} // namespace TES
