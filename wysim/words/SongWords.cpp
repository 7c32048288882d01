// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/SongWords.h"

#include "wysim/song/ScoreLyric.h"

#include <algorithm>
#include <utility>

namespace wybeta::wysim::words {

namespace {

void takeNote(SongWord& word, const song::SongNote& note) {
    ++word.notes;
    if (song::continuesDivision(word.text, note.lyric)) {
        word.text = song::withSyllable(std::move(word.text), note.lyric);
    }
    if (word.notesOfSyllables.empty()) {
        return;
    }
    if (note.beginsSyllable) {
        word.notesOfSyllables.push_back(1);
    } else {
        ++word.notesOfSyllables.back();
    }
}

void addWordsOf(const song::SongTrack& track, std::size_t number, std::vector<SongWord>& words) {
    bool isOpen = false;
    for (std::size_t i = 0; i < track.notes.size(); ++i) {
        const auto& note = track.notes[i];
        if (note.typed) {
            // A note that was typed empty ends the word before it as well.
            isOpen = !note.lyric.empty();
        }
        if (note.typed && isOpen) {
            words.push_back({number, i + 1, note.lyric, 1, {}});
            if (note.beginsSyllable) {
                words.back().notesOfSyllables = {1};
            }
        } else if (isOpen) {
            takeNote(words.back(), note);
        }
    }
}

} // namespace

std::vector<SongWord> wordsOf(const song::Song& song) {
    std::vector<SongWord> words;
    for (std::size_t track = 0; track < song.tracks.size(); ++track) {
        addWordsOf(song.tracks[track], track + 1, words);
    }
    return words;
}

void typeWord(song::Song& song, const SongWord& word, const std::string& text) {
    auto& notes = song.tracks[word.track - 1].notes;
    const auto first = notes.begin() + static_cast<std::ptrdiff_t>(word.note - 1);
    first->lyric = text;
    std::for_each(first + 1, first + static_cast<std::ptrdiff_t>(word.notes),
                  [](auto& note) { note.lyric.clear(); });
}

} // namespace wybeta::wysim::words
