// SPDX-License-Identifier: MIT
// The property view: building the view of a model of 200 properties, and 10,000 value changes
// made in code on a model on show, with the time per change and the layout passes of the
// panes that the changes cause (none is the goal: an edit lays out its row at most).
#include "BenchReport.h"

#include "properties/IntegerProperty.h"
#include "properties/PropertyCategory.h"
#include "properties/PropertyGroup.h"
#include "properties/PropertyModel.h"
#include "properties/view/PropertyView.h"

#include <QApplication>

#include <vector>

using namespace TES;

namespace {

constexpr int PropertyCount = 200;

// Ten categories of twenty integers, every other category with its properties in an open
// group.
void fill(PropertyModel &model, std::vector<Property *> &properties)
{
    for (int index = 0; index < PropertyCount; ++index) {
        int const band = index / 20;
        QString const categoryId = QString("category%1").arg(band);
        PropertyCategory *category = model.category(categoryId);
        if (!category)
            category = model.addCategory(categoryId);
        Property *property
            = model.addProperty(IntegerProperty::Type(), QString("value%1").arg(index), {});
        property->setText(QString("Value %1").arg(index));
        property->setTracked(false);
        properties.push_back(property);
        if (band % 2) {
            QString const groupId = QString("group%1").arg(band);
            PropertyGroup *group = model.group(groupId);
            if (!group) {
                group = model.addGroup(groupId);
                group->setExpanded(true);
                category->addChild(groupId);
            }
            group->addChild(property->id());
        } else {
            category->addChild(property->id());
        }
    }
}

class LayoutCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::LayoutRequest)
            ++requests;
        return false;
    }
    long long requests = 0;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Bench::BenchReport const report(5);
    PropertyModel model;
    std::vector<Property *> properties;
    fill(model, properties);

    double const build = report.medianNanoseconds([&] {
        PropertyView view;
        view.resize(400, 800);
        view.setModel(&model);
        view.show();
        QCoreApplication::processEvents();
        return qint64(-1);
    });
    report.print("property_view.build_200", build / 1e6, "ms");

    PropertyView view;
    view.resize(400, 800);
    view.setModel(&model);
    view.show();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    LayoutCounter counter;
    view.leftPane()->installEventFilter(&counter);
    view.rightPane()->installEventFilter(&counter);

    int const changeCount = 10000;
    int base = 0;
    double const changes = report.medianNanoseconds([&] {
        // Every change is shown before the next: the event loop runs after each.
        for (int index = 0; index < changeCount; ++index) {
            properties[size_t(index % PropertyCount)]->setValue(
                QVariant(base + index / PropertyCount + 1), PropertyChangeReason::ReasonInternal);
            QCoreApplication::processEvents();
        }
        base += changeCount;
        return qint64(-1);
    });
    report.print("property_view.value_change_on_show", changes / changeCount / 1e3, "us");
    Bench::BenchReport::PrintValue("property_view.pane_layouts_per_change",
                                   double(counter.requests) / (changeCount * report.runs()),
                                   "layouts");
    view.setModel(nullptr);
    return 0;
}
