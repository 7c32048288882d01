// SPDX-License-Identifier: GPL-3.0-or-later
#include "editsteps/EditStep.h"
#include "host/IEditStep.h"

#include <gtest/gtest.h>

namespace wybeta::tests {
namespace {

using Steinberg::kResultOk;
using Steinberg::tresult;

// Counts how often it is destroyed, and is touched meanwhile as by something that it releases.
class TouchedStep : public editsteps::EditStep {
public:
    explicit TouchedStep(int& destructions) : EditStep(nullptr), destructions_(destructions) {}
    ~TouchedStep() override {
        if (++destructions_ == 1) {
            for (int i = 0; i < 3; ++i) {
                addRef();
                addRef();
                release();
                release();
            }
        }
    }

    tresult PLUGIN_API execute() override { return kResultOk; }
    void PLUGIN_API undo() override {}
    void PLUGIN_API redo() override {}
    tresult PLUGIN_API reportChangedObjects(host::IEditObjectCollector* /*collector*/) override {
        return kResultOk;
    }

private:
    int& destructions_;
};

TEST(EditStep, IsDestroyedOnceWhenItIsTouchedMeanwhile) {
    int destructions = 0;
    host::IEditStep* const step = new TouchedStep(destructions);
    EXPECT_EQ(step->addRef(), 2u);
    EXPECT_EQ(step->release(), 1u);
    EXPECT_EQ(destructions, 0);
    EXPECT_EQ(step->release(), 0u);
    EXPECT_EQ(destructions, 1);
}

} // namespace
} // namespace wybeta::tests
