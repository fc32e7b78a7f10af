// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace TES {

class ExpandButtonWidget;
class RollupLayout;

// A titled section that folds and unfolds with a short animation: a grey header with an
// ExpandButtonWidget and the title, and below it a white container for one content widget.
// The open state lives in its RollupLayout; the header's button drives it. Owns its header,
// container and layout; the content is reparented into the container.
class TES_EXPORT RollupContainerWidget : public QWidget
{
    Q_OBJECT

public:
    explicit RollupContainerWidget(QString const &title);

    QWidget *getContent() const;
    // Replaces the content; the old widget is taken out, not deleted.
    void setContent(QWidget *content);
    // Always true: the state that counts is the layout's.
    bool isExpanded() const;
    // Does nothing; kept for plug-ins that call it.
    void setExpanded(bool expanded);

protected:
    void paintEvent(QPaintEvent *event) override;

private slots:
    void onExpandButtonStateChanged(bool expanded);

private:
    RollupLayout *_layout;
    QWidget *_header;
    QHBoxLayout *_headerLayout;
    ExpandButtonWidget *_expandButton;
    QLabel *_label;
    QWidget *_container;
    bool _expanded = true;
    QWidget *_content = nullptr;
};

} // namespace TES
