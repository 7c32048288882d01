// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"

#include "pluginterfaces/base/ipluginbase.h"

#include <optional>
#include <utility>

namespace wybeta::simulator {

// An editor whose extension has to give back all that it takes.
class EditorSession {
public:
    explicit EditorSession(Steinberg::IPluginFactory& factory)
        : editor_(std::in_place, factory), state_(editor_->state()) {}

    // Until the end.
    Editor& editor() { return *editor_; }

    // Ends the editor. Throws std::runtime_error when the extension still holds anything of it.
    void end();

private:
    std::optional<Editor> editor_;
    SharedState state_;
};

} // namespace wybeta::simulator
