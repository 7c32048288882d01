// SPDX-License-Identifier: GPL-3.0-or-later
//
// The SDK's own code for hosts, which the simulated editor has nothing of, loads the module as
// well.
#include "tests/Options.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"
#include "public.sdk/source/vst/hosting/module.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace wybeta::tests {
namespace {

using VST3::UID;
using VST3::Hosting::ClassInfo;
using VST3::Hosting::Module;
using VST3::Hosting::PluginFactory;

// What a host is told to load: the file on Windows, elsewhere the folder that is packed around it.
std::filesystem::path pathForHosts() {
#ifdef _WIN32
    return modulePath();
#else
    return modulePath().parent_path().parent_path().parent_path();
#endif
}

bool isLoaded() {
#ifdef _WIN32
    return GetModuleHandleW(modulePath().filename().c_str()) != nullptr;
#else
    void* const module = dlopen(modulePath().c_str(), RTLD_NOW | RTLD_NOLOAD);
    return module != nullptr && dlclose(module) == 0;
#endif
}

// Throws when the SDK does not load the module.
Module::Ptr load() {
    std::string error;
    auto module = Module::create(pathForHosts().u8string(), error);
    if (!module) {
        throw std::runtime_error("expected the SDK to load the module, it did not: " + error);
    }
    return module;
}

void expectTheClass(const ClassInfo& info) {
    EXPECT_EQ(info.name(), "WY Beta");
    EXPECT_EQ(info.category(), "Service");
    EXPECT_EQ(info.vendor(), "WY Beta");
    EXPECT_EQ(info.version(), "3.0.3");
}

// Holds them all at once, and gives each back as the only one who holds it.
void makeTenExtensions(const PluginFactory& factory, const UID& id) {
    std::vector<Steinberg::IPtr<Steinberg::IPluginBase>> extensions;
    for (int i = 0; i < 10; ++i) {
        extensions.push_back(factory.createInstance<Steinberg::IPluginBase>(id));
        ASSERT_TRUE(extensions.back());
    }
    for (auto& extension : extensions) {
        EXPECT_EQ(extension.take()->release(), 0u);
    }
}

void loadAndUse() {
    const auto module = load();
    EXPECT_TRUE(isLoaded());
    const auto& factory = module->getFactory();
    const auto classes = factory.classInfos();
    ASSERT_EQ(classes.size(), 1u);
    expectTheClass(classes[0]);
    makeTenExtensions(factory, classes[0].ID());
}

// What keeps a module from being unloaded may come about only when it makes an extension.
TEST(SdkLoader, ListsTheClassMakesExtensionsAndUnloadsTheModuleEachTime) {
    for (int time = 0; time < 3; ++time) {
        loadAndUse();
        EXPECT_FALSE(isLoaded());
    }
}

TEST(SdkLoader, UnloadsTheModule) {
    load();
    EXPECT_FALSE(isLoaded());
}

} // namespace
} // namespace wybeta::tests
