// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QWidget>

namespace TES {

class GroupViewName;
class PropertyGroup;

// The row widgets of a PropertyView: each wraps one widget (a cell, a band or another row),
// copies its objectName, which is the item's id the view's layout asks the model about, and
// paints the indent and lines around it. A row is 21 pixels high, Expanding by Fixed, and owns
// what it wraps.
class TES_EXPORT PropertyRowContainer : public QWidget
{
    Q_OBJECT

public:
    // How a row paints: a fill over all, or white above a bottom line; lines at the left
    // column and along the bottom row.
    struct Look
    {
        QColor fill;
        bool whiteBody = false;
        bool leftLine = false;
        bool bottomLine = false;
    };

    QWidget *inner() const;

protected:
    PropertyRowContainer(QWidget *inner, int innerHeight, int leftMargin, Look const &look);
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *_inner;
    Look _look;
};

// A category's direct child or a group band: 14 pixels of dark grey indent.
class TES_EXPORT FirstLevelIndentContainer : public PropertyRowContainer
{
    Q_OBJECT

public:
    explicit FirstLevelIndentContainer(QWidget *inner);
};

// A group's child: 14 more pixels of light grey indent; the last child closes the group with
// a dark grey line across the indent.
class TES_EXPORT SecondLevelIndentContainer : public PropertyRowContainer
{
    Q_OBJECT

public:
    SecondLevelIndentContainer(QWidget *inner, bool last);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool _last;
};

// A group band; while the group is open, its bottom row joins the light indent below it.
class TES_EXPORT GroupNameContainer : public PropertyRowContainer
{
    Q_OBJECT

public:
    GroupNameContainer(GroupViewName *name, PropertyGroup *group);
    PropertyGroup *group() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    PropertyGroup *_group;
};

// A name cell inside a group.
class TES_EXPORT GroupPropertyContainer : public PropertyRowContainer
{
    Q_OBJECT

public:
    explicit GroupPropertyContainer(QWidget *inner);
};

// A name cell directly in a category.
class TES_EXPORT StandardPropertyContainer : public PropertyRowContainer
{
    Q_OBJECT

public:
    explicit StandardPropertyContainer(QWidget *inner);
};

// A value cell.
class TES_EXPORT StandardValueContainer : public PropertyRowContainer
{
    Q_OBJECT

public:
    explicit StandardValueContainer(QWidget *inner);
};

} // namespace TES
