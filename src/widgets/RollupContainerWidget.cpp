// SPDX-License-Identifier: MIT
#include "widgets/RollupContainerWidget.h"

#include "widgets/ExpandButtonWidget.h"
#include "widgets/RollupLayout.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace TES {

namespace {

void fill(QWidget *widget, QColor const &colour, QList<QPalette::ColorRole> const &roles)
{
    QPalette palette = widget->palette();
    for (QPalette::ColorRole role : roles) {
        for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            palette.setBrush(group, role, QBrush(colour, Qt::SolidPattern));
    }
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

} // namespace

RollupContainerWidget::RollupContainerWidget(QString const &title)
{
    _header = new QWidget(this);
    _header->setObjectName("header");
    _header->setMaximumHeight(20);
    _layout = new RollupLayout(_header);
    setLayout(_layout);
    fill(_header, QColor(220, 220, 220), {QPalette::Window});

    _headerLayout = new QHBoxLayout(_header);
    _headerLayout->setObjectName("horizontalLayout");
    _headerLayout->setSpacing(10);
    _headerLayout->setContentsMargins(0, 0, 0, 0);
    _expandButton = new ExpandButtonWidget(_header);
    _expandButton->setObjectName("pushButton");
    _expandButton->setFixedWidth(20);
    _expandButton->setCheckable(false);
    _expandButton->setFlat(true);
    _headerLayout->addWidget(_expandButton);
    _label = new QLabel(title, _header);
    _label->setObjectName("label");
    _headerLayout->addWidget(_label);

    _container = new QWidget(this);
    _container->setObjectName("container");
    fill(_container, Qt::white, {QPalette::Base, QPalette::Window});
    auto *containerLayout = new QVBoxLayout(_container);
    containerLayout->setSpacing(0);
    containerLayout->setContentsMargins(0, 0, 0, 0);

    _layout->setContent(_container);
    connect(_expandButton, &ExpandButtonWidget::expandStateChanged, this,
            &RollupContainerWidget::onExpandButtonStateChanged);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QWidget *RollupContainerWidget::getContent() const
{
    return _content;
}

void RollupContainerWidget::setContent(QWidget *content)
{
    if (_content)
        _container->layout()->takeAt(0);
    _content = content;
    if (_content)
        _container->layout()->addWidget(_content);
}

bool RollupContainerWidget::isExpanded() const
{
    return _expanded;
}

void RollupContainerWidget::setExpanded(bool) {}

void RollupContainerWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), QBrush(Qt::blue, Qt::SolidPattern));
}

void RollupContainerWidget::onExpandButtonStateChanged(bool expanded)
{
    _layout->setExpanded(expanded, false);
}

} // namespace TES
