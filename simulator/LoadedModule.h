// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

    // The exports themselves. The factory comes with a reference.
    Steinberg::IPluginFactory* getPluginFactory() const { return getPluginFactory_(); }
    bool initDll() const { return initDll_(); }
    bool exitDll() const { return exitDll_(); }

private:
    struct Library;

    std::unique_ptr<Library> library_;
    Steinberg::IPluginFactory*(PLUGIN_API* getPluginFactory_)() = nullptr;
    bool (*initDll_)() = nullptr;
    bool (*exitDll_)() = nullptr;
};

} // namespace wybeta::simulator
