// SPDX-License-Identifier: MIT
#pragma once

#include "data/KeyValueMap.h"
#include "tessera_export.h"

#include <QObject>
#include <QStringList>

#include <map>

namespace TES {

class ProgressWidgetStage;

// The stages of a branching process by name, and the stack of those the user has been
// through, first stage first. One stage is active (on show); it is usually the last on the
// stack, but the user may step back along the stack without popping it. The stages share
// data in a KeyValueMap.
//
// The model owns its stages. Whoever shows it (a ProgressWidget) follows stateChanged().
class TES_EXPORT ProgressWidgetModel : public QObject
{
    Q_OBJECT

public:
    ProgressWidgetModel();
    ~ProgressWidgetModel() override;

    // False for null or a name already held; otherwise takes ownership.
    bool addStage(ProgressWidgetStage *stage);
    ProgressWidgetStage *stage(QString const &name) const;
    bool containsStage(QString const &name) const;

    QStringList stack() const;
    int stackSize() const;
    bool stageOnStack(QString const &name) const;
    // 0 with an empty stack; the stack's size when the active stage is not on it.
    int activeStageIndex() const;
    QString getActiveStage() const;

    // False for an unknown name or the active one; otherwise switches and tells.
    bool setActiveStage(QString const &name);
    // Appends a held stage that is not on the stack yet and makes it active.
    bool push(QString const &name);
    // Pops and resets the stages after name and makes it active. Emits stateChanged()
    // itself besides the activation's, even when nothing was popped.
    void popTo(QString const &name);
    // Activates the stage before the active one on the stack.
    void back();
    // Goes along the stack, or from its end pushes the active stage's nextStage().
    void forward();
    // Each calls the like hook of the stages on the stack, first to last.
    void update();
    void finalize();
    // Every stage on the stack is valid; true for an empty stack.
    bool isValid() const;
    // The active stage is the last on the stack and may end the process.
    bool isTerminable() const;
    // Replays a saved path: loads the last stage and pushes its successors until one may
    // end the process. Needs at least one stage on the stack.
    void load(KeyValueMap const &map);

    void stageStateChanged(ProgressWidgetStage *stage);
    KeyValueMap &data();
    KeyValueMap const &data() const;

signals:
    void stateChanged();

private:
    KeyValueMap _data;
    std::map<QString, ProgressWidgetStage *> _stages;
    QStringList _stack;
    QString _activeStage;
};

} // namespace TES
