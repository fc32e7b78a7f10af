// SPDX-License-Identifier: MIT
#include "windows/PropertyEditorWindow.h"

namespace TES {

PropertyEditorWindow *PropertyEditorWindow::_instance = nullptr;

PropertyEditorWindow::PropertyEditorWindow(QWidget *parent) : QWidget(parent)
{
    _instance = this;
}

PropertyEditorWindow::~PropertyEditorWindow()
{
    _instance = nullptr;
}

PropertyEditorWindow &PropertyEditorWindow::i()
{
    return *_instance;
}

PropertyEditorWindow *PropertyEditorWindow::ip()
{
    return _instance;
}

} // namespace TES
