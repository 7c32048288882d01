// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/ModuleEntry.h"

#include "extension/WyBetaExtension.h"
#include "module/FactoryInfo.h"
#include "pluginterfaces/base/smartpointer.h"
#include "public.sdk/source/main/pluginfactory.h"

#include <new>

namespace {

Steinberg::int32 initCount = 0;

Steinberg::FUnknown* createExtension(void* /*context*/) {
    auto* const extension = new (std::nothrow) wybeta::extension::WyBetaExtension;
    return static_cast<Steinberg::IPluginBase*>(extension);
}

} // namespace

// Returns the module's factory with a reference for the caller. The first call creates it, and
// throws std::bad_alloc where there is no memory for it, so that the next call is again the first.
Steinberg::IPluginFactory* PLUGIN_API GetPluginFactory() {
    using Steinberg::gPluginFactory;
    if (gPluginFactory != nullptr) {
        gPluginFactory->addRef();
        return gPluginFactory;
    }
    auto factory = Steinberg::owned(new Steinberg::CPluginFactory(wybeta::module::factoryInfo()));
    // The SDK's list of classes grows by malloc, and tells by false that it could not.
    if (!factory->registerClass(&wybeta::module::classRecord(), createExtension, nullptr)) {
        throw std::bad_alloc();
    }
    gPluginFactory = factory.take();
    return gPluginFactory;
}

// The extension needs nothing of the module but its code, so there is nothing to set up or to undo.
bool InitDll() {
    ++initCount;
    return true;
}

bool ExitDll() {
    return --initCount >= 0;
}
