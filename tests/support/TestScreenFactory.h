// SPDX-License-Identifier: MIT
#pragma once

#include "scene/ScreenFactory.h"

#include <QStringList>

namespace TES::Test {

// Makes TestScreens, named as asked. Asked for an unnamed screen, it takes the first of
// `nextNames` if there is one, as a plug-in's screen picks its own name. Logs the names it is
// asked for, and answers null while `fail` is set.
class TestScreenFactory : public ScreenFactory
{
public:
    QSharedPointer<Screen> create(QString const &name) override;
    // Back to an empty log, no names waiting, not failing.
    void clear();

    QStringList names;
    QStringList nextNames;
    bool fail = false;
};

} // namespace TES::Test
