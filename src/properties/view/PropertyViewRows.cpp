// SPDX-License-Identifier: MIT
#include "properties/view/PropertyViewRows.h"

#include "properties/PropertyGroup.h"
#include "properties/view/PropertyViewBands.h"

#include <QHBoxLayout>
#include <QPainter>

namespace TES {

namespace {

QColor const IndentColour(220, 220, 220);

PropertyRowContainer::Look filled(QColor const &colour)
{
    PropertyRowContainer::Look look;
    look.fill = colour;
    return look;
}

PropertyRowContainer::Look lined(bool leftLine)
{
    PropertyRowContainer::Look look;
    look.whiteBody = true;
    look.leftLine = leftLine;
    look.bottomLine = true;
    return look;
}

} // namespace

PropertyRowContainer::PropertyRowContainer(QWidget *inner, int innerHeight, int leftMargin,
                                           Look const &look)
    : _inner(inner), _look(look)
{
    setObjectName(inner->objectName());
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(21);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(leftMargin, 0, 0, 0);
    layout->setSpacing(0);
    inner->setFixedHeight(innerHeight);
    layout->addWidget(inner);
}

QWidget *PropertyRowContainer::inner() const
{
    return _inner;
}

void PropertyRowContainer::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    int const bottom = height() - 1;
    if (_look.whiteBody)
        painter.fillRect(0, 0, width(), bottom, Qt::white);
    else
        painter.fillRect(rect(), _look.fill);
    painter.setPen(Qt::darkGray);
    if (_look.leftLine)
        painter.drawLine(0, 0, 0, bottom);
    if (_look.bottomLine)
        painter.drawLine(0, bottom, width() - 1, bottom);
}

FirstLevelIndentContainer::FirstLevelIndentContainer(QWidget *inner)
    : PropertyRowContainer(inner, 21, 14, filled(Qt::darkGray))
{}

SecondLevelIndentContainer::SecondLevelIndentContainer(QWidget *inner, bool last)
    : PropertyRowContainer(inner, 21, 14, filled(IndentColour)), _last(last)
{}

void SecondLevelIndentContainer::paintEvent(QPaintEvent *event)
{
    PropertyRowContainer::paintEvent(event);
    if (!_last)
        return;
    QPainter painter(this);
    painter.setPen(Qt::darkGray);
    painter.drawLine(0, height() - 1, width() - 1, height() - 1);
}

GroupNameContainer::GroupNameContainer(GroupViewName *name, PropertyGroup *group)
    : PropertyRowContainer(name, 20, 0, filled(Qt::darkGray)), _group(group)
{}

PropertyGroup *GroupNameContainer::group() const
{
    return _group;
}

void GroupNameContainer::paintEvent(QPaintEvent *event)
{
    PropertyRowContainer::paintEvent(event);
    if (!_group || !_group->getExpanded())
        return;
    QPainter painter(this);
    painter.setPen(IndentColour);
    painter.drawLine(0, height() - 1, 13, height() - 1);
}

GroupPropertyContainer::GroupPropertyContainer(QWidget *inner)
    : PropertyRowContainer(inner, 20, 1, lined(true))
{}

StandardPropertyContainer::StandardPropertyContainer(QWidget *inner)
    : PropertyRowContainer(inner, 20, 0, lined(false))
{}

StandardValueContainer::StandardValueContainer(QWidget *inner)
    : PropertyRowContainer(inner, 20, 1, lined(true))
{}

} // namespace TES
