// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>

#include <list>

namespace TES {

class PropertyModel;

// A top-level band of a property view: lists the ids of properties and groups in display
// order. The model creates and owns it (PropertyModel::addCategory); listing an id does not
// touch the property or group itself. Changes of the visible and expanded flags go to the
// model's listeners. A new category is expanded.
class TES_EXPORT PropertyCategory
{
public:
    PropertyCategory(PropertyModel *model, QString const &id);
    virtual ~PropertyCategory();

    PropertyCategory(PropertyCategory const &) = delete;
    PropertyCategory &operator=(PropertyCategory const &) = delete;

    QString id() const;
    // The text, or the id while the text is empty.
    QString getText() const;
    void setText(QString const &text);
    // The category's own flag, which is also its effective visibility.
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

private:
    PropertyModel *_model;
    QString _id;
    QString _text;
    std::list<QString> _children;
    bool _visible = true;
    bool _expanded = true;
};

} // namespace TES
