// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/ExtensionInstance.h"
#include "simulator/RunningModule.h"
#include "tests/Options.h"
#include "tests/faults/Subject.h"

#include <memory>
#include <optional>

namespace wybeta::tests {

namespace {

class ModuleSubject : public Subject {
public:
    const simulator::ExtensionInstance& extension() const override { return extension_; }

    bool showsTable() const override { return false; }
    std::optional<SeenTracks> table() const override { return std::nullopt; }

private:
    const simulator::RunningModule module_{modulePath()};
    const simulator::ExtensionInstance extension_{module_.factory()};
};

} // namespace

std::unique_ptr<Subject> makeSubject() {
    return std::make_unique<ModuleSubject>();
}

} // namespace wybeta::tests
