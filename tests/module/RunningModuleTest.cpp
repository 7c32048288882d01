// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/RunningModule.h"
#include "simulator/Editor.h"
#include "simulator/LoadedModule.h"
#include "tests/Options.h"

#include "pluginterfaces/base/funknown.h"
#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace wybeta::tests {
namespace {

using simulator::Editor;

struct WorkGivesUp {};

// Keeps the module loaded meanwhile, so that what is left of a run can be looked at.
class RunningModule : public testing::Test {
protected:
    // Expects that there are as many exits as inits, and no reference to the factory but this one.
    void TearDown() override {
        EXPECT_TRUE(module.initDll());
        EXPECT_TRUE(module.exitDll());
        EXPECT_FALSE(module.exitDll()) << "the module was not told to exit";
        auto* const factory = module.getPluginFactory();
        EXPECT_EQ(factory->release(), 0u) << "references to the factory are left";
    }

    // What goes wrong in a run; empty when nothing does.
    static std::string complaintOf(const std::function<void(Editor&)>& work) {
        simulator::RunningModule running(modulePath());
        try {
            running.use(work);
            running.stop();
            return {};
        } catch (const std::runtime_error& error) {
            return error.what();
        }
    }

    const simulator::LoadedModule module{modulePath()};
};

TEST_F(RunningModule, HasAFactoryAndLetsAnEditorWork) {
    simulator::RunningModule running(modulePath());
    EXPECT_EQ(running.factory().countClasses(), 1);
    bool isDone = false;
    running.use([&isDone](Editor& editor) {
        editor.notify();
        isDone = true;
    });
    EXPECT_TRUE(isDone);
    running.stop();
}

TEST_F(RunningModule, RunsWhatIsInTheProgramAlready) {
    simulator::RunningModule running(module.exports());
    EXPECT_EQ(running.factory().countClasses(), 1);
    running.use([](Editor& editor) { editor.notify(); });
    running.stop();
}

TEST_F(RunningModule, GivesEverythingBackByItself) {
    const simulator::RunningModule running(modulePath());
    running.use([](Editor&) {});
}

TEST_F(RunningModule, GivesEverythingBackWhenTheWorkThrows) {
    const simulator::RunningModule running(modulePath());
    EXPECT_THROW(running.use([](Editor&) { throw WorkGivesUp(); }), WorkGivesUp);
}

TEST_F(RunningModule, LetsAnotherEditorWorkAfterOneThatGaveUp) {
    const simulator::RunningModule running(modulePath());
    EXPECT_THROW(running.use([](Editor&) { throw WorkGivesUp(); }), WorkGivesUp);
    bool isDone = false;
    running.use([&isDone](Editor&) { isDone = true; });
    EXPECT_TRUE(isDone);
}

TEST_F(RunningModule, ReportsWhatIsHeldOfTheEditorAfterTheWork) {
    Steinberg::IPtr<Steinberg::FUnknown> held;
    const auto complaint =
        complaintOf([&held](Editor& editor) { held = editor.project().argument(); });
    EXPECT_EQ(complaint, "expected the module to give back all that it took, found:\n"
                         "Project is held 1 times\n");
}

TEST_F(RunningModule, ReportsWhatIsHeldOfTheEditorEvenWhenTheWorkThrows) {
    Steinberg::IPtr<Steinberg::FUnknown> held;
    const auto complaint = complaintOf([&held](Editor& editor) {
        held = editor.project().argument();
        throw WorkGivesUp();
    });
    EXPECT_NE(complaint.find("Project is held 1 times"), std::string::npos) << complaint;
}

TEST_F(RunningModule, ReportsThatTheModuleDidNotExit) {
    const auto complaint = complaintOf([this](Editor&) { module.exitDll(); });
    EXPECT_EQ(complaint, "expected ExitDll to succeed, it did not");
    module.initDll();
}

TEST_F(RunningModule, NamesTheFileThatIsNoModule) {
    try {
        const simulator::RunningModule running("no-such-file");
        FAIL() << "the file was loaded";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("no-such-file"), std::string::npos);
    }
}

} // namespace
} // namespace wybeta::tests
