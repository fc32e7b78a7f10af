// SPDX-License-Identifier: MIT
// Property changes: one million setValue calls on integer properties of a model with a
// listener.
#include "BenchReport.h"

#include "properties/IPropertyModelListener.h"
#include "properties/IntegerProperty.h"
#include "properties/PropertyModel.h"

#include <QCoreApplication>

#include <vector>

using namespace TES;

namespace {

class CountingListener : public IPropertyModelListener
{
public:
    void propertyValueChanged(Property *, QVariant const &, QVariant const &,
                              PropertyChangeReason) override
    {
        ++changes;
    }
    unsigned long long changes = 0;
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    Bench::BenchReport const report(5);
    int const changeCount = 1000000;
    int const propertyCount = 100;

    PropertyModel model;
    CountingListener listener;
    model.addListener(&listener);
    std::vector<Property *> properties;
    for (int index = 0; index < propertyCount; ++index) {
        Property *property
            = model.addProperty(IntegerProperty::Type(), QString("value%1").arg(index), {});
        property->setTracked(false);
        properties.push_back(property);
    }

    int base = 0;
    double const total = report.medianNanoseconds([&] {
        listener.changes = 0;
        // Every call changes its property's value, so none is refused as "same value".
        for (int index = 0; index < changeCount; ++index)
            properties[static_cast<size_t>(index % propertyCount)]->setValue(
                QVariant(base + index / propertyCount + 1), PropertyChangeReason::ReasonInternal);
        base += changeCount;
        return qint64(-1);
    });

    report.print("properties.set_value.per_change", total / changeCount, "ns");
    Bench::BenchReport::PrintValue("properties.set_value.listener_calls_per_run",
                                   static_cast<double>(listener.changes), "calls");
    model.removeListener(&listener);
    return 0;
}
