// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/RunningModule.h"

#include "simulator/EditorSession.h"

#include <exception>
#include <stdexcept>
#include <utility>

namespace wybeta::simulator {

RunningModule::RunningModule(const std::filesystem::path& path)
    : RunningModule(std::make_unique<LoadedModule>(path)) {}

RunningModule::RunningModule(std::unique_ptr<LoadedModule> file) : RunningModule(file->exports()) {
    file_ = std::move(file);
}

RunningModule::RunningModule(const ModuleExports& exports) : exports_(exports) {
    if (!exports_.initDll()) {
        throw std::runtime_error("expected InitDll to succeed, it did not");
    }
    isRunning_ = true;
    factory_ = Steinberg::owned(exports_.getPluginFactory());
}

RunningModule::~RunningModule() {
    exit();
}

void RunningModule::use(const std::function<void(Editor&)>& work) const {
    EditorSession session(factory());
    std::exception_ptr failure;
    try {
        work(session.editor());
    } catch (...) {
        failure = std::current_exception();
    }
    session.end();
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
    return !std::exchange(isRunning_, false) || exports_.exitDll();
}

} // namespace wybeta::simulator
