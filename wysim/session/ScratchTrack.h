// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::session {

// The phonemes of the sung syllables of a lyric, one string for each note that carries one.
using Syllables = std::vector<std::string>;

// An empty track in which lyrics are tried. There is always room for one more syllable.
class ScratchTrack {
public:
    // Adds the track to the editor, which has to outlive this. The less else the editor holds, the
    // faster is a try.
    explicit ScratchTrack(simulator::Editor& editor);

    // What the extension gives the notes when the lyric is typed into the first of them; nothing
    // when it does not sing the lyric. The track is empty again afterwards.
    Syllables divide(const std::string& lyric);

    // How many lyrics were divided so far.
    std::size_t tries() const { return tries_; }

private:
    void addNotes(std::size_t count);
    Syllables carried() const;

    simulator::Editor& editor_;
    simulator::Handle<simulator::Part> part_;
    std::vector<simulator::Handle<simulator::Event>> notes_;
    std::size_t tries_ = 0;
};

// The tries that the search for one word may take. When they are used up, nothing is sung any more.
class LimitedTries {
public:
    // The track has to outlive this.
    LimitedTries(ScratchTrack& scratch, std::size_t most) : scratch_(scratch), left_(most) {}

    Syllables divide(const std::string& lyric);
    bool areUsedUp() const { return left_ == 0; }

private:
    ScratchTrack& scratch_;
    std::size_t left_;
};

} // namespace wybeta::wysim::session
