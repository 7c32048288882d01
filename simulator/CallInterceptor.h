// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

namespace wybeta::simulator {

class HostObject;

// One call that the module makes into the simulated host.
struct HostCall {
    std::string_view name; // such as "IProjectNode.children"
    HostObject& object;
};

// What the host does with a call: its work, or the failure that the call has (null, false, an
// error).
enum class Answer { Normal, Refuse };

// Sees every call that the module makes, and lets a test act in the middle of one: refuse it,
// throw, or call the module back.
class CallInterceptor {
public:
    using Interceptor = std::function<Answer(const HostCall&)>;

    void intercept(Interceptor interceptor) { interceptor_ = std::move(interceptor); }
    void stopIntercepting() { interceptor_ = nullptr; }

    Answer enter(const HostCall& call) {
        ++count_;
        return interceptor_ ? interceptor_(call) : Answer::Normal;
    }

    std::uint64_t count() const { return count_; }

private:
    Interceptor interceptor_;
    std::uint64_t count_ = 0;
};

} // namespace wybeta::simulator
