// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/HostObject.h"

#include <string>

namespace wybeta::simulator {

HostObject::HostObject(SharedState state, const char* className)
    : state_(std::move(state)), className_(className) {
    state_->ledger.objectCreated(*this);
}

HostObject::~HostObject() {
    state_->ledger.objectDestroyed(*this);
}

void HostObject::drop() {
    --handles_;
    destroyWhenUnused();
}

Steinberg::uint32 HostObject::addModuleReference() {
    ++moduleReferences_;
    state_->ledger.referenceTaken();
    return static_cast<Steinberg::uint32>(moduleReferences_);
}

Steinberg::uint32 HostObject::releaseModuleReference() {
    if (moduleReferences_ == 0) {
        state_->ledger.fault(std::string(className_) + " was given back without having been taken");
        return 0;
    }
    --moduleReferences_;
    state_->ledger.referenceGivenBack();
    const auto left = static_cast<Steinberg::uint32>(moduleReferences_);
    destroyWhenUnused();
    return left;
}

void HostObject::destroyWhenUnused() {
    if (handles_ == 0 && moduleReferences_ == 0) {
        delete this;
    }
}

} // namespace wybeta::simulator
