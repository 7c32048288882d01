// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "simulator/LoadedModule.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

#include <filesystem>
#include <functional>

namespace wybeta::simulator {

// A loaded module between InitDll and ExitDll, whose factory is held meanwhile. The destructor
// gives everything back, whatever was thrown.
class RunningModule {
public:
    // Throws std::runtime_error when the file is no module or InitDll fails.
    explicit RunningModule(const std::filesystem::path& path);
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
    bool exit();

    LoadedModule module_;
    Steinberg::IPtr<Steinberg::IPluginFactory> factory_;
    bool isRunning_ = false;
};

} // namespace wybeta::simulator
