// SPDX-License-Identifier: MIT
#include "properties/view/PropertyViewBands.h"

#include "properties/Property.h"
#include "properties/PropertyCategory.h"
#include "properties/PropertyGroup.h"
#include "properties/PropertyModel.h"
#include "widgets/PlusExpandButton.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>

namespace TES {

namespace {

QColor const CategoryColour(237, 233, 225);
QColor const GroupColour(220, 220, 220);

void paintBackground(QWidget *widget, QColor const &colour)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

} // namespace

PropertyBandName::PropertyBandName(QString const &id, QString const &text, QColor const &background,
                                   QWidget *right, bool expanded)
    : _right(right), _text(text)
{
    setObjectName(id);
    paintBackground(this, background);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(5, 0, 0, 0);
    layout->setSpacing(4);
    _button = new PlusExpandButton();
    _button->setExpanded(expanded);
    layout->addWidget(_button);
    _label = new QLabel(text, this);
    QFont font = _label->font();
    font.setPointSize(10);
    _label->setFont(font);
    layout->addWidget(_label);
    connect(_button, &PlusExpandButton::expanded, this, &PropertyBandName::_buttonStateChanged);
}

QWidget *PropertyBandName::right() const
{
    return _right;
}

QLabel *PropertyBandName::label() const
{
    return _label;
}

PlusExpandButton *PropertyBandName::button() const
{
    return _button;
}

void PropertyBandName::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    _label->setText(
        QFontMetrics(_label->font()).elidedText(_text, Qt::ElideRight, _label->width()));
}

void PropertyBandName::_buttonStateChanged(bool expanded)
{
    _setExpanded(expanded);
}

CategoryViewValue::CategoryViewValue()
{
    setContentsMargins(0, 0, 0, 0);
    paintBackground(this, CategoryColour);
}

GroupViewValue::GroupViewValue()
{
    setFixedHeight(20);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    paintBackground(this, GroupColour);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(1, 0, 0, 0);
    layout->setSpacing(0);
    _label = new QLabel(this);
    _label->setFixedHeight(20);
    _label->setContentsMargins(5, 0, 0, 0);
    layout->addWidget(_label);
}

void GroupViewValue::setSummary(QString const &summary)
{
    _label->setText(summary);
}

QString GroupViewValue::summary() const
{
    return _label->text();
}

CategoryViewName::CategoryViewName(PropertyCategory *category)
    : PropertyBandName(category->id(), category->getText(), CategoryColour, new CategoryViewValue(),
                       true)
    , _category(category)
{}

void CategoryViewName::_setExpanded(bool expanded)
{
    _category->setExpanded(expanded);
}

GroupViewName::GroupViewName(PropertyGroup *group)
    : PropertyBandName(group->id(), group->getText(), GroupColour, new GroupViewValue(),
                       group->getExpanded())
    , _group(group)
{
    setFixedHeight(20);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    _label->setFixedHeight(20);
    _label->setMinimumWidth(0);
    _label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void GroupViewName::childUpdated()
{
    QStringList values;
    for (QString const &id : _group->children()) {
        if (Property *property = _group->model()->property(id))
            values.append(property->stringValue());
    }
    static_cast<GroupViewValue *>(_right)->setSummary("[" + values.join(",") + "]");
}

void GroupViewName::_setExpanded(bool expanded)
{
    _group->setExpanded(expanded);
}

} // namespace TES
