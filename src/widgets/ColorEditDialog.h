// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"
#include "widgets/ColorWheelColor.h"

#include <QColor>
#include <QDialog>

#include <cstdint>

class QDialogButtonBox;
class QGroupBox;
class QSpinBox;

namespace TES {

class ColorButton;
class ColorDisplay;
class ColorSlider;
class ColorWheel;
class HexSpinBox;

// "Color Editor": lets the user pick a colour that a display of one pixel format can show,
// by hue wheel and brightness slider, channel spin boxes, a hexadecimal field or a palette.
// Every view is kept in step with the others: each handler writes to every view but its own
// with _updateEnabled false, and the spin box handlers ignore what arrives meanwhile. Run it
// with exec() and read resultColor() once accepted. The dialog owns its widgets through the
// parent chain.
class TES_EXPORT ColorEditDialog : public QDialog
{
    Q_OBJECT

public:
    ColorEditDialog(const QColor &color, ColorWheelMode mode);

    // The colour of the wheel, the slider and the alpha spin box, limited to the mode.
    QColor resultColor() const;

private slots:
    void _colorButtonSelected(const QColor &color);
    void _colorWheelChanged(const QColor &color);
    void _colorSliderChanged(float value);
    void _redSpinnerChanged(int value);
    void _greenSpinnerChanged(int value);
    void _blueSpinnerChanged(int value);
    void _alphaSpinnerChanged(int value);
    void _hexEditorChanged(uint32_t value);
    void _accept();
    void _reject();

private:
    void _initUI(const QColor &color, ColorWheelMode mode);
    QWidget *_buildLeftColumn();
    QWidget *_buildRightColumn();
    QColor _mixedColor() const;
    QColor _spinnerColor(int red, int green, int blue, int alpha) const;
    void _showChannels(const QColor &color);
    void _showOnWheelAndSlider(const QColor &color);
    void _showFromSpinners(const QColor &color);

    ColorWheelMode _mode;
    QGroupBox *_hueGroup = nullptr;
    ColorWheel *_wheel = nullptr;
    QGroupBox *_brightnessGroup = nullptr;
    ColorSlider *_slider = nullptr;
    QGroupBox *_resultGroup = nullptr;
    ColorDisplay *_display = nullptr;
    QGroupBox *_valuesGroup = nullptr;
    QSpinBox *_redSpinner = nullptr;
    QSpinBox *_greenSpinner = nullptr;
    QSpinBox *_blueSpinner = nullptr;
    QSpinBox *_alphaSpinner = nullptr;
    HexSpinBox *_hexEditor = nullptr;
    bool _updateEnabled = true;
    QGroupBox *_paletteGroup = nullptr;
    ColorButton *_paletteButtons[8][6] = {};
    QDialogButtonBox *_buttonBox = nullptr;
};

} // namespace TES
