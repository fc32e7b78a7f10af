// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace TES::Test {

// Runs the application's event loop for code that ends the run with QCoreApplication::exit,
// as Core::close does. Exiting outside a running loop would leave the quit flag set and end
// the next modal dialog at once.
class ExitLoop
{
public:
    // Starts `start` once the loop runs and answers the loop's exit code; a run that never
    // exits fails with -1 after a minute instead of blocking the suite.
    static int Run(std::function<void()> start);
};

} // namespace TES::Test
