// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/EditContext.h"

#include "host/InterfaceId.h"

namespace wybeta::simulator {

Steinberg::tresult EditContext::addEditStep(host::IEditStep* step) {
    if (enter("IProjectEditContext.addEditStep") == Answer::Refuse) {
        return Steinberg::kResultFalse;
    }
    steps_.push_back(Steinberg::shared(step));
    step->execute();
    return Steinberg::kResultOk;
}

void* EditContext::interfaceFor(const Steinberg::TUID id) {
    return host::sameId(id, Steinberg::FUnknown_iid) ? static_cast<host::IProjectEditContext*>(this)
                                                     : nullptr;
}

void ObjectCollector::addObject(host::IProjectNode* object) {
    enter("IEditObjectCollector.addObject");
    objects_.push_back(object);
}

void* ObjectCollector::interfaceFor(const Steinberg::TUID id) {
    return host::sameId(id, Steinberg::FUnknown_iid)
               ? static_cast<host::IEditObjectCollector*>(this)
               : nullptr;
}

} // namespace wybeta::simulator
