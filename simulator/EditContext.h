// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "simulator/HostObject.h"

#include "pluginterfaces/base/smartpointer.h"

#include <utility>
#include <vector>

namespace wybeta::simulator {

using EditSteps = std::vector<Steinberg::IPtr<host::IEditStep>>;

// The edit that is being recorded while the edit hook runs. Performs each step as it is added.
class EditContext : public Implements<HostObject, host::IProjectEditContext> {
public:
    explicit EditContext(SharedState state) : Implements(std::move(state), "EditContext") {}

    const EditSteps& steps() const { return steps_; }

    Steinberg::tresult PLUGIN_API addEditStep(host::IEditStep* step) override;

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    EditSteps steps_;
};

// Keeps the nodes that a step reports, in order.
class ObjectCollector : public Implements<HostObject, host::IEditObjectCollector> {
public:
    explicit ObjectCollector(SharedState state) : Implements(std::move(state), "ObjectCollector") {}

    // Not owned.
    const std::vector<host::IProjectNode*>& objects() const { return objects_; }

    void PLUGIN_API addObject(host::IProjectNode* object) override;

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    std::vector<host::IProjectNode*> objects_;
};

} // namespace wybeta::simulator
