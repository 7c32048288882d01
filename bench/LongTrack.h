// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"

#include <cstddef>

namespace wybeta::bench {

// An editor with one track of many notes that the built module has walked over once.
class LongTrack {
public:
    // The notes whose position is a multiple of `flaggedEvery` are flagged.
    LongTrack(std::size_t notes, std::size_t flaggedEvery);

    simulator::Editor& editor() { return editor_; }
    simulator::Event& note(std::size_t position);

    // Changes the lyric of every note, without telling the extension.
    void setLyrics(const char* lyric);

private:
    simulator::Editor editor_;
    simulator::Handle<simulator::Part> part_;
};

} // namespace wybeta::bench
