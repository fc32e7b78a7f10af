// SPDX-License-Identifier: MIT
#include "widgets/ProgressWidgetModel.h"

#include "widgets/ProgressWidgetStage.h"

namespace TES {

ProgressWidgetModel::ProgressWidgetModel() = default;

ProgressWidgetModel::~ProgressWidgetModel()
{
    for (auto &entry : _stages)
        delete entry.second;
}

bool ProgressWidgetModel::addStage(ProgressWidgetStage *stage)
{
    if (!stage || containsStage(stage->name()))
        return false;
    _stages[stage->name()] = stage;
    stage->_model = this;
    return true;
}

ProgressWidgetStage *ProgressWidgetModel::stage(QString const &name) const
{
    auto const found = _stages.find(name);
    return found == _stages.end() ? nullptr : found->second;
}

bool ProgressWidgetModel::containsStage(QString const &name) const
{
    return _stages.find(name) != _stages.end();
}

QStringList ProgressWidgetModel::stack() const
{
    return _stack;
}

int ProgressWidgetModel::stackSize() const
{
    return _stack.size();
}

bool ProgressWidgetModel::stageOnStack(QString const &name) const
{
    return _stack.contains(name);
}

int ProgressWidgetModel::activeStageIndex() const
{
    int const index = _stack.indexOf(_activeStage);
    return index < 0 ? _stack.size() : index;
}

QString ProgressWidgetModel::getActiveStage() const
{
    return _activeStage;
}

bool ProgressWidgetModel::setActiveStage(QString const &name)
{
    ProgressWidgetStage *next = stage(name);
    if (!next || name == _activeStage)
        return false;
    if (ProgressWidgetStage *previous = stage(_activeStage))
        previous->stageDeactivated();
    _activeStage = name;
    next->stageActivated();
    emit stateChanged();
    return true;
}

bool ProgressWidgetModel::push(QString const &name)
{
    if (stageOnStack(name) || !containsStage(name))
        return false;
    _stack.append(name);
    setActiveStage(name);
    return true;
}

void ProgressWidgetModel::popTo(QString const &name)
{
    if (!stageOnStack(name))
        return;
    while (!_stack.isEmpty() && _stack.last() != name) {
        ProgressWidgetStage *last = stage(_stack.last());
        if (_stack.last() == _activeStage) {
            last->stageDeactivated();
            _activeStage.clear();
        }
        last->reset();
        _stack.removeLast();
    }
    setActiveStage(name);
    emit stateChanged();
}

void ProgressWidgetModel::back()
{
    int const index = _stack.indexOf(_activeStage);
    if (_stack.size() == 1 || index <= 0)
        return;
    setActiveStage(_stack.at(index - 1));
}

void ProgressWidgetModel::forward()
{
    int const index = _stack.indexOf(_activeStage);
    if (index >= 0 && index == _stack.size() - 1) {
        push(stage(_activeStage)->nextStage());
    } else if (_stack.size() != 1 && index >= 0) {
        setActiveStage(_stack.at(index + 1));
    }
}

void ProgressWidgetModel::update()
{
    for (QString const &name : QStringList(_stack))
        stage(name)->update();
}

void ProgressWidgetModel::finalize()
{
    for (QString const &name : QStringList(_stack))
        stage(name)->finalize();
}

bool ProgressWidgetModel::isValid() const
{
    for (QString const &name : _stack) {
        if (!stage(name)->isValid())
            return false;
    }
    return true;
}

bool ProgressWidgetModel::isTerminable() const
{
    if (_stack.isEmpty() || _stack.last() != _activeStage)
        return false;
    return stage(_activeStage)->isTerminable();
}

void ProgressWidgetModel::load(KeyValueMap const &map)
{
    if (_stack.isEmpty())
        return;
    ProgressWidgetStage *current = stage(_stack.last());
    current->load(map);
    while (!current->isTerminable()) {
        if (!push(current->nextStage()))
            return;
        current = stage(_stack.last());
        current->load(map);
    }
}

void ProgressWidgetModel::stageStateChanged(ProgressWidgetStage *)
{
    emit stateChanged();
}

KeyValueMap &ProgressWidgetModel::data()
{
    return _data;
}

KeyValueMap const &ProgressWidgetModel::data() const
{
    return _data;
}

} // namespace TES
