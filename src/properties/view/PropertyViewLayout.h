// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QLayout>
#include <QVector>

namespace TES {

class PropertyModel;

// The layout of one pane of a PropertyView: rows of 21 pixels, one after another, where a row
// the model does not show (asked by the row's objectName, the item's id) is squashed to height
// 0 in its place. Both panes ask the same questions in the same order and so stay in step.
// Owned by its pane; owns its layout items, not the widgets.
class TES_EXPORT PropertyViewLayout : public QLayout
{
    Q_OBJECT

public:
    explicit PropertyViewLayout(PropertyModel *model);
    ~PropertyViewLayout() override;

    // Recomputes the size hint from the visible rows.
    void invalidate() override;
    void addItem(QLayoutItem *item) override;
    // Width 0 and the hint's height.
    QSize minimumSize() const override;
    // Places every row; the rectangle's position is ignored.
    void setGeometry(QRect const &rect) override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    int count() const override;
    QSize sizeHint() const override;

private:
    bool _visible(QLayoutItem *item) const;

    PropertyModel *_model;
    QSize _sizeHint = QSize(-1, -1);
    QVector<QLayoutItem *> _items;
};

} // namespace TES
