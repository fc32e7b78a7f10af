// SPDX-License-Identifier: MIT
#include "widgets/PieChart.h"

#include "widgets/PieChartLegendRow.h"
#include "widgets/PieChartModel.h"

#include <QPainter>

#include <algorithm>

namespace TES {

namespace {

constexpr int RowHeight = 30;
constexpr int TextLeft = 30;

} // namespace

PieChart::PieChart() = default;

PieChart::~PieChart()
{
    if (_model != nullptr)
        _model->_listeners.erase(this);
}

PieChartModel *PieChart::getModel() const
{
    return _model;
}

void PieChart::setModel(PieChartModel *model)
{
    if (model == _model)
        return;
    _model = model;
    if (_model != nullptr)
        _model->_listeners.insert(this);
    update();
}

void PieChart::modelUpdated(PieChartModel *model)
{
    if (model != _model)
        return;
    _image = QImage();
    update();
}

void PieChart::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    _image = QImage();
}

void PieChart::paintEvent(QPaintEvent *)
{
    // A chart without a model has nothing to draw from.
    if (_model == nullptr)
        return;
    if (_image.isNull())
        _rebuild();
    QPainter painter(this);
    painter.drawImage(QRect(0, 0, width(), height()), _image,
                      QRect(0, 0, _image.width(), _image.height()));
}

void PieChart::_rebuild()
{
    _image = QImage(size(), QImage::Format_RGBA8888);
    if (_image.isNull())
        return;
    _image.fill(0);
    QPainter painter(&_image);
    painter.setRenderHint(QPainter::Antialiasing);

    unsigned int const capacity = _model->capacity();
    unsigned int const used = _model->usedTotal();
    if (capacity != 0 && used <= capacity)
        _drawPie(painter, capacity);
    _drawLegend(painter, capacity, used);
}

void PieChart::_drawPie(QPainter &painter, unsigned int capacity)
{
    int const side = std::min(width(), height());
    int const diameter = side / 2;
    int const half = (diameter - 1) / 2;
    QRect const rectangle((width() - 1) / 2 - half, (height() - 1) / 2 - half, diameter, diameter);

    float start = 0.0f;
    unsigned int const count = _model->segmentCount();
    for (unsigned int i = 0; i < count; ++i) {
        float const fraction
            = static_cast<float>(_model->segmentValue(i)) / static_cast<float>(capacity);
        if (fraction < 0.001f)
            continue;
        float const sweep = fraction * 360.0f;
        painter.setPen(QColor(75, 75, 75));
        painter.setBrush(QBrush(_model->segmentColor(i)));
        painter.drawPie(rectangle, static_cast<int>(start * 16.0f),
                        static_cast<int>(sweep * 16.0f));
        start += sweep;
    }
}

void PieChart::_drawLegend(QPainter &painter, unsigned int capacity, unsigned int used)
{
    unsigned int const count = _model->segmentCount();
    for (unsigned int i = 0; i < count; ++i) {
        int const top = RowHeight * static_cast<int>(i);
        painter.fillRect(QRect(QPoint(0, top), QPoint(19, top + 19)), _model->segmentColor(i));

        PieChartLegendRow const row = PieChartLegendRow::Make(
            _model->segmentName(i), _model->segmentValue(i), capacity, used);
        QRect const bounds = painter.fontMetrics().boundingRect(row.text);
        int const baseline = top + bounds.height();
        painter.setPen(Qt::black);
        painter.drawText(TextLeft, baseline, row.text);
        if (!row.error.isEmpty()) {
            painter.setPen(Qt::red);
            painter.drawText(bounds.width() + TextLeft, baseline, row.error);
        }
    }
}

} // namespace TES
