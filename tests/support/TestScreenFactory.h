#pragma once

#include "scene/ScreenFactory.h"

#include <QStringList>

namespace TES::Test {

// Makes TestScreens, named as asked. Logs the names it is asked for, and answers null while
// `fail` is set.
class TestScreenFactory : public ScreenFactory
{
public:
    QSharedPointer<Screen> create(QString const &name) override;

    QStringList names;
    bool fail = false;
};

} // namespace TES::Test
