// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QWidget>

namespace TES {

// The content of the "Object Editor" dock: the property view of the selection or of the
// active screen. It is an empty frame that holds the dock's place.
//
// Created by TesseraWindow, owned by its dock.
class TES_EXPORT PropertyEditorWindow : public QWidget
{
    Q_OBJECT

public:
    explicit PropertyEditorWindow(QWidget *parent = nullptr);
    ~PropertyEditorWindow() override;

    static PropertyEditorWindow &i();
    static PropertyEditorWindow *ip();

    static PropertyEditorWindow *_instance;
};

} // namespace TES
