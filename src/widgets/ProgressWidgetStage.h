// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QObject>
#include <QString>

class QWidget;

namespace TES {

class KeyValueMap;
class ProgressWidgetModel;

// One step of a ProgressWidgetModel's branching path, written by a plug-in. It names the
// stage that follows it, so the path depends on what the user chose; the model keeps the
// path on a stack and calls the hooks below as the user walks it. The model owns the stage
// once added; the stage owns its widget, which a ProgressWidget borrows while the stage is
// active.
class TES_EXPORT ProgressWidgetStage : public QObject
{
    Q_OBJECT

public:
    explicit ProgressWidgetStage(QString const &name);
    ~ProgressWidgetStage() override;

    QString name() const;
    // The label on the stage's bread crumb.
    QString getText() const;
    // Also tells the model's listeners, when the stage has a model.
    void setText(QString const &text);
    ProgressWidgetModel *model() const;

    // The widget shown while the stage is active; may be null. The stage keeps owning it.
    virtual QWidget *stageWidget() = 0;
    // Name of the stage that follows this one, read when the user goes on from the end of
    // the path.
    virtual QString nextStage() const = 0;
    // Whether the stage's inputs are acceptable; true by default.
    virtual bool isValid() const;
    // Whether the whole process may end at this stage.
    virtual bool isTerminable() const = 0;
    // Help for the stage; none by default.
    virtual bool hasHelpText() const;
    virtual QString helpText() const;
    // Refresh from the model's shared data; nothing by default.
    virtual void update();
    // Commit the stage's result; nothing by default.
    virtual void finalize();
    // The stage was popped off the path; nothing by default.
    virtual void reset();
    // The stage became the active one.
    virtual void stageActivated() = 0;
    // The stage stopped being the active one.
    virtual void stageDeactivated() = 0;
    // Take saved values while a path is replayed; nothing by default.
    virtual void load(KeyValueMap const &map);

private:
    friend class ProgressWidgetModel;

    QString _name;
    QString _text;
    ProgressWidgetModel *_model = nullptr;
};

} // namespace TES
