// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/ModuleExports.h"

#include "pluginterfaces/base/ipluginbase.h"

#include <filesystem>
#include <memory>

namespace wybeta::simulator {

// A module file loaded into this process the way an editor loads it: by its path, through its
// exports. Unloaded when the object goes.
class LoadedModule {
public:
    // Throws std::runtime_error, saying which file or export could not be had.
    explicit LoadedModule(const std::filesystem::path& path);
    ~LoadedModule();
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    // Good as long as this.
    const ModuleExports& exports() const { return exports_; }

    Steinberg::IPluginFactory* getPluginFactory() const { return exports_.getPluginFactory(); }
    bool initDll() const { return exports_.initDll(); }
    bool exitDll() const { return exports_.exitDll(); }

private:
    struct Library;

    std::unique_ptr<Library> library_;
    ModuleExports exports_{};
};

} // namespace wybeta::simulator
