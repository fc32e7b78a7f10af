// SPDX-License-Identifier: MIT
#pragma once

#include "properties/IPropertyModelListener.h"
#include "tessera_export.h"

#include <QWidget>

#include <map>

class QScrollArea;
class QSplitter;
class QVBoxLayout;

namespace TES {

class Property;
class PropertyCategory;
class PropertyGroup;
class PropertyModel;
class PropertyViewLayout;

// Shows one PropertyModel as two columns, names on the left and editors on the right, with
// categories and groups as collapsible bands. A scroll area holds a splitter with two plain
// panes; every row is a widget of its own whose objectName is its item's id, and each pane's
// PropertyViewLayout places the rows by asking the model what is visible.
//
// The view listens to its model: value changes reach the one name cell concerned, state and
// expand changes lay the panes out again. Structure changes are not followed; setModel builds
// anew. The model is not owned and must outlive the view or be taken away first by setModel.
class TES_EXPORT PropertyView : public QWidget, public IPropertyModelListener
{
    Q_OBJECT

public:
    PropertyView();
    explicit PropertyView(PropertyModel *model);
    ~PropertyView() override;

    PropertyModel *getModel() const;
    // Drops the rows of the old model and builds those of the new one; null leaves it empty.
    void setModel(PropertyModel *model);

    void propertyValueChanged(Property *property, QVariant const &oldValue,
                              QVariant const &newValue, PropertyChangeReason reason) override;
    void propertyStateChanged(Property *property) override;
    void categoryExpandStateChanged(QString const &id) override;
    void categoryVisibleStateChanged(QString const &id) override;
    void groupExpandStateChanged(QString const &id) override;
    void groupVisibleStateChanged(QString const &id) override;

    QWidget *leftPane() const;
    QWidget *rightPane() const;
    // The name widget (cell or band) of an item; null when absent.
    QWidget *_findCell(QString const &id) const;
    // The outermost row of a group or property in each pane; null when absent.
    QWidget *_findLeftContainer(QString const &id) const;
    QWidget *_findRightContainer(QString const &id) const;

private:
    void _build();
    void _clear();
    void _rebuild();
    void _addCategory(PropertyCategory *category, int, int);
    void _addGroup(PropertyGroup *group, int, int);
    void _addProperty(Property *property, PropertyGroup *group, bool last);
    void _addRow(QWidget *pane, QWidget *row);
    void _invalidate();

    QVBoxLayout *_layout = nullptr;
    QScrollArea *_scrollArea = nullptr;
    QSplitter *_splitter = nullptr;
    QWidget *_leftPane = nullptr;
    QWidget *_rightPane = nullptr;
    std::map<QString, QWidget *> _cells;
    std::map<QString, QWidget *> _leftContainers;
    std::map<QString, QWidget *> _rightContainers;
    PropertyModel *_model = nullptr;
};

} // namespace TES
