// SPDX-License-Identifier: MIT
#include "properties/PropertyCategory.h"

#include "properties/PropertyModel.h"

#include <algorithm>

namespace TES {

PropertyCategory::PropertyCategory(PropertyModel *model, QString const &id) : _model(model), _id(id)
{}

PropertyCategory::~PropertyCategory() = default;

QString PropertyCategory::id() const
{
    return _id;
}

QString PropertyCategory::getText() const
{
    return _text.isEmpty() ? _id : _text;
}

void PropertyCategory::setText(QString const &text)
{
    _text = text;
}

bool PropertyCategory::getVisible() const
{
    return _visible;
}

void PropertyCategory::setVisible(bool visible)
{
    if (_visible == visible)
        return;
    _visible = visible;
    _model->categoryVisibleStateChanged(this);
}

bool PropertyCategory::getExpanded() const
{
    return _expanded;
}

void PropertyCategory::setExpanded(bool expanded)
{
    if (_expanded == expanded)
        return;
    _expanded = expanded;
    _model->categoryExpandStateChanged(this);
}

bool PropertyCategory::addChild(QString const &id)
{
    if (hasChild(id))
        return false;
    _children.push_back(id);
    return true;
}

bool PropertyCategory::hasChild(QString const &id) const
{
    return std::find(_children.begin(), _children.end(), id) != _children.end();
}

bool PropertyCategory::removeChild(QString const &id)
{
    auto it = std::find(_children.begin(), _children.end(), id);
    if (it == _children.end())
        return false;
    _children.erase(it);
    return true;
}

std::list<QString> PropertyCategory::children() const
{
    return _children;
}

int PropertyCategory::childCount() const
{
    return static_cast<int>(_children.size());
}

} // namespace TES
