// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "wysim/session/ScratchTrack.h"
#include "wysim/words/TextCheck.h"

#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>

namespace wybeta::wysim::session {

// The module sings a lyric otherwise than it was read: one of the two is of another version, or has
// a fault.
class ModuleDisagrees : public std::logic_error {
public:
    ModuleDisagrees(const std::string& lyric, const Syllables& sung, const Syllables& read);
};

// Types lyrics into the module to see that it sings what was read.
class Proof {
public:
    // Adds a track to the editor, which has to outlive this and best holds nothing else.
    explicit Proof(simulator::Editor& editor) : scratch_(editor) {}

    // What the notes carry when the lyric is typed; each lyric is typed once. Throws
    // ModuleDisagrees when these are other syllables than those that were read.
    const Syllables& sung(const std::string& lyric, const Syllables& read);

    // The same for a check of texts, which has to be gone before this is.
    words::TextCheck::Prover prover();

    // How many lyrics were typed so far.
    std::size_t typedLyrics() const { return sung_.size(); }

private:
    ScratchTrack scratch_;
    std::map<std::string, Syllables> sung_;
};

} // namespace wybeta::wysim::session
