// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QLayout>

#include <vector>

namespace TES {

// A grid of equal columns and rows 22 pixels high that chooses its column count from the
// width of its parent: as many columns as the widest item of each run still fits. Used for
// the buttons of the tool box. Owns its layout items.
class TES_EXPORT ExpandGridLayout : public QLayout
{
    Q_OBJECT

public:
    explicit ExpandGridLayout(QWidget *parent);
    ~ExpandGridLayout() override;

    void addItem(QLayoutItem *item) override;
    QSize sizeHint() const override;
    // Width 0, so that the parent can grow narrow and the grid rewraps.
    QSize minimumSize() const override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    void setGeometry(QRect const &rect) override;
    void invalidate() override;

private:
    int _getCellColumnCount() const;
    // Whether rows of n items fit the parent's width.
    bool _canFitCells(int n) const;
    // The largest sum of widths of rows of n items.
    int _minRowWidth(int n) const;

    QSize _hint = QSize(-1, -1);
    int _columns = 1;
    int _rows = 0;
    int _maxRowWidth = 0;
    std::vector<QLayoutItem *> _items;
};

} // namespace TES
