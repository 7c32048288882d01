// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/ScratchTrack.h"

#include "simulator/Track.h"

namespace wybeta::wysim::session {

namespace {

constexpr std::size_t kFirstNotes = 16;

} // namespace

ScratchTrack::ScratchTrack(simulator::Editor& editor)
    : editor_(editor), part_(simulator::makeHandle<simulator::Part>(editor.state())) {
    const auto track = simulator::makeVoiceTrack(editor.state());
    track->add(part_);
    editor.project().add(track);
    addNotes(kFirstNotes);
}

Syllables ScratchTrack::divide(const std::string& lyric) {
    editor_.type(*notes_.front(), lyric);
    while (!notes_.back()->lyric().empty()) {
        editor_.undo();
        addNotes(notes_.size());
        editor_.type(*notes_.front(), lyric);
    }
    auto syllables = carried();
    editor_.undo();
    return syllables;
}

void ScratchTrack::addNotes(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        notes_.push_back(simulator::makeHandle<simulator::Event>(editor_.state()));
        notes_.back()->startInPart = static_cast<double>(notes_.size());
        part_->add(notes_.back());
    }
    editor_.notify();
}

// A note carries its phonemes in the last bracket of its text; one that is not sung ends in none.
Syllables ScratchTrack::carried() const {
    Syllables syllables;
    for (const auto& note : notes_) {
        const auto text = note->lyric();
        const auto open = syllables.empty() ? text.rfind('[') : text.find('[');
        if (open == std::string::npos || text.back() != ']') {
            break;
        }
        syllables.push_back(text.substr(open + 1, text.size() - open - 2));
    }
    return syllables;
}

} // namespace wybeta::wysim::session
