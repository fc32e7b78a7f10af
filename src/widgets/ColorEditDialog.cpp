// SPDX-License-Identifier: MIT
#include "widgets/ColorEditDialog.h"

#include "services/HostConstants.h"
#include "widgets/ColorButton.h"
#include "widgets/ColorDisplay.h"
#include "widgets/ColorSlider.h"
#include "widgets/ColorWheel.h"
#include "widgets/HexSpinBox.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace TES {

namespace {

constexpr int PaletteRows = 6;
constexpr int PaletteColumns = 8;

// Red, green, blue by row and column. Row 5, column 2 breaks its column's pattern; it stays.
constexpr int Palette[PaletteRows][PaletteColumns][3] = {
    {{255, 255, 255},
     {255, 192, 192},
     {255, 224, 192},
     {255, 255, 192},
     {192, 255, 192},
     {192, 255, 255},
     {192, 192, 255},
     {255, 192, 255}},
    {{224, 224, 224},
     {255, 128, 128},
     {255, 192, 128},
     {255, 255, 128},
     {128, 255, 128},
     {128, 255, 255},
     {128, 128, 255},
     {255, 128, 255}},
    {{192, 192, 192},
     {255, 0, 0},
     {255, 128, 0},
     {255, 255, 0},
     {0, 255, 0},
     {0, 255, 255},
     {0, 0, 255},
     {255, 0, 255}},
    {{128, 128, 128},
     {192, 0, 0},
     {192, 64, 0},
     {192, 192, 0},
     {0, 192, 0},
     {0, 192, 192},
     {0, 0, 192},
     {192, 0, 192}},
    {{64, 64, 64},
     {128, 0, 0},
     {128, 64, 0},
     {128, 128, 0},
     {0, 128, 0},
     {0, 128, 128},
     {0, 0, 128},
     {128, 0, 128}},
    {{0, 0, 0},
     {64, 0, 0},
     {128, 64, 64},
     {64, 64, 0},
     {0, 64, 0},
     {0, 64, 64},
     {0, 0, 64},
     {64, 0, 64}},
};

QWidget *column(QSizePolicy::Policy policy)
{
    auto *widget = new QWidget();
    widget->setSizePolicy(policy, policy);
    auto *layout = new QVBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    return widget;
}

QSpinBox *spinner(uint32_t maximum)
{
    auto *spin = new QSpinBox();
    spin->setRange(0, static_cast<int>(maximum));
    return spin;
}

int asInt(unsigned int channel)
{
    return static_cast<int>(channel);
}

} // namespace

ColorEditDialog::ColorEditDialog(const QColor &color, ColorWheelMode mode) : _mode(mode)
{
    _initUI(color, mode);
}

void ColorEditDialog::_initUI(const QColor &color, ColorWheelMode mode)
{
    setWindowTitle(QStringLiteral("Color Editor (") + ColorWheelColor::Name(mode)
                   + QStringLiteral(")"));
    setWindowIcon(QIcon(QString::fromLatin1(HostConstants::IconApplication)));
    setFixedSize(785, 606);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);

    auto *top = new QWidget();
    auto *columns = new QHBoxLayout(top);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(_buildLeftColumn());
    columns->addWidget(_buildRightColumn());

    _buttonBox = new QDialogButtonBox();
    _buttonBox->setObjectName(QStringLiteral("buttonBox"));
    _buttonBox->setGeometry(QRect(30, 240, 341, 32));
    _buttonBox->setOrientation(Qt::Horizontal);
    _buttonBox->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton *ok = _buttonBox->button(QDialogButtonBox::Ok);
    QPushButton *cancel = _buttonBox->button(QDialogButtonBox::Cancel);
    ok->setIcon(QIcon());
    ok->setText(QStringLiteral("OK"));
    cancel->setIcon(QIcon());
    cancel->setText(QStringLiteral("Cancel"));
    ok->setFocus();
    connect(_buttonBox, &QDialogButtonBox::accepted, this, &ColorEditDialog::_accept);
    connect(_buttonBox, &QDialogButtonBox::rejected, this, &ColorEditDialog::_reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(top);
    layout->addWidget(_buttonBox);

    _colorButtonSelected(color);
}

