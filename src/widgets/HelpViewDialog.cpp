// SPDX-License-Identifier: MIT
#include "widgets/HelpViewDialog.h"

#include "services/HostConstants.h"

#include <QDialogButtonBox>
#include <QIcon>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

namespace TES {

HelpViewDialog::HelpViewDialog() : HelpViewDialog(QString()) {}

HelpViewDialog::HelpViewDialog(const QString &text)
{
    setWindowTitle(QStringLiteral("Help Viewer"));
    setWindowIcon(QIcon(HostConstants::IconApplication));
    setFixedSize(785, 606);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);

    auto *layout = new QVBoxLayout(this);
    _textEdit = new QTextEdit(this);
    _textEdit->setReadOnly(true);
    _textEdit->setText(text);
    layout->addWidget(_textEdit);

    _buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok, Qt::Horizontal, this);
    QPushButton *ok = _buttonBox->button(QDialogButtonBox::Ok);
    ok->setIcon(QIcon());
    ok->setText(QStringLiteral("OK"));
    layout->addWidget(_buttonBox);
    ok->setFocus();

    connect(_buttonBox, &QDialogButtonBox::accepted, this, &HelpViewDialog::_accept);
}

HelpViewDialog::~HelpViewDialog() = default;

void HelpViewDialog::setText(const QString &text)
{
    _textEdit->setText(text);
}

void HelpViewDialog::_accept()
{
    accept();
}

} // namespace TES
