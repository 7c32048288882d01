// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "wysim/song/Song.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace wybeta::wysim::session {

// A song in the editor: each track a voice track with one part.
class SongInEditor {
public:
    // Puts the notes into the editor, and then types all words in one edit. The editor has to
    // outlive this.
    SongInEditor(simulator::Editor& editor, const song::Song& song);

    // The song without its notes.
    const song::Song& frame() const { return frame_; }
    std::size_t countTracks() const { return parts_.size(); }
    const std::string& trackName(std::size_t track) const { return frame_.tracks[track].name; }
    simulator::Part& part(std::size_t track) const { return *parts_[track]; }
    simulator::Event& note(std::size_t track, std::size_t index) const;
    std::size_t countNotes(std::size_t track) const { return parts_[track]->items().size(); }

    // The song as its notes are now.
    song::Song song() const;
    song::SongNote songNote(std::size_t track, std::size_t index) const;
    // The song with what was typed into its notes, not yet divided.
    song::Song typedSong() const;
    // What was last typed into a note, brackets and all; of a division that the song was opened
    // with, the word with its phonemes in one bracket. Empty where nothing was typed.
    std::string typedLyric(std::size_t track, std::size_t index) const;
    // For who knows better what was typed into a note of the opened song.
    void setTypedLyric(std::size_t track, std::size_t index, const std::string& lyric) const;

private:
    void addTrack(simulator::Editor& editor, const song::SongTrack& track,
                  std::vector<simulator::Change>& typing);

    song::Song frame_; // without the notes
    std::vector<simulator::Handle<simulator::Part>> parts_;
    // Of the notes of the opened song. They live as long as this: those that are removed are kept
    // by the history.
    std::unordered_map<const simulator::Event*, song::NoteMarks> marks_;
};

// A note for the editor, without its lyric.
simulator::Handle<simulator::Event> makeNote(const simulator::SharedState& state,
                                             const song::SongNote& note);

// What typing a lyric into a note of a song changes.
simulator::Change typing(simulator::Event& note, const std::string& lyric);

// What it changes to take the lyric off a note, typed or not.
simulator::Change clearing(simulator::Event& note);

// What it changes when the note begins a syllable of a melody that is known to be so divided, or
// does not.
simulator::Change dividing(simulator::Event& note, bool beginsSyllable);

} // namespace wybeta::wysim::session
