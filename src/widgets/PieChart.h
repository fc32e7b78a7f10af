// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"
#include "widgets/PieChartListener.h"

#include <QImage>
#include <QWidget>

namespace TES {

class PieChartModel;

// Shows how a capacity of bytes is divided among named segments: a pie of half the smaller
// side in the middle, and a legend of one row per segment from the top left. The picture is
// drawn once into a cached image that paint events blit; a resize or an update of the
// current model drops the cache.
//
// The chart does not own its model. It enters itself in the model's listeners when given
// one, and leaves the current model's listeners when destroyed; a model replaced keeps the
// chart's entry, whose updates the chart then ignores.
class TES_EXPORT PieChart : public QWidget, public PieChartListener
{
    Q_OBJECT

public:
    PieChart();
    ~PieChart() override;

    PieChartModel *getModel() const;
    // The cache is kept: a new model shows once the cache is next dropped.
    void setModel(PieChartModel *model);

    void modelUpdated(PieChartModel *model) override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void _rebuild();
    void _drawPie(QPainter &painter, unsigned int capacity);
    void _drawLegend(QPainter &painter, unsigned int capacity, unsigned int used);

    PieChartModel *_model = nullptr;
    QImage _image;
};

} // namespace TES
