// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QWidget>

class QLabel;

namespace TES {

class PlusExpandButton;
class PropertyCategory;
class PropertyGroup;

// The collapsible bands of a PropertyView: a category or group name with a plus/minus button
// on the left, and a value widget on the right (empty for a category, the children's summary
// for a group). The name widget makes its value widget, which the view places in the right
// pane. The button writes the node's expanded flag; the view follows the model's news.

// What both bands share: the button, the elided label and the right-hand widget.
class TES_EXPORT PropertyBandName : public QWidget
{
    Q_OBJECT

public:
    QWidget *right() const;
    QLabel *label() const;
    PlusExpandButton *button() const;

protected:
    // The button starts as `expanded` without telling the node.
    PropertyBandName(QString const &id, QString const &text, QColor const &background,
                     QWidget *right, bool expanded);
    // Sets the node's expanded flag.
    virtual void _setExpanded(bool expanded) = 0;
    void resizeEvent(QResizeEvent *event) override;

    QLabel *_label;
    QWidget *_right;
    PlusExpandButton *_button;

private slots:
    void _buttonStateChanged(bool expanded);

private:
    QString _text;
};

// The right side of a category band: empty.
class TES_EXPORT CategoryViewValue : public QWidget
{
    Q_OBJECT

public:
    CategoryViewValue();
};

// The right side of a group band: the summary of the children's values.
class TES_EXPORT GroupViewValue : public QWidget
{
    Q_OBJECT

public:
    GroupViewValue();
    void setSummary(QString const &summary);
    QString summary() const;

private:
    QLabel *_label;
};

class TES_EXPORT CategoryViewName : public PropertyBandName
{
    Q_OBJECT

public:
    // Shown expanded, whatever the category's flag says.
    explicit CategoryViewName(PropertyCategory *category);

protected:
    void _setExpanded(bool expanded) override;

private:
    PropertyCategory *_category;
};

class TES_EXPORT GroupViewName : public PropertyBandName
{
    Q_OBJECT

public:
    explicit GroupViewName(PropertyGroup *group);
    // Rebuilds the summary: "[" and the children's string values joined by "," and "]".
    void childUpdated();

protected:
    void _setExpanded(bool expanded) override;

private:
    PropertyGroup *_group;
};

} // namespace TES