QWidget *ColorEditDialog::_buildLeftColumn()
{
    QWidget *left = column(QSizePolicy::Expanding);

    _hueGroup = new QGroupBox(QStringLiteral("Hue"));
    auto *hueLayout = new QVBoxLayout(_hueGroup);
    hueLayout->setSpacing(0);
    hueLayout->setContentsMargins(0, 0, 0, 0);
    _wheel = new ColorWheel();
    _wheel->setColorMode(_mode);
    _wheel->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    hueLayout->addWidget(_wheel);
    connect(_wheel, &ColorWheel::valueChanged, this, &ColorEditDialog::_colorWheelChanged);

    _brightnessGroup = new QGroupBox(QStringLiteral("Brightness"));
    _brightnessGroup->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto *brightnessLayout = new QVBoxLayout(_brightnessGroup);
    _slider = new ColorSlider();
    brightnessLayout->addWidget(_slider);
    connect(_slider, &ColorSlider::valueChanged, this, &ColorEditDialog::_colorSliderChanged);

    left->layout()->addWidget(_hueGroup);
    left->layout()->addWidget(_brightnessGroup);
    return left;
}

QWidget *ColorEditDialog::_buildRightColumn()
{
    QWidget *right = column(QSizePolicy::Preferred);

    _resultGroup = new QGroupBox(QStringLiteral("Result"));
    auto *resultLayout = new QVBoxLayout(_resultGroup);
    _display = new ColorDisplay();
    _display->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    resultLayout->addWidget(_display);

    _valuesGroup = new QGroupBox(QStringLiteral("Values"));
    _valuesGroup->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto *form = new QFormLayout(_valuesGroup);
    form->setHorizontalSpacing(20);
    _redSpinner = spinner(ColorWheelColor::RedMax(_mode));
    _greenSpinner = spinner(ColorWheelColor::GreenMax(_mode));
    _blueSpinner = spinner(ColorWheelColor::BlueMax(_mode));
    _alphaSpinner = spinner(ColorWheelColor::AlphaMax(_mode));
    _alphaSpinner->setEnabled(ColorWheelColor::IsAlpha(_mode));
    _hexEditor = new HexSpinBox();
    _hexEditor->setMaximum(ColorWheelColor::MaxRange(_mode));
    form->addRow(QStringLiteral("Red:"), _redSpinner);
    form->addRow(QStringLiteral("Green:"), _greenSpinner);
    form->addRow(QStringLiteral("Blue:"), _blueSpinner);
    form->addRow(QStringLiteral("Alpha:"), _alphaSpinner);
    form->addRow(QStringLiteral("Hexadecimal:"), _hexEditor);
    auto const changed = qOverload<int>(&QSpinBox::valueChanged);
    connect(_redSpinner, changed, this, &ColorEditDialog::_redSpinnerChanged);
    connect(_greenSpinner, changed, this, &ColorEditDialog::_greenSpinnerChanged);
    connect(_blueSpinner, changed, this, &ColorEditDialog::_blueSpinnerChanged);
    connect(_alphaSpinner, changed, this, &ColorEditDialog::_alphaSpinnerChanged);
    connect(_hexEditor, &HexSpinBox::valueChanged, this, &ColorEditDialog::_hexEditorChanged);

    _paletteGroup = new QGroupBox(QStringLiteral("Palette"));
    _paletteGroup->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto *grid = new QGridLayout(_paletteGroup);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    for (int row = 0; row < PaletteRows; ++row) {
        for (int col = 0; col < PaletteColumns; ++col) {
            int const *rgb = Palette[row][col];
            auto *button = new ColorButton(
                ColorWheelColor::PaintColor(QColor(rgb[0], rgb[1], rgb[2]), _mode));
            button->setSizeHint(QSize(22, 22));
            grid->addWidget(button, row, col);
            connect(button, &ColorButton::selected, this, &ColorEditDialog::_colorButtonSelected);
            _paletteButtons[col][row] = button;
        }
    }

    right->layout()->addWidget(_resultGroup);
    right->layout()->addWidget(_valuesGroup);
    right->layout()->addWidget(_paletteGroup);
    return right;
}

QColor ColorEditDialog::resultColor() const
{
    return _mixedColor();
}

QColor ColorEditDialog::_mixedColor() const
{
    QColor color = _wheel->getValue();
    float const value = _slider->getValue();
    float const alpha = static_cast<float>(_alphaSpinner->value()) / 255.0f;
    qreal hue = 0;
    qreal saturation = 0;
    qreal ignored = 0;
    color.getHsvF(&hue, &saturation, &ignored);
    color.setHsvF(hue, saturation, value, alpha);
    return ColorWheelColor::Normalize(color, _mode).toRgb();
}

