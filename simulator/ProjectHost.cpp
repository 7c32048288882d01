// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/ProjectHost.h"

#include "host/InterfaceId.h"

#include <algorithm>
#include <cstddef>

namespace wybeta::simulator {

namespace {

template <class Sink>
Steinberg::tresult removeSink(std::vector<Sink*>& sinks, const Sink* sink) {
    const auto place = std::find(sinks.begin(), sinks.end(), sink);
    if (place == sinks.end()) {
        return Steinberg::kResultFalse;
    }
    sinks.erase(place);
    return Steinberg::kResultOk;
}

} // namespace

Steinberg::tresult Document::addStorageNotification(host::IProjectStorageNotification* sink) {
    if (enter("IProjectDocument.addStorageNotification") == Answer::Refuse) {
        return Steinberg::kResultFalse;
    }
    sinks_.push_back(sink);
    return Steinberg::kResultOk;
}

Steinberg::tresult Document::removeStorageNotification(host::IProjectStorageNotification* sink) {
    if (enter("IProjectDocument.removeStorageNotification") == Answer::Refuse) {
        return Steinberg::kResultFalse;
    }
    removed_.push_back(sink);
    return removeSink(sinks_, sink);
}

void* Document::interfaceFor(const Steinberg::TUID id) {
    return host::sameId(id, Steinberg::FUnknown_iid) ? static_cast<host::IProjectDocument*>(this)
                                                     : nullptr;
}

void ProjectManager::close(const Document& document) {
    const auto isIt = [&document](const auto& other) { return other.get() == &document; };
    documents.erase(std::remove_if(documents.begin(), documents.end(), isIt), documents.end());
}

Steinberg::int32 ProjectManager::countDocuments() {
    return enter("IProjectManager.countDocuments") == Answer::Refuse
               ? 0
               : static_cast<Steinberg::int32>(documents.size());
}

host::IProjectDocument* ProjectManager::getDocument(Steinberg::int32 index) {
    const auto place = static_cast<std::size_t>(index);
    if (enter("IProjectManager.getDocument") == Answer::Refuse || place >= documents.size()) {
        return nullptr;
    }
    return documents[place].get();
}

Steinberg::tresult ProjectManager::addNotification(host::IProjectNotification3* sink) {
    if (enter("IProjectManager.addNotification") == Answer::Refuse) {
        return Steinberg::kResultFalse;
    }
    sinks_.push_back(sink);
    return Steinberg::kResultOk;
}

Steinberg::tresult ProjectManager::removeNotification(host::IProjectNotification3* sink) {
    if (enter("IProjectManager.removeNotification") == Answer::Refuse) {
        return Steinberg::kResultFalse;
    }
    return removeSink(sinks_, sink);
}

void* ProjectManager::interfaceFor(const Steinberg::TUID id) {
    const bool answers =
        host::sameId(id, Steinberg::FUnknown_iid) || host::sameId(id, host::IProjectManager::iid);
    return answers ? static_cast<host::IProjectManager*>(this) : nullptr;
}

Steinberg::tresult ProjectHost::getInterface(const Steinberg::TUID id, void** object) {
    *object = nullptr;
    if (enter("IProjectHost.getInterface") == Answer::Refuse || !manager_) {
        return Steinberg::kNoInterface;
    }
    return manager_->queryInterface(id, object);
}

void* ProjectHost::interfaceFor(const Steinberg::TUID id) {
    const bool answers =
        host::sameId(id, Steinberg::FUnknown_iid) || host::sameId(id, host::IProjectHost::iid);
    return answers ? static_cast<host::IProjectHost*>(this) : nullptr;
}

} // namespace wybeta::simulator
