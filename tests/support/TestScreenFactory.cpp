#include "support/TestScreenFactory.h"

#include "support/TestScreen.h"

namespace TES::Test {

QSharedPointer<Screen> TestScreenFactory::create(QString const &name)
{
    names.append(name);
    if (fail)
        return {};
    if (name.isEmpty())
        return QSharedPointer<TestScreen>::create();
    return QSharedPointer<TestScreen>::create(name);
}

} // namespace TES::Test
