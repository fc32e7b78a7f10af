// SPDX-License-Identifier: MIT
#include "widgets/PluginDialog.h"

#include "services/HostConstants.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QSplitter>
#include <QVBoxLayout>

namespace TES {

PluginDialog::PluginDialog(std::vector<PluginDescriptor> plugins)
    : QDialog(nullptr), _plugins(std::move(plugins))
{
    setWindowTitle("Framework Selection");
    setWindowIcon(QIcon(HostConstants::IconApplication));
    setFixedSize(780, 480);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);

    auto *layout = new QVBoxLayout(this);
    auto *splitter = new QSplitter(this);
    _buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    layout->addWidget(splitter);
    layout->addWidget(_buttonBox);

    _listWidget = new QListWidget(splitter);
    _listWidget->setSelectionBehavior(QAbstractItemView::SelectRows);
    _listWidget->setSelectionMode(QAbstractItemView::SingleSelection);

    auto *details = new QWidget(splitter);
    auto *detailsLayout = new QVBoxLayout(details);
    detailsLayout->setContentsMargins(0, 0, 0, 0);
    auto *row = new QHBoxLayout();
    row->setSpacing(20);
    detailsLayout->addLayout(row);
    _imageLabel = new QLabel(details);
    _imageLabel->setFixedSize(100, 100);
    _textLabel = new QLabel(details);
    _textLabel->setWordWrap(true);
    _textLabel->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    row->addWidget(_imageLabel);
    row->addWidget(_textLabel);

    splitter->addWidget(_listWidget);
    splitter->addWidget(details);
    splitter->setSizes({260, 520});

    connect(_buttonBox, &QDialogButtonBox::accepted, this, &PluginDialog::_accept);
    connect(_listWidget, &QListWidget::itemSelectionChanged, this,
            &PluginDialog::_selectionChanged);

    for (PluginDescriptor const &plugin : _plugins)
        _listWidget->addItem(plugin.title);
    if (_listWidget->count() > 0)
        _listWidget->item(0)->setSelected(true);
}

int PluginDialog::selectedIndex() const
{
    return _selectedIndex;
}

void PluginDialog::_accept()
{
    _selectedIndex = _selectedRow();
    accept();
}

void PluginDialog::_selectionChanged()
{
    int const row = _selectedRow();
    if (row < 0 || row >= int(_plugins.size()))
        return;
    PluginDescriptor const &plugin = _plugins[std::size_t(row)];
    _imageLabel->setPixmap(
        QPixmap::fromImage(plugin.image).scaled(100, 100, Qt::KeepAspectRatioByExpanding));
    _textLabel->setText(plugin.description);
}

int PluginDialog::_selectedRow() const
{
    QList<QListWidgetItem *> const selected = _listWidget->selectedItems();
    return selected.isEmpty() ? -1 : _listWidget->row(selected.first());
}

} // namespace TES
