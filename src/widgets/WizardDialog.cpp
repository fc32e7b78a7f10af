// SPDX-License-Identifier: MIT
#include "widgets/WizardDialog.h"

#include "services/HostConstants.h"
#include "services/Utils.h"
#include "widgets/HelpViewDialog.h"
#include "widgets/WizardDialogModel.h"
#include "widgets/WizardPanel.h"

#include <QFormLayout>
#include <QFrame>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace TES {

namespace {

QFrame *horizontalLine()
{
    auto *line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    return line;
}

} // namespace

WizardDialog::WizardDialog()
    : _splitter(new QSplitter(Qt::Horizontal))
    , _titleLabel(new QLabel("Current Step"))
    , _panelContainer(new QWidget)
    , _stepsLayout(new QFormLayout)
    , _logoLabel(new QLabel)
    , _messageLabel(new QLabel(" "))
    , _helpButton(new QPushButton("Help"))
    , _backButton(new QPushButton("Back"))
    , _nextButton(new QPushButton("Next"))
{
    resize(700, 470);
    setSizeGripEnabled(true);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);

    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 10, 10);
    _splitter->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    outer->addWidget(_splitter);

    auto *left = new QWidget;
    left->setAutoFillBackground(true);
    left->setBackgroundRole(QPalette::Base);
    auto *leftLayout = new QVBoxLayout(left);
    leftLayout->setSpacing(8);
    leftLayout->setContentsMargins(10, 10, 10, 10);
    leftLayout->addWidget(new QLabel("Steps"));
    QFrame *leftLine = horizontalLine();
    leftLine->setAutoFillBackground(true);
    leftLine->setBackgroundRole(QPalette::Base);
    leftLayout->addWidget(leftLine);
    auto *steps = new QWidget;
    steps->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    steps->setLayout(_stepsLayout);
    leftLayout->addWidget(steps);
    _logoLabel->setPixmap(QPixmap(HostConstants::IconApplicationLarge));
    _logoLabel->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    _logoLabel->setAlignment(Qt::AlignCenter);
    _logoLabel->setAutoFillBackground(true);
    auto *opacity = new QGraphicsOpacityEffect(_logoLabel);
    opacity->setOpacity(0.35);
    _logoLabel->setGraphicsEffect(opacity);
    leftLayout->addWidget(_logoLabel);
    _splitter->addWidget(left);

    auto *right = new QWidget;
    auto *rightLayout = new QVBoxLayout(right);
    rightLayout->setSpacing(8);
    rightLayout->setContentsMargins(10, 10, 0, 10);
    rightLayout->addWidget(_titleLabel);
    rightLayout->addWidget(horizontalLine());
    auto *containerLayout = new QVBoxLayout(_panelContainer);
    containerLayout->setContentsMargins(0, 0, 0, 0);
    containerLayout->setSpacing(0);
    _panelContainer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    rightLayout->addWidget(_panelContainer);
    _messageLabel->setWordWrap(true);
    rightLayout->addWidget(_messageLabel);
    _splitter->addWidget(right);
    _splitter->setSizes({200, 500});

    outer->addWidget(horizontalLine());
    auto *buttonRow = new QWidget;
    buttonRow->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    auto *buttons = new QHBoxLayout(buttonRow);
    buttons->setContentsMargins(10, 0, 0, 0);
    buttons->addWidget(_helpButton);
    buttons->addSpacerItem(new QSpacerItem(1, 1, QSizePolicy::Expanding, QSizePolicy::Minimum));
    buttons->addWidget(_backButton);
    buttons->addWidget(_nextButton);
    outer->addWidget(buttonRow);
    for (QPushButton *button : {_helpButton, _backButton, _nextButton})
        button->setEnabled(false);
    connect(_helpButton, &QPushButton::clicked, this, &WizardDialog::help);
    connect(_backButton, &QPushButton::clicked, this, &WizardDialog::previousPanel);
    connect(_nextButton, &QPushButton::clicked, this, &WizardDialog::nextPanel);
}

