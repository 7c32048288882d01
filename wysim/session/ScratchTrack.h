// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "wysim/words/LyricReader.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::session {

using words::Syllables;

// An empty track into which lyrics are typed. There is always room for one more syllable.
class ScratchTrack {
public:
    // Adds the track to the editor, which has to outlive this. The less else the editor holds, the
    // faster it is.
    explicit ScratchTrack(simulator::Editor& editor);

    // What the extension gives the notes when the lyric is typed into the first of them; nothing
    // when it does not sing the lyric. The track is empty again afterwards.
    Syllables divide(const std::string& lyric);

private:
    void addNotes(std::size_t count);
    Syllables carried() const;

    simulator::Editor& editor_;
    simulator::Handle<simulator::Part> part_;
    std::vector<simulator::Handle<simulator::Event>> notes_;
};

} // namespace wybeta::wysim::session
