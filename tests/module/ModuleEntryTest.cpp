// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/LoadedModule.h"
#include "tests/Options.h"

#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#ifndef _WIN32
#include <dlfcn.h>
#endif

namespace wybeta {
namespace {

using simulator::LoadedModule;
using tests::modulePath;

TEST(ModuleEntry, SucceedsForAsManyExitsAsThereWereInits) {
    const LoadedModule module(modulePath());
    EXPECT_TRUE(module.initDll());
    EXPECT_TRUE(module.initDll());
    EXPECT_TRUE(module.exitDll());
    EXPECT_TRUE(module.exitDll());
    EXPECT_FALSE(module.exitDll());
}

TEST(ModuleEntry, SucceedsAgainAfterAnExitTooMuchWasMadeUpFor) {
    const LoadedModule module(modulePath());
    EXPECT_FALSE(module.exitDll());
    EXPECT_FALSE(module.exitDll());
    EXPECT_TRUE(module.initDll());
    EXPECT_TRUE(module.initDll());
    EXPECT_TRUE(module.initDll());
    EXPECT_TRUE(module.exitDll());
    EXPECT_FALSE(module.exitDll());
}

TEST(ModuleEntry, StartsFromZeroWheneverTheModuleIsLoaded) {
    for (int load = 0; load < 2; ++load) {
        const LoadedModule module(modulePath());
        EXPECT_TRUE(module.initDll());
        EXPECT_TRUE(module.exitDll());
        EXPECT_FALSE(module.exitDll());
    }
}

TEST(ModuleEntry, OffersTheFactoryWithoutAnInit) {
    const LoadedModule module(modulePath());
    const auto factory = Steinberg::owned(module.getPluginFactory());
    EXPECT_EQ(factory->countClasses(), 1);
}

TEST(LoadedModule, NamesTheFileThatItCannotLoad) {
    try {
        const LoadedModule module("no-such-file");
        FAIL() << "the file was loaded";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("no-such-file"), std::string::npos)
            << error.what();
    }
}

#ifndef _WIN32
TEST(ModuleEntry, CountsTheEntriesAndExitsOfLinuxAsInitsAndExits) {
    const LoadedModule module(modulePath());
    void* const library = dlopen(absolute(modulePath()).c_str(), RTLD_NOW);
    const auto moduleEntry = reinterpret_cast<bool (*)(void*)>(dlsym(library, "ModuleEntry"));
    const auto moduleExit = reinterpret_cast<bool (*)()>(dlsym(library, "ModuleExit"));

    EXPECT_TRUE(moduleEntry(library));
    EXPECT_TRUE(module.initDll());
    EXPECT_TRUE(moduleExit());
    EXPECT_TRUE(module.exitDll());
    EXPECT_FALSE(moduleExit());
    EXPECT_FALSE(module.exitDll());
    dlclose(library);
}
#endif

} // namespace
} // namespace wybeta
