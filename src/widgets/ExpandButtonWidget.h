// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QPushButton>

namespace TES {

// The toggle in the header of a RollupContainerWidget, drawn as the style's tree branch
// arrow. A release of any button flips it and emits expandStateChanged(). Owned by the header
// that lays it out.
class TES_EXPORT ExpandButtonWidget : public QPushButton
{
    Q_OBJECT

public:
    explicit ExpandButtonWidget(QWidget *parent = nullptr);

    bool getExpanded() const;
    // On a change: stores, repaints and emits expandStateChanged().
    void setExpanded(bool expanded);

signals:
    void expandStateChanged(bool expanded);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    bool _expanded = true;
};

} // namespace TES
