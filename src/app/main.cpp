// SPDX-License-Identifier: MIT
#include "app/CommandLineParser.h"
#include "app/Core.h"

#include <QApplication>

using namespace TES;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle("windows");

    Core *core = new Core(); // lives until the process ends
    int exitCode = 0;
    if (core->initialize(CommandLineParser::Parse(argc, argv)))
        exitCode = QApplication::exec();
    core->destroy();
    return exitCode;
}
