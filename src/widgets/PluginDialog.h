// SPDX-License-Identifier: MIT
#pragma once

#include "services/PluginDescriptor.h"
#include "tessera_export.h"

#include <QDialog>

#include <vector>

class QDialogButtonBox;
class QLabel;
class QListWidget;

namespace TES {

// "Framework Selection": the modal chooser that Core runs when more than one plug-in is
// found. A list of the plug-ins' titles on the left, the selected one's picture and
// description on the right, and an Ok button only: the user refuses by closing the dialog.
//
// Core creates it on the stack with a copy of the discovered list, runs exec() and reads
// selectedIndex() after an accepted run.
class TES_EXPORT PluginDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PluginDialog(std::vector<PluginDescriptor> plugins);

    // The list row that was selected when Ok was clicked; -1 before that, or when Ok was
    // clicked with no row selected.
    int selectedIndex() const;

private slots:
    void _accept();
    void _selectionChanged();

private:
    int _selectedRow() const;

    QListWidget *_listWidget = nullptr;
    QDialogButtonBox *_buttonBox = nullptr;
    QLabel *_imageLabel = nullptr;
    QLabel *_textLabel = nullptr;
    std::vector<PluginDescriptor> _plugins;
    int _selectedIndex = -1;
};

} // namespace TES
