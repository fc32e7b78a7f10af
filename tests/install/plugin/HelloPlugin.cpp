// SPDX-License-Identifier: MIT
// The smallest useful plug-in: once the host is up it uses a service and a typed property
// through the installed headers, prints what it saw and ends the application.
#include "app/Core.h"
#include "app/CoreLifecycleListener.h"
#include "properties/IntegerProperty.h"
#include "properties/PropertyModel.h"
#include "services/GlobalState.h"
#include "services/PluginEntryPoints.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>
#include <cstring>

namespace {

class Listener : public TES::CoreLifecycleListener
{
public:
    void coreInitialized() override
    {
        TES::PropertyModel model;
        model.addProperty(TES::IntegerProperty::Type(), "answer", {});
        TES::AbstractIntegerProperty::Set(&model, "answer", 42,
                                          TES::PropertyChangeReason::ReasonInternal);
        std::printf("hello plug-in: global state %s, answer %d\n",
                    TES::GlobalState::ip() ? "shared" : "missing",
                    TES::AbstractIntegerProperty::Get(&model, "answer"));
        std::fflush(stdout);
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
    }
    void coreDestroying() override {}
};

Listener listener;

int initialize(char const *)
{
    if (!TES::Core::_instance)
        return 1;
    TES::Core::_instance->setListener(&listener);
    return 0;
}

void shutdown()
{
    if (TES::Core::_instance && TES::Core::_instance->getListener() == &listener)
        TES::Core::_instance->setListener(nullptr);
}

} // namespace

int TesseraPlugin_GetInterface(TES::PluginInterface *pluginInterface)
{
    std::strncpy(pluginInterface->name, "hello", sizeof pluginInterface->name - 1);
    pluginInterface->versionMajor = 1;
    pluginInterface->initialize = &initialize;
    pluginInterface->shutdown = &shutdown;
    return 0;
}
