// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectHost.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectHost.h"

#include <cstdint>

namespace wybeta::tests {

// A host with a project manager and, at first, no documents.
struct SimulatedHost {
    explicit SimulatedHost(const simulator::SharedState& state)
        : manager(simulator::makeHandle<simulator::ProjectManager>(state)),
          projectHost(simulator::makeHandle<simulator::ProjectHost>(state, manager)) {}

    // What an extension is initialised with.
    Steinberg::FUnknown* context() const {
        return static_cast<host::IProjectHost*>(projectHost.get());
    }

    simulator::Handle<simulator::Document> openDocument() const {
        return manager->documents.emplace_back(
            simulator::makeHandle<simulator::Document>(manager->state()));
    }

    // References that the module holds to the host and to its manager.
    std::int64_t references() const {
        return projectHost->moduleReferences() + manager->moduleReferences();
    }

    simulator::Handle<simulator::ProjectManager> manager;
    simulator::Handle<simulator::ProjectHost> projectHost;
};

} // namespace wybeta::tests
