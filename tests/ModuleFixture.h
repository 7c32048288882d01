// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/ExtensionInstance.h"
#include "simulator/HostObject.h"
#include "simulator/LoadedModule.h"
#include "tests/Options.h"
#include "tests/SimulatedHost.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace wybeta::tests {

// Loads the built module for one test and gives the test a host. At the end, everything that the
// module made is given back, and must then be gone together with all that it held of the host.
class ModuleFixture : public testing::Test {
protected:
    void TearDown() override {
        if (factory) {
            EXPECT_EQ(factory.take()->release(), 0u) << "references to the factory are left";
        }
        EXPECT_TRUE(state->ledger.isBalanced()) << state->ledger.report();
        host.reset();
        EXPECT_EQ(state->ledger.objectsAlive(), 0u);
    }

    const simulator::LoadedModule module{modulePath()};
    const simulator::SharedState state = std::make_shared<simulator::HostState>();
    std::optional<SimulatedHost> host{state};
    Steinberg::IPtr<Steinberg::IPluginFactory> factory =
        Steinberg::owned(module.getPluginFactory());
};

// Has an extension as well, not yet initialised.
class ExtensionFixture : public ModuleFixture {
protected:
    void TearDown() override {
        if (extension) {
            giveBackExtension();
        }
        ModuleFixture::TearDown();
    }

    // Gives the extension back, as the one who holds its last reference.
    void giveBackExtension() {
        auto& base = extension->base();
        base.addRef();
        extension.reset();
        EXPECT_EQ(base.release(), 0u) << "references to the extension are left";
    }

    std::optional<simulator::ExtensionInstance> extension{*factory};
};

} // namespace wybeta::tests
