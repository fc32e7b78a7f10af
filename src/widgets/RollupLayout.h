// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QLayout>
#include <QTimer>

namespace TES {

// Places a 20-pixel header and below it a content widget whose height follows an open
// fraction, animated in five steps of 10 milliseconds. It holds no layout items, so Qt's
// machinery leaves both widgets to setGeometry. Installed on a RollupContainerWidget, which
// owns it.
class TES_EXPORT RollupLayout : public QLayout
{
    Q_OBJECT

public:
    explicit RollupLayout(QWidget *header);

    void setContent(QWidget *content);
    bool getExpanded() const;
    // Animated unless immediate; nothing when the state stays.
    void setExpanded(bool expanded, bool immediate);

    void addItem(QLayoutItem *item) override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    int count() const override;
    void setGeometry(QRect const &rect) override;
    QSize sizeHint() const override;

public slots:
    void timerElapsed();

private:
    QWidget *_header;
    QWidget *_content = nullptr;
    QTimer _timer;
    float _fraction = 1.0f;
    bool _expanded = true;
};

} // namespace TES
