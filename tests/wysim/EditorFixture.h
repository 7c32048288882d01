// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "simulator/RunningModule.h"
#include "tests/Options.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace wybeta::tests {

// A suite that uses editors with the built module, which is loaded once for all its tests.
template <class Base = testing::Test>
class EditorTest : public Base {
protected:
    static void SetUpTestSuite() {
        module_ = std::make_unique<simulator::RunningModule>(modulePath());
    }
    static void TearDownTestSuite() {
        module_->stop();
        module_.reset();
    }

    // Lets a test use an editor that holds nothing.
    static void useEditor(const std::function<void(simulator::Editor&)>& work) {
        module_->use(work);
    }

private:
    static std::unique_ptr<simulator::RunningModule> module_;
};

template <class Base>
std::unique_ptr<simulator::RunningModule> EditorTest<Base>::module_;

} // namespace wybeta::tests