WizardDialog::~WizardDialog()
{
    // The model owns the panel on show: it must not go down with the container.
    if (_currentPanel)
        _currentPanel->setParent(nullptr);
}

WizardDialogModel *WizardDialog::getModel() const
{
    return _model;
}

void WizardDialog::setModel(WizardDialogModel *model)
{
    _model = model;
    Utils::ClearLayout(_panelContainer->layout(), false);
    if (!_model || _model->panelCount() == 0)
        return;
    int n = 1;
    for (WizardPanel *panel : _model->panels())
        _stepsLayout->addRow(new QLabel(QString::number(n++) + "."),
                             new QLabel(panel->panelName()));
    nextPanel();
}

void WizardDialog::nextPanel()
{
    if (!_model || _model->panelCount() == 0)
        return;
    int const i = _model->panelIndex(_currentPanel);
    int const n = _model->panelCount();
    if (i == n - 1)
        _finalize();
    else if (i < n)
        _setPanel(i + 1);
}

void WizardDialog::previousPanel()
{
    if (!_model || _model->panelCount() == 0)
        return;
    int const i = _model->panelIndex(_currentPanel);
    if (i >= 1)
        _setPanel(i - 1);
}

void WizardDialog::_setPanel(int index)
{
    if (!_model || _model->panelCount() == 0)
        return;
    if (_currentPanel) {
        Utils::ClearLayout(_panelContainer->layout(), false);
        _currentPanel->setParent(nullptr);
        _currentPanel->leavePanel();
        _currentPanel->_setWizard(nullptr);
        _currentPanel = nullptr;
    }
    WizardPanel *panel = _model->panelAt(static_cast<unsigned long>(index));
    if (!panel)
        return;
    _currentPanel = panel;
    panel->_setWizard(this);
    _titleLabel->setText(panel->panelTitle());
    _panelContainer->layout()->addWidget(panel);
    panel->show();

    for (int row = 0; row < _stepsLayout->rowCount(); ++row) {
        QLayoutItem *field = _stepsLayout->itemAt(row, QFormLayout::FieldRole);
        QLayoutItem *label = _stepsLayout->itemAt(row, QFormLayout::LabelRole);
        if (!field || !field->widget())
            continue;
        QFont font = field->widget()->font();
        font.setWeight(row == index ? 75 : 50);
        field->widget()->setFont(font);
        if (label && label->widget())
            label->widget()->setFont(font);
    }

    panel->enterPanel();
    panelUpdated(panel);
    _backButton->setEnabled(index >= 1);
    // Also after an error found on entry: Next is held only once the panel reports again.
    _nextButton->setEnabled(true);
    _nextButton->setText(index == _model->panelCount() - 1 ? "Finish" : "Next");
}

void WizardDialog::panelUpdated(WizardPanel *panel)
{
    if (!_model || _model->panelIndex(panel) < 0)
        return;
    _nextButton->setEnabled(true);
    WizardPanelStatus status;
    if (panel->validate(status)) {
        _messageLabel->setText(" ");
    } else {
        _messageLabel->setText(status.message);
        if (status.isError)
            _nextButton->setEnabled(false);
        QPalette palette = _messageLabel->palette();
        palette.setBrush(QPalette::All, QPalette::WindowText,
                         QBrush(status.isError ? Qt::red : Qt::black));
        _messageLabel->setPalette(palette);
    }
    _helpButton->setEnabled(_currentPanel && !_currentPanel->helpText().isEmpty());
}

void WizardDialog::_finalize()
{
    for (WizardPanel *panel : _model->panels())
        panel->finalizePanel();
    _finished = true;
    setVisible(false);
}

bool WizardDialog::finished() const
{
    return _finished;
}

void WizardDialog::help()
{
    if (!_model || !_currentPanel)
        return;
    HelpViewDialog dialog;
    dialog.setWindowTitle(_currentPanel->helpTitle());
    dialog.setText(_currentPanel->helpText());
    dialog.exec();
}

} // namespace TES
