// SPDX-License-Identifier: MIT
#include "widgets/BreadCrumbButton.h"
#include "widgets/ProgressWidget.h"
#include "widgets/ProgressWidgetModel.h"
#include "widgets/ProgressWidgetStage.h"

#include <QLabel>
#include <QPointer>
#include <QtTest>

using namespace TES;

namespace {

// A stage with a label for its widget that writes its hooks into a shared log. "start"
// branches on the model's "branch" value, which load() takes from saved data; "end" may
// finish.
class Stage : public ProgressWidgetStage
{
public:
    Stage(QString const &name, QStringList &log)
        : ProgressWidgetStage(name), _log(log), _label(new QLabel(name))
    {
        setText(name.toUpper());
    }
    ~Stage() override { delete _label; }

    QWidget *stageWidget() override { return _label; }
    QString nextStage() const override
    {
        if (name() == "start")
            return model()->data().getString("branch");
        return "end";
    }
    bool isTerminable() const override { return name() == "end"; }
    void reset() override { _log << name() + " reset"; }
    void stageActivated() override { _log << name() + "+"; }
    void stageDeactivated() override { _log << name() + "-"; }
    void load(KeyValueMap const &map) override
    {
        _log << name() + " load";
        if (name() == "start")
            model()->data().setString("branch", map.getString("branch"));
    }

private:
    QStringList &_log;
    QPointer<QLabel> _label;
};

} // namespace

class tst_ProgressWidget : public QObject
{
    Q_OBJECT

private slots:
    void branchingPath();
};

// The crumbs on show, the active one in brackets. Old crumbs go by deleteLater(), new ones
// show once the event loop has run.
static QString crumbs(ProgressWidget &widget)
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList texts;
    for (BreadCrumbButton *button : widget.findChildren<BreadCrumbButton *>()) {
        if (!button->isHidden())
            texts << (button->font().bold() ? "[" + button->text() + "]" : button->text());
    }
    return texts.join(" > ");
}

static QLabel *shownStage(ProgressWidget &widget)
{
    QList<QLabel *> labels;
    for (QLabel *label : widget.findChildren<QLabel *>()) {
        if (label->text() != ">" && !label->isHidden())
            labels << label;
    }
    return labels.size() == 1 ? labels.first() : nullptr;
}

void tst_ProgressWidget::branchingPath()
{
    QStringList log;
    ProgressWidgetModel model;
    for (char const *name : {"start", "a", "b", "end"})
        QVERIFY(model.addStage(new Stage(name, log)));
    Stage duplicate("a", log);
    QVERIFY(!model.addStage(&duplicate));

    ProgressWidget widget;
    widget.resize(400, 300);
    widget.show();
    widget.setModel(&model);
    QCOMPARE(crumbs(widget), QString());
    QCOMPARE(shownStage(widget), nullptr);

    QSignalSpy changed(&model, &ProgressWidgetModel::stateChanged);
    QVERIFY(model.push("start"));
    QVERIFY(!model.push("start"));
    QCOMPARE(model.stack(), QStringList({"start"}));
    QCOMPARE(crumbs(widget), QString("[START]"));
    QCOMPARE(shownStage(widget)->text(), QString("start"));
    QVERIFY(!model.setActiveStage("start"));
    QCOMPARE(changed.count(), 1);

    // The path follows the choice made at the start.
    model.data().setString("branch", "b");
    model.forward();
    model.forward();
    QCOMPARE(model.stack(), QStringList({"start", "b", "end"}));
    QCOMPARE(crumbs(widget), QString("START > B > [END]"));
    QCOMPARE(shownStage(widget)->text(), QString("end"));
    QVERIFY(model.isTerminable());

    // A click on a crumb steps back without popping; going on then walks the stack and does
    // not ask for the next stage again.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::mouseClick(widget.findChild<BreadCrumbButton *>("start"), Qt::LeftButton);
    QCOMPARE(crumbs(widget), QString("[START] > B > END"));
    QCOMPARE(shownStage(widget)->text(), QString("start"));
    QVERIFY(!model.isTerminable());
    model.data().setString("branch", "a");
    model.forward();
    QCOMPARE(model.getActiveStage(), QString("b"));
    QCOMPARE(model.activeStageIndex(), 1);
    model.back();
    model.back();
    QCOMPARE(model.getActiveStage(), QString("start"));

    // Popping resets what leaves the stack. The target is active already, so the model
    // tells once here, and twice below.
    log.clear();
    changed.clear();
    model.popTo("start");
    QCOMPARE(log, QStringList({"end reset", "b reset"}));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(crumbs(widget), QString("[START]"));
    model.forward();
    QCOMPARE(model.stack(), QStringList({"start", "a"}));
    QCOMPARE(log, QStringList({"end reset", "b reset", "start-", "a+"}));
    changed.clear();
    model.popTo("start");
    QCOMPARE(log.mid(4), QStringList({"a-", "a reset", "start+"}));
    QCOMPARE(changed.count(), 2);

    // A saved path is replayed from the last stage on the stack to one that may finish.
    KeyValueMap saved;
    saved.setString("branch", "b");
    log.clear();
    model.load(saved);
    QCOMPARE(model.stack(), QStringList({"start", "b", "end"}));
    QCOMPARE(log, QStringList({"start load", "start-", "b+", "b load", "b-", "end+", "end load"}));
    QCOMPARE(crumbs(widget), QString("START > B > [END]"));

    // The widget leaves a model it no longer shows.
    ProgressWidgetModel empty;
    widget.setModel(&empty);
    QCOMPARE(crumbs(widget), QString());
    QCOMPARE(shownStage(widget), nullptr);
    model.back();
    QCOMPARE(crumbs(widget), QString());
}

QTEST_MAIN(tst_ProgressWidget)
#include "tst_ProgressWidget.moc"