QColor ColorEditDialog::_spinnerColor(int red, int green, int blue, int alpha) const
{
    return ColorWheelColor::Create(static_cast<unsigned int>(red), static_cast<unsigned int>(green),
                                   static_cast<unsigned int>(blue),
                                   static_cast<unsigned int>(alpha), _mode);
}

void ColorEditDialog::_showChannels(const QColor &color)
{
    _redSpinner->setValue(asInt(ColorWheelColor::Red(color, _mode)));
    _greenSpinner->setValue(asInt(ColorWheelColor::Green(color, _mode)));
    _blueSpinner->setValue(asInt(ColorWheelColor::Blue(color, _mode)));
}

void ColorEditDialog::_showOnWheelAndSlider(const QColor &color)
{
    _wheel->setValue(color, false);
    _slider->setValue(static_cast<float>(color.valueF()), false);
}

void ColorEditDialog::_colorButtonSelected(const QColor &color)
{
    _updateEnabled = false;
    _display->setColor(color);
    _showOnWheelAndSlider(color);
    _showChannels(color);
    _alphaSpinner->setValue(asInt(ColorWheelColor::Alpha(color, _mode)));
    _hexEditor->setValue(ColorWheelColor::Get(color, _mode));
    _updateEnabled = true;
}

void ColorEditDialog::_colorWheelChanged(const QColor &)
{
    // Here the guard goes up before the colour is read, in the slider's handler after.
    _updateEnabled = false;
    QColor const color = _mixedColor();
    _display->setColor(color);
    _slider->setValue(static_cast<float>(color.valueF()), false);
    _showChannels(color);
    _hexEditor->setValue(ColorWheelColor::Get(color, _mode));
    _updateEnabled = true;
}

void ColorEditDialog::_colorSliderChanged(float)
{
    QColor const color = _mixedColor();
    _updateEnabled = false;
    _display->setColor(color);
    _showChannels(color);
    _hexEditor->setValue(ColorWheelColor::Get(color, _mode));
    _slider->setValue(static_cast<float>(color.valueF()), false);
    _updateEnabled = true;
}

void ColorEditDialog::_showFromSpinners(const QColor &color)
{
    _updateEnabled = false;
    _display->setColor(color);
    _showOnWheelAndSlider(color);
    _hexEditor->setValue(ColorWheelColor::Get(color, _mode));
    _updateEnabled = true;
}

void ColorEditDialog::_redSpinnerChanged(int value)
{
    if (_updateEnabled)
        _showFromSpinners(_spinnerColor(value, _greenSpinner->value(), _blueSpinner->value(),
                                        _alphaSpinner->value()));
}

void ColorEditDialog::_greenSpinnerChanged(int value)
{
    if (_updateEnabled)
        _showFromSpinners(_spinnerColor(_redSpinner->value(), value, _blueSpinner->value(),
                                        _alphaSpinner->value()));
}

void ColorEditDialog::_blueSpinnerChanged(int value)
{
    if (_updateEnabled)
        _showFromSpinners(_spinnerColor(_redSpinner->value(), _greenSpinner->value(), value,
                                        _alphaSpinner->value()));
}

void ColorEditDialog::_alphaSpinnerChanged(int value)
{
    if (!_updateEnabled)
        return;
    QColor const color
        = _spinnerColor(_redSpinner->value(), _greenSpinner->value(), _blueSpinner->value(), value);
    _updateEnabled = false;
    _display->setColor(color);
    _hexEditor->setValue(ColorWheelColor::Get(color, _mode));
    _updateEnabled = true;
}

void ColorEditDialog::_hexEditorChanged(uint32_t)
{
    if (!_updateEnabled)
        return;
    QColor const color = ColorWheelColor::Create(_hexEditor->getValue(), _mode);
    _updateEnabled = false;
    _display->setColor(color);
    _showOnWheelAndSlider(color);
    _showChannels(color);
    _alphaSpinner->setValue(asInt(ColorWheelColor::Alpha(color, _mode)));
    _updateEnabled = true;
}

void ColorEditDialog::_accept()
{
    accept();
}

void ColorEditDialog::_reject()
{
    reject();
}

} // namespace TES
