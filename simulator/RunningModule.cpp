// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/RunningModule.h"

#include "simulator/HostObject.h"

#include <exception>
#include <stdexcept>
#include <utility>

namespace wybeta::simulator {

RunningModule::RunningModule(const std::filesystem::path& path) : module_(path) {
    if (!module_.initDll()) {
        throw std::runtime_error("expected InitDll to succeed, it did not");
    }
    isRunning_ = true;
    factory_ = Steinberg::owned(module_.getPluginFactory());
}

RunningModule::~RunningModule() {
    exit();
}

void RunningModule::use(const std::function<void(Editor&)>& work) const {
    SharedState state;
    std::exception_ptr failure;
    {
        Editor editor(factory());
        state = editor.state();
        try {
            work(editor);
        } catch (...) {
            failure = std::current_exception();
        }
    }
    if (!state->ledger.isBalanced()) {
        throw std::runtime_error("expected the module to give back all that it took, found:\n" +
                                 state->ledger.report());
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
}

void RunningModule::stop() {
    if (!exit()) {
        throw std::runtime_error("expected ExitDll to succeed, it did not");
    }
}

bool RunningModule::exit() {
    factory_ = nullptr;
    return !std::exchange(isRunning_, false) || module_.exitDll();
}

} // namespace wybeta::simulator
