// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IEditStep.h"
#include "host/IProjectDocument.h"
#include "host/IProjectHost.h"
#include "host/IProjectManager.h"
#include "host/IProjectNotification.h"
#include "host/ReferenceCount.h"
#include "tracks/TrackTable.h"

#include "base/source/fobject.h"
#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

namespace wybeta::extension {

// The service that the module offers. The host creates and initialises it; from then on it hears of
// every change of the project and keeps the lyrics of the voice synthesizer's notes divided.
class WyBetaExtension final : public Steinberg::IPluginBase,
                              public Steinberg::FObject,
                              public host::IProjectNotification3,
                              public host::IProjectStorageNotification,
                              public host::IProjectEditHook {
public:
    WyBetaExtension();
    ~WyBetaExtension() override;
    WyBetaExtension(const WyBetaExtension&) = delete;
    WyBetaExtension& operator=(const WyBetaExtension&) = delete;

    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID id, void** object) override;
    OBJ_METHODS(WyBetaExtension, Steinberg::FObject)
    Steinberg::uint32 PLUGIN_API addRef() override { return FObject::addRef(); }
    // FObject's own release reads the count again after it has counted down, when another thread
    // may have freed the extension already.
    Steinberg::uint32 PLUGIN_API release() override {
        return host::releaseReference(this, refCount);
    }

    // Makes this the current instance. Returns 0, or 1 when the context does not answer
    // IProjectHost.
    Steinberg::tresult PLUGIN_API initialize(Steinberg::FUnknown* context) override;
    // Unregisters from the manager and all open documents and releases the host. There is no
    // current instance afterwards. Returns 0, also when it was never initialised.
    Steinberg::tresult PLUGIN_API terminate() override;

    void PLUGIN_API ignored3(void* /*hostDefined*/) override {}
    void PLUGIN_API ignored4(void* /*hostDefined*/) override {}
    // Add and remove this extension as the document's storage listener. Return the document's
    // result; for null, kInvalidArgument.
    Steinberg::tresult PLUGIN_API documentOpened(host::IProjectDocument* document) override;
    Steinberg::tresult PLUGIN_API documentClosing(host::IProjectDocument* document) override;
    Steinberg::tresult PLUGIN_API ignored7(void* /*hostDefined*/) override {
        return Steinberg::kResultOk;
    }
    void PLUGIN_API ignored8(void* /*hostDefined*/) override {}
    // An argument that is null or does not answer IProjectNode is ignored, here and by hookEdit.
    void PLUGIN_API projectChanged(Steinberg::FUnknown* argument) override;

    void PLUGIN_API storageChanged(void* /*hostDefined*/) override {}

    Steinberg::tresult PLUGIN_API hookEdit(Steinberg::FUnknown* argument,
                                           host::IProjectEditContext* context) override;

private:
    // Keeps the extension alive while it calls the host, which may drop it meanwhile.
    Steinberg::IPtr<Steinberg::IPluginBase> holdSelf() {
        return Steinberg::shared<Steinberg::IPluginBase>(this);
    }
    void walkProject(Steinberg::FUnknown* argument, host::IProjectEditContext* context);

    Steinberg::IPtr<host::IProjectHost> projectHost_;
    Steinberg::IPtr<host::IProjectManager> projectManager_;
    tracks::TrackTable trackTable_;
};

} // namespace wybeta::extension
