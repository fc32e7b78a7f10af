// SPDX-License-Identifier: MIT
#include "properties/PropertyGroup.h"

#include "properties/PropertyModel.h"

#include <algorithm>

namespace TES {

PropertyGroup::PropertyGroup(PropertyModel *model, QString const &id) : _model(model), _id(id) {}

PropertyGroup::~PropertyGroup() = default;

QString PropertyGroup::id() const
{
    return _id;
}

QString PropertyGroup::getText() const
{
    return _text.isEmpty() ? _id : _text;
}

void PropertyGroup::setText(QString const &text)
{
    _text = text;
}

bool PropertyGroup::getVisible() const
{
    return _model->itemVisible(_id);
}

void PropertyGroup::setVisible(bool visible)
{
    if (_visible == visible)
        return;
    _visible = visible;
    _model->groupVisibleStateChanged(this);
}

bool PropertyGroup::getExpanded() const
{
    return _expanded;
}

void PropertyGroup::setExpanded(bool expanded)
{
    if (_expanded == expanded)
        return;
    _expanded = expanded;
    _model->groupExpandStateChanged(this);
}

bool PropertyGroup::addChild(QString const &id)
{
    if (hasChild(id))
        return false;
    _children.push_back(id);
    return true;
}

bool PropertyGroup::hasChild(QString const &id) const
{
    return std::find(_children.begin(), _children.end(), id) != _children.end();
}

bool PropertyGroup::removeChild(QString const &id)
{
    auto it = std::find(_children.begin(), _children.end(), id);
    if (it == _children.end())
        return false;
    _children.erase(it);
    return true;
}

std::list<QString> PropertyGroup::children() const
{
    return _children;
}

int PropertyGroup::childCount() const
{
    return static_cast<int>(_children.size());
}

PropertyModel *PropertyGroup::model() const
{
    return _model;
}

QString PropertyGroup::getSummary() const
{
    return QString();
}

} // namespace TES
