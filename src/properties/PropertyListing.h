// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>

#include <list>

namespace TES {

class PropertyModel;

// What PropertyCategory and PropertyGroup share, written once: an id, a display text, the ids
// they list in display order, and their visible and expanded flags. Listing an id does not
// touch the property or group behind it. The subclasses tell the model of flag changes.
class TES_EXPORT PropertyListing
{
public:
    PropertyListing(PropertyListing const &) = delete;
    PropertyListing &operator=(PropertyListing const &) = delete;

    QString id() const;
    // The text, or the id while the text is empty.
    QString getText() const;
    void setText(QString const &text);
    bool getExpanded() const;
    // False when the id is listed already.
    bool addChild(QString const &id);
    bool hasChild(QString const &id) const;
    bool removeChild(QString const &id);
    std::list<QString> children() const;
    int childCount() const;

protected:
    PropertyListing(PropertyModel *model, QString const &id, bool expanded);
    ~PropertyListing();

    // Stores the value; true when it changed, so that the subclass tells the model.
    static bool _change(bool &flag, bool value);

    PropertyModel *_model;
    bool _visible = true;
    bool _expanded;

private:
    QString _id;
    QString _text;
    std::list<QString> _children;
};

} // namespace TES
