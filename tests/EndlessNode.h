// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNode.h"
#include "host/InterfaceId.h"
#include "simulator/HostObject.h"

#include <functional>
#include <stdexcept>
#include <utility>

namespace wybeta::tests {

// Counts calls, and throws once there are more of them than anything should need: a test of what
// never ends is not to be endless itself.
class Patience {
public:
    void use() {
        if (++used_ > kMostCalls) {
            throw std::runtime_error("expected the calls to come to an end, they do not");
        }
    }

private:
    static constexpr int kMostCalls = 8'000'000;

    int used_ = 0;
};

// Says for ever that it is not at its end.
class EndlessIterator
    : public simulator::Implements<simulator::HostObject, host::IProjectNodeIterator> {
public:
    // Gives what is yielded next, which may be null.
    using Next = std::function<host::IProjectItem*()>;

    EndlessIterator(simulator::SharedState state, Next next)
        : Implements(std::move(state), "EndlessIterator"), next_(std::move(next)) {}

    host::IProjectItem* PLUGIN_API next() override {
        patience_.use();
        return next_();
    }
    bool PLUGIN_API atEnd() override { return false; }

protected:
    void* interfaceFor(const Steinberg::TUID id) override {
        return host::sameId(id, Steinberg::FUnknown_iid) ? this : nullptr;
    }

private:
    Next next_;
    Patience patience_;
};

// A folder, a track or a part whose children never end.
template <class Node>
class EndlessNode : public Node {
public:
    EndlessNode(simulator::SharedState state, EndlessIterator::Next next)
        : Node(std::move(state)), next_(std::move(next)) {}

    host::IProjectNodeIterator* PLUGIN_API children() override {
        const auto iterator = simulator::makeHandle<EndlessIterator>(this->state(), next_);
        return simulator::handOver<host::IProjectNodeIterator>(iterator.get());
    }

private:
    EndlessIterator::Next next_;
};

} // namespace wybeta::tests
