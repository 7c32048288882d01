// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "simulator/LoadedModule.h"
#include "simulator/ModuleExports.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace wybeta::simulator {

// A module between InitDll and ExitDll, whose factory is held meanwhile. The destructor gives
// everything back, whatever was thrown.
class RunningModule {
public:
    // Loads the module. Throws std::runtime_error when the file is no module or InitDll fails.
    explicit RunningModule(const std::filesystem::path& path);
    // Runs a module that is in the program already. Throws std::runtime_error when InitDll fails.
    explicit RunningModule(const ModuleExports& exports);
    ~RunningModule();
    RunningModule(const RunningModule&) = delete;
    RunningModule& operator=(const RunningModule&) = delete;

    Steinberg::IPluginFactory& factory() const { return *factory_; }

    // Lets `work` use an editor with an extension of the module. Throws what `work` throws, and
    // std::runtime_error when the extension has not given back all that it took from the editor.
    void use(const std::function<void(Editor&)>& work) const;

    // Gives everything back now. Throws std::runtime_error when ExitDll fails.
    void stop();

private:
    explicit RunningModule(std::unique_ptr<LoadedModule> file);
    bool exit();

    std::unique_ptr<LoadedModule> file_; // null for a module that was not loaded here
    ModuleExports exports_;
    Steinberg::IPtr<Steinberg::IPluginFactory> factory_;
    bool isRunning_ = false;
};

} // namespace wybeta::simulator
