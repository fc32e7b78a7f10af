// SPDX-License-Identifier: MIT
#pragma once

#include <optional> // tests hold the services in one from init to cleanup

namespace TES::Test {

// The host's services for one test, owned by the test (an init/cleanup pair or a scope).
// Brings up those asked for in the order start-up uses, each storing itself as the process's
// instance, and takes them down in reverse, the Log last since the others log as they go.
// With the scene manager the test scene's factories are registered; a GlobalState starts
// clean, as start-up's clean request leaves it; the bus is switched on once all stand, unless
// asked not to be. Events raised while they come up reach nobody.
class Services
{
public:
    enum Service : unsigned {
        Bus = 1,
        State = 2,
        Plugins = 4,
        Data = 8,
        Scene = 16,
        Selection = 32,
        Logging = 64,
    };

    explicit Services(unsigned which, bool enabled = true);
    ~Services();
    Services(Services const &) = delete;
    Services &operator=(Services const &) = delete;

    // Deletes what Core::destroy leaves for the process to end (the main window, the plug-in,
    // scene, selection and tool managers), so that the next start in this process begins
    // afresh.
    static void dropCoreLeftovers();

private:
    unsigned _which;
};

} // namespace TES::Test
