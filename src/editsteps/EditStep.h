// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "host/InterfaceId.h"
#include "host/ReferenceCount.h"

#include "pluginterfaces/base/smartpointer.h"

namespace wybeta::editsteps {

// What both kinds of step share: identity, the reference count and the track that they belong to. A
// step is constructed with one reference and never changes: the host may call its methods in any
// order and any number of times, even after the extension is gone.
class EditStep : public host::IEditStep {
public:
    virtual ~EditStep() = default;
    EditStep(const EditStep&) = delete;
    EditStep& operator=(const EditStep&) = delete;

    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID id, void** object) final {
        if (!host::sameId(id, Steinberg::FUnknown_iid) && !host::sameId(id, host::IEditStep::iid)) {
            *object = nullptr;
            return Steinberg::kNoInterface;
        }
        addRef();
        *object = static_cast<host::IEditStep*>(this);
        return Steinberg::kResultOk;
    }
    Steinberg::uint32 PLUGIN_API addRef() final {
        return static_cast<Steinberg::uint32>(
            Steinberg::FUnknownPrivate::atomicAdd(references_, 1));
    }
    Steinberg::uint32 PLUGIN_API release() final {
        return host::releaseReference(this, references_);
    }

protected:
    // The track node is borrowed: the step never holds or releases it.
    explicit EditStep(host::IProjectNode* trackNode) : trackNode_(trackNode) {}

    host::IProjectNode* trackNode() const { return trackNode_; }

    // Keeps the step alive while one of its methods calls the host, which may drop it meanwhile.
    Steinberg::IPtr<host::IEditStep> holdSelf() { return Steinberg::shared<host::IEditStep>(this); }

private:
    Steinberg::int32 references_ = 1;
    host::IProjectNode* trackNode_;
};

} // namespace wybeta::editsteps
