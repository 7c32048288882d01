// SPDX-License-Identifier: GPL-3.0-or-later
#include "extension/WyBetaExtension.h"

#include "dictionary/PronunciationDictionary.h"
#include "extension/ProjectWalk.h"
#include "host/IProjectNode.h"
#include "host/InterfaceId.h"
#include "host/Query.h"
#include "resources/ResourceTable.h"

#include <cstring>
#include <utility>

namespace wybeta::extension {

namespace {

using Steinberg::IPtr;
using Steinberg::kInvalidArgument;
using Steinberg::kResultFalse;
using Steinberg::kResultOk;
using Steinberg::tresult;

IPtr<host::IProjectManager> findManager(host::IProjectHost& projectHost) {
    void* found = nullptr;
    if (projectHost.getInterface(host::IProjectManager::iid, &found) != kResultOk) {
        return {};
    }
    return Steinberg::owned(static_cast<host::IProjectManager*>(found));
}

dictionary::PronunciationDictionary loadEmbeddedDictionary() {
    const auto& text = *resources::findResource("cmudict0_7butf8spll");
    return dictionary::loadPronunciationDictionary(text.data, text.size,
                                                   dictionary::TextLifetime::OutlivesTheDictionary);
}

} // namespace

WyBetaExtension::WyBetaExtension() {
    dictionary::pronunciationDictionary() = loadEmbeddedDictionary();
}

// The manager and the host may call back while they are released, so this happens before any member
// is destroyed, and std::exchange empties a member before what it held is released. A host may drop
// the extension without having terminated it.
WyBetaExtension::~WyBetaExtension() {
    trackTable_.clear();
    std::exchange(projectManager_, {});
    std::exchange(projectHost_, {});
    if (tracks::currentTrackTable() == &trackTable_) {
        tracks::currentTrackTable() = nullptr;
    }
}

tresult PLUGIN_API WyBetaExtension::queryInterface(const Steinberg::TUID id, void** object) {
    const auto answer = [this, object](void* face) {
        addRef();
        *object = face;
        return kResultOk;
    };
    if (host::sameId(id, Steinberg::IPluginBase_iid)) {
        return answer(static_cast<Steinberg::IPluginBase*>(this));
    }
    if (host::sameId(id, host::IProjectNotification::iid) ||
        host::sameId(id, host::IProjectNotification2::iid) ||
        host::sameId(id, host::IProjectNotification3::iid)) {
        return answer(static_cast<host::IProjectNotification3*>(this));
    }
    if (host::sameId(id, host::IProjectStorageNotification::iid)) {
        return answer(static_cast<host::IProjectStorageNotification*>(this));
    }
    if (host::sameId(id, host::IProjectEditHook::iid)) {
        return answer(static_cast<host::IProjectEditHook*>(this));
    }
    // The SDK reads an ID as two 64-bit words, the host may have it at any address.
    alignas(Steinberg::uint64) Steinberg::TUID aligned = {};
    std::memcpy(aligned, id, sizeof(aligned));
    return FObject::queryInterface(aligned, object);
}

tresult PLUGIN_API WyBetaExtension::initialize(Steinberg::FUnknown* context) {
    const auto self = holdSelf();
    std::exchange(projectHost_, host::query<host::IProjectHost>(context));
    const auto projectHost = projectHost_;
    if (!projectHost) {
        return kResultFalse;
    }
    std::exchange(projectManager_, findManager(*projectHost));
    if (const auto manager = projectManager_) {
        manager->addNotification(this);
    }
    tracks::currentTrackTable() = &trackTable_;
    return kResultOk;
}

tresult PLUGIN_API WyBetaExtension::terminate() {
    const auto self = holdSelf();
    tracks::currentTrackTable() = nullptr;
    std::exchange(projectHost_, {});
    // Moved out of the object first, so that a host that calls back finds it terminated.
    const auto manager = std::exchange(projectManager_, {});
    if (!manager) {
        return kResultOk;
    }
    manager->removeNotification(this);
    for (Steinberg::int32 i = 0; i < manager->countDocuments(); ++i) {
        if (auto* const document = manager->getDocument(i)) {
            document->removeStorageNotification(this);
        }
    }
    return kResultOk;
}

tresult PLUGIN_API WyBetaExtension::documentOpened(host::IProjectDocument* document) {
    return document != nullptr ? document->addStorageNotification(this) : kInvalidArgument;
}

tresult PLUGIN_API WyBetaExtension::documentClosing(host::IProjectDocument* document) {
    return document != nullptr ? document->removeStorageNotification(this) : kInvalidArgument;
}

void PLUGIN_API WyBetaExtension::projectChanged(Steinberg::FUnknown* argument) {
    walkProject(argument, nullptr);
}

tresult PLUGIN_API WyBetaExtension::hookEdit(Steinberg::FUnknown* argument,
                                             host::IProjectEditContext* context) {
    walkProject(argument, context);
    return kResultOk;
}

void WyBetaExtension::walkProject(Steinberg::FUnknown* argument,
                                  host::IProjectEditContext* context) {
    // The host may drop any of these while it is called back.
    const auto self = holdSelf();
    const auto keptArgument = Steinberg::shared(argument);
    const auto keptContext = Steinberg::shared(context);
    auto node = host::query<host::IProjectNode>(argument);
    if (!node) {
        return;
    }
    ProjectWalk walk(trackTable_, static_cast<host::IProjectNotificationArgument&>(*argument),
                     context);
    walk.run(std::move(node));
    tracks::pruneTrackTable(trackTable_, walk.visited());
}

} // namespace wybeta::extension
