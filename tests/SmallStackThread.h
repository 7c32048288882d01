// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <stdexcept>

#ifdef _WIN32
#include <windows.h>
#else
#include <pthread.h>
#endif

namespace wybeta::tests {

namespace detail {

struct Run {
    const std::function<void()>& function;
    std::exception_ptr failure;

    void operator()() {
        try {
            function();
        } catch (...) {
            failure = std::current_exception();
        }
    }
};

inline void requireThread(bool isMade) {
    if (!isMade) {
        throw std::runtime_error("expected a thread with a stack of the given size, got none");
    }
}

#ifdef _WIN32
inline DWORD WINAPI startRun(void* run) {
    (*static_cast<Run*>(run))();
    return 0;
}

inline void runThread(std::size_t stackBytes, Run& run) {
    const HANDLE thread = CreateThread(nullptr, stackBytes, &startRun, &run,
                                       STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    requireThread(thread != nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}
#else
inline void* startRun(void* run) {
    (*static_cast<Run*>(run))();
    return nullptr;
}

inline void runThread(std::size_t stackBytes, Run& run) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_t thread{};
    const bool isMade = pthread_attr_setstacksize(&attributes, stackBytes) == 0 &&
                        pthread_create(&thread, &attributes, &startRun, &run) == 0;
    pthread_attr_destroy(&attributes);
    requireThread(isMade);
    pthread_join(thread, nullptr);
}
#endif

} // namespace detail

// Runs the function to its end on a thread of its own with so large a stack. What it throws is
// thrown here. Throws std::runtime_error when the system gives no such thread.
inline void runOnStack(std::size_t bytes, const std::function<void()>& function) {
    detail::Run run{function, nullptr};
    detail::runThread(bytes, run);
    if (run.failure) {
        std::rethrow_exception(run.failure);
    }
}

} // namespace wybeta::tests
