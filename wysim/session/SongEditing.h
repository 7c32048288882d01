// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "wysim/session/SongInEditor.h"
#include "wysim/song/Song.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::session {

// A lyric for a note, by its indexes.
struct TypedLyric {
    std::size_t track;
    std::size_t note;
    std::string text;
};

// A lyric that begins at a note of a track, and how many notes each of its syllables takes.
struct LaidLyric {
    std::size_t note;
    std::string text;
    std::vector<std::size_t> notesOfSyllables;
};

// A person's edits on a song, each of which can be taken back. A mistake throws BadInput, and then
// nothing has changed. Tracks and notes are named by their indexes, and have to be there.
class SongEditing {
public:
    // Opens the song in the editor, which has to outlive this. That is no edit to take back.
    SongEditing(simulator::Editor& editor, const song::Song& song)
        : editor_(editor), song_(editor, song) {}

    const SongInEditor& inEditor() const { return song_; }

    void type(std::size_t track, std::size_t note, const std::string& lyric);
    // All in one edit; without any there is none.
    void typeAll(const std::vector<TypedLyric>& lyrics);
    // Takes all lyrics off the notes of a track and types these, in the order of their notes.
    void replaceLyrics(std::size_t track, const std::vector<LaidLyric>& lyrics);
    // Puts the note in its place, types its lyric unless that is empty, and returns its index.
    std::size_t add(std::size_t track, const song::SongNote& note);
    // Gives the note another start, length and pitch, and returns its index then. The lyric stays.
    std::size_t move(std::size_t track, std::size_t note, const song::SongNote& place);
    void remove(std::size_t track, std::size_t note);

    void undo();
    void redo();
    bool canUndo() const { return edits_ > 0; }
    bool canRedo() const { return editor_.canRedo(); }

private:
    void edit(std::vector<simulator::Change> changes);

    simulator::Editor& editor_;
    SongInEditor song_;
    std::size_t edits_ = 0; // that undo can take back
};

} // namespace wybeta::wysim::session
