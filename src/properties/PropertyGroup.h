// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>

#include <list>

namespace TES {

class PropertyModel;

// A collapsible set of properties inside a category, listing property ids in display order.
// The model creates and owns it (PropertyModel::addGroup); it shows only once a category
// lists its id. Changes of the visible and expanded flags go to the model's listeners. A new
// group is collapsed.
class TES_EXPORT PropertyGroup
{
public:
    PropertyGroup(PropertyModel *model, QString const &id);
    virtual ~PropertyGroup();

    PropertyGroup(PropertyGroup const &) = delete;
    PropertyGroup &operator=(PropertyGroup const &) = delete;

    QString id() const;
    // The text, or the id while the text is empty.
    QString getText() const;
    void setText(QString const &text);
    // The effective visibility: false under a hidden or collapsed category, or none.
    bool getVisible() const;
    void setVisible(bool visible);
    bool getExpanded() const;
    void setExpanded(bool expanded);
    // False when the id is listed already.
    bool addChild(QString const &id);
    bool hasChild(QString const &id) const;
    bool removeChild(QString const &id);
    std::list<QString> children() const;
    int childCount() const;
    PropertyModel *model() const;
    // Always empty: the summary the user sees is built by the view.
    QString getSummary() const;

private:
    // The model reads the raw visible flag for its visibility rules and its JSON form.
    friend class PropertyModel;

    PropertyModel *_model;
    QString _id;
    QString _text;
    std::list<QString> _children;
    bool _visible = true;
    bool _expanded = false;
};

} // namespace TES
