// SPDX-License-Identifier: MIT
#include "properties/view/PropertyView.h"

#include "properties/Property.h"
#include "properties/PropertyCategory.h"
#include "properties/PropertyGroup.h"
#include "properties/PropertyModel.h"
#include "properties/PropertyViewMaker.h"
#include "properties/view/PropertyViewBands.h"
#include "properties/view/PropertyViewLayout.h"
#include "properties/view/PropertyViewNameCell.h"
#include "properties/view/PropertyViewRows.h"
#include "properties/view/PropertyViewValueCell.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

#include <cstdio>

namespace TES {

namespace {

QWidget *lookUp(std::map<QString, QWidget *> const &map, QString const &id)
{
    auto const found = map.find(id);
    return found == map.end() ? nullptr : found->second;
}

void setBackground(QWidget *widget, QColor const &colour)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

// A band's row: the band above a one-pixel line of the dark background.
QWidget *bandRow(QString const &id, QWidget *band, QMargins const &margins)
{
    auto *row = new QWidget();
    row->setObjectName(id);
    row->setFixedHeight(21);
    setBackground(row, Qt::darkGray);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(margins);
    layout->setSpacing(0);
    layout->addWidget(band);
    return row;
}

// Screens reach their views through the maker, so that the scene needs no widget code.
bool const registered = [] {
    PropertyViewMaker::SetViewMakers(
        [](PropertyModel *model) {
            auto *view = new PropertyView();
            view->setModel(model);
            return view;
        },
        [](PropertyView *view) { delete view; });
    return true;
}();

} // namespace

PropertyView::PropertyView()
{
    _build();
}

PropertyView::PropertyView(PropertyModel *model)
{
    _build();
    setModel(model);
}

PropertyView::~PropertyView()
{
    if (_model)
        _model->removeListener(this);
}

void PropertyView::_build()
{
    _layout = new QVBoxLayout(this);
    _layout->setContentsMargins(0, 0, 0, 0);
    _layout->setSpacing(0);
    _scrollArea = new QScrollArea(this);
    _scrollArea->setWidgetResizable(true);
    setBackground(_scrollArea, Qt::white);
    _layout->addWidget(_scrollArea);

    _splitter = new QSplitter();
    _splitter->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    _splitter->setChildrenCollapsible(false);
    _splitter->setHandleWidth(0);
    _leftPane = new QWidget();
    _leftPane->setMinimumWidth(0);
    _rightPane = new QWidget();
    _rightPane->setMinimumWidth(0);
    setBackground(_rightPane, Qt::white);
    _splitter->addWidget(_leftPane);
    _splitter->addWidget(_rightPane);
    _splitter->setSizes({100, 100});
    _scrollArea->setWidget(_splitter);
}

PropertyModel *PropertyView::getModel() const
{
    return _model;
}

void PropertyView::setModel(PropertyModel *model)
{
    if (_model)
        _model->removeListener(this);
    _model = nullptr;
    _clear();
    _model = model;
    if (_model) {
        _model->addListener(this);
        _rebuild();
    }
}

QWidget *PropertyView::leftPane() const
{
    return _leftPane;
}

QWidget *PropertyView::rightPane() const
{
    return _rightPane;
}

QWidget *PropertyView::_findCell(QString const &id) const
{
    return lookUp(_cells, id);
}

QWidget *PropertyView::_findLeftContainer(QString const &id) const
{
    return lookUp(_leftContainers, id);
}

QWidget *PropertyView::_findRightContainer(QString const &id) const
{
    return lookUp(_rightContainers, id);
}

void PropertyView::_clear()
{
    for (QWidget *pane : {_leftPane, _rightPane}) {
        QObjectList const children = pane->children();
        qDeleteAll(children);
    }
    _cells.clear();
    _leftContainers.clear();
    _rightContainers.clear();
}

void PropertyView::_rebuild()
{
    if (!_model)
        return;
    _leftPane->setLayout(new PropertyViewLayout(_model));
    _rightPane->setLayout(new PropertyViewLayout(_model));
    for (PropertyCategory *category : _model->categories())
        _addCategory(category, 0, 0);
}

void PropertyView::_addRow(QWidget *pane, QWidget *row)
{
    pane->layout()->addWidget(row);
}

void PropertyView::_addCategory(PropertyCategory *category, int, int)
{
    auto *name = new CategoryViewName(category);
    QMargins const bottomLine(0, 0, 0, 1);
    _addRow(_leftPane, bandRow(category->id(), name, bottomLine));
    _addRow(_rightPane, bandRow(category->id(), name->right(), bottomLine));
    _cells[category->id()] = name;

    std::list<QString> const children = category->children();
    for (auto it = children.begin(); it != children.end(); ++it) {
        if (PropertyGroup *group = _model->group(*it))
            _addGroup(group, 0, 0);
        else if (Property *property = _model->property(*it))
            _addProperty(property, nullptr, std::next(it) == children.end());
    }
}

void PropertyView::_addGroup(PropertyGroup *group, int, int)
{
    auto *name = new GroupViewName(group);
    auto *left = new GroupNameContainer(name, group);
    _addRow(_leftPane, new FirstLevelIndentContainer(left));
    QWidget *right = bandRow(group->id(), name->right(), QMargins(1, 0, 0, 1));
    _addRow(_rightPane, right);
    _cells[group->id()] = name;
    _leftContainers[group->id()] = left;
    _rightContainers[group->id()] = right;

    std::list<QString> const children = group->children();
    for (auto it = children.begin(); it != children.end(); ++it) {
        if (Property *property = _model->property(*it))
            _addProperty(property, group, std::next(it) == children.end());
    }
    name->childUpdated();
}

void PropertyView::_addProperty(Property *property, PropertyGroup *group, bool last)
{
    if (!property)
        return;
    PropertyViewNameCell *cell = property->view();
    if (!cell) {
        std::printf("Property failed to provide a view object: %s\n",
                    property->type().toLocal8Bit().constData());
        return;
    }
    _cells[property->id()] = cell;
    QWidget *left = nullptr;
    if (group) {
        left = new FirstLevelIndentContainer(
            new SecondLevelIndentContainer(new GroupPropertyContainer(cell), last));
    } else {
        left = new FirstLevelIndentContainer(new StandardPropertyContainer(cell));
    }
    _addRow(_leftPane, left);
    _leftContainers[property->id()] = left;
    QWidget *right = new StandardValueContainer(cell->right());
    _rightContainers[property->id()] = right;
    _addRow(_rightPane, right);
}

void PropertyView::_invalidate()
{
    for (QWidget *pane : {_leftPane, _rightPane}) {
        if (pane->layout())
            pane->layout()->invalidate();
    }
}

void PropertyView::propertyValueChanged(Property *property, QVariant const &oldValue,
                                        QVariant const &newValue, PropertyChangeReason reason)
{
    if (auto *cell = dynamic_cast<PropertyViewNameCell *>(_findCell(property->id())))
        cell->valueChanged(oldValue, newValue, reason);
    PropertyOwner const owner = property->owner();
    if (owner.type == PropertyOwnerType::OwnerGroup) {
        if (auto *name = dynamic_cast<GroupViewName *>(_findCell(owner.id)))
            name->childUpdated();
    }
}

void PropertyView::propertyStateChanged(Property *property)
{
    _invalidate();
    if (auto *cell = dynamic_cast<PropertyViewNameCell *>(_findCell(property->id())))
        cell->stateChanged();
}

void PropertyView::categoryExpandStateChanged(QString const &)
{
    _invalidate();
}

void PropertyView::categoryVisibleStateChanged(QString const &)
{
    _invalidate();
}

void PropertyView::groupExpandStateChanged(QString const &id)
{
    _invalidate();
    // The band's join with the indent below it follows the state.
    if (QWidget *band = _findLeftContainer(id))
        band->update();
}

void PropertyView::groupVisibleStateChanged(QString const &)
{
    _invalidate();
}

} // namespace TES
