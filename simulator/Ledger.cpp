// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/Ledger.h"

#include "simulator/HostObject.h"

namespace wybeta::simulator {

void Ledger::objectDestroyed(const HostObject& object) {
    alive_.erase(&object);
}

std::string Ledger::report() const {
    std::string lines;
    for (const auto* object : alive_) {
        if (object->moduleReferences() != 0) {
            lines += std::string(object->className()) + " is held " +
                     std::to_string(object->moduleReferences()) + " times\n";
        }
    }
    for (const auto& fault : faults_) {
        lines += fault + "\n";
    }
    return lines;
}

} // namespace wybeta::simulator
