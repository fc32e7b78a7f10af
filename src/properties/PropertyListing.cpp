// SPDX-License-Identifier: MIT
#include "properties/PropertyListing.h"

#include <algorithm>

namespace TES {

PropertyListing::PropertyListing(PropertyModel *model, QString const &id, bool expanded)
    : _model(model), _expanded(expanded), _id(id)
{}

PropertyListing::~PropertyListing() = default;

QString PropertyListing::id() const
{
    return _id;
}

QString PropertyListing::getText() const
{
    return _text.isEmpty() ? _id : _text;
}

void PropertyListing::setText(QString const &text)
{
    _text = text;
}

bool PropertyListing::getExpanded() const
{
    return _expanded;
}

bool PropertyListing::addChild(QString const &id)
{
    if (hasChild(id))
        return false;
    _children.push_back(id);
    return true;
}

bool PropertyListing::hasChild(QString const &id) const
{
    return std::find(_children.begin(), _children.end(), id) != _children.end();
}

bool PropertyListing::removeChild(QString const &id)
{
    auto it = std::find(_children.begin(), _children.end(), id);
    if (it == _children.end())
        return false;
    _children.erase(it);
    return true;
}

std::list<QString> PropertyListing::children() const
{
    return _children;
}

int PropertyListing::childCount() const
{
    return static_cast<int>(_children.size());
}

bool PropertyListing::_change(bool &flag, bool value)
{
    if (flag == value)
        return false;
    flag = value;
    return true;
}

} // namespace TES
