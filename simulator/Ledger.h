// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace wybeta::simulator {

class HostObject;

// Keeps the books of one simulated host: which of its objects are alive, and how many references to
// them the module holds. References that the simulator itself holds are not entered.
class Ledger {
public:
    void objectCreated(const HostObject& object) { alive_.insert(&object); }
    void objectDestroyed(const HostObject& object);
    void referenceTaken() { ++outstanding_; }
    void referenceGivenBack() { --outstanding_; }
    void fault(std::string sentence) { faults_.push_back(std::move(sentence)); }

    // References that the module holds now, over all objects.
    std::int64_t outstanding() const { return outstanding_; }
    std::size_t objectsAlive() const { return alive_.size(); }

    // Nothing is held, and nothing was given back that had not been taken.
    bool isBalanced() const { return outstanding_ == 0 && faults_.empty(); }

    // A line for each object that the module holds and for each fault; empty when balanced.
    std::string report() const;

private:
    std::unordered_set<const HostObject*> alive_;
    std::int64_t outstanding_ = 0;
    std::vector<std::string> faults_;
};

} // namespace wybeta::simulator
