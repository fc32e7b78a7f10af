// SPDX-License-Identifier: MIT
#include "support/TestScreenFactory.h"

#include "support/TestScreen.h"

namespace TES::Test {

QSharedPointer<Screen> TestScreenFactory::create(QString const &name)
{
    names.append(name);
    if (fail)
        return {};
    QString const given = name.isEmpty() && !nextNames.isEmpty() ? nextNames.takeFirst() : name;
    if (given.isEmpty())
        return QSharedPointer<TestScreen>::create();
    return QSharedPointer<TestScreen>::create(given);
}

void TestScreenFactory::clear()
{
    names.clear();
    nextNames.clear();
    fail = false;
}

} // namespace TES::Test
