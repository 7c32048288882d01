// SPDX-License-Identifier: GPL-3.0-or-later
//
// The editor's side of a session: the host, its project manager and the open documents.
#pragma once

#include "host/IProjectDocument.h"
#include "host/IProjectHost.h"
#include "host/IProjectManager.h"
#include "host/IProjectNotification.h"
#include "simulator/HostObject.h"

#include <utility>
#include <vector>

namespace wybeta::simulator {

class Document : public Implements<HostObject, host::IProjectDocument> {
public:
    explicit Document(SharedState state) : Implements(std::move(state), "Document") {}

    // Who is registered now; not owned.
    const std::vector<host::IProjectStorageNotification*>& sinks() const { return sinks_; }
    // Everyone who was unregistered, in order, whether it was registered or not.
    const std::vector<host::IProjectStorageNotification*>& removed() const { return removed_; }

    Steinberg::tresult PLUGIN_API
    addStorageNotification(host::IProjectStorageNotification* sink) override;
    Steinberg::tresult PLUGIN_API
    removeStorageNotification(host::IProjectStorageNotification* sink) override;

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    std::vector<host::IProjectStorageNotification*> sinks_;
    std::vector<host::IProjectStorageNotification*> removed_;
};

class ProjectManager : public Implements<HostObject, host::IProjectManager> {
public:
    explicit ProjectManager(SharedState state) : Implements(std::move(state), "ProjectManager") {}

    // Null in the list is handed out as null.
    std::vector<Handle<Document>> documents;
    // Takes a document off the list.
    void close(const Document& document);

    const std::vector<host::IProjectNotification3*>& sinks() const { return sinks_; }

    Steinberg::int32 PLUGIN_API countDocuments() override;
    host::IProjectDocument* PLUGIN_API getDocument(Steinberg::int32 index) override;
    Steinberg::tresult PLUGIN_API addNotification(host::IProjectNotification3* sink) override;
    Steinberg::tresult PLUGIN_API removeNotification(host::IProjectNotification3* sink) override;

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    std::vector<host::IProjectNotification3*> sinks_;
};

class ProjectHost : public Implements<HostObject, host::IProjectHost> {
public:
    // A host without a manager answers no interface by ID.
    ProjectHost(SharedState state, Handle<ProjectManager> manager)
        : Implements(std::move(state), "ProjectHost"), manager_(std::move(manager)) {}

    Steinberg::tresult PLUGIN_API getInterface(const Steinberg::TUID id, void** object) override;

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    Handle<ProjectManager> manager_;
};

} // namespace wybeta::simulator
