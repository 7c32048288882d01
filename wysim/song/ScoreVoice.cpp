// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ScoreVoice.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace wybeta::wysim::song {

namespace {

// Times are sums of fractions of a quarter note.
bool isSameTime(double a, double b) {
    return std::abs(a - b) < 1e-6;
}

void takeSyllable(ScoreNote& to, ScoreNote& from) {
    if (to.syllable.text.empty()) {
        to.syllable = std::move(from.syllable);
    }
}

// Merges each note into the one before it where `merge` says so by merging.
template <class Merge>
void mergeNeighbours(std::vector<ScoreNote>& notes, Merge merge) {
    std::vector<ScoreNote> merged;
    for (auto& note : notes) {
        if (merged.empty() || !merge(merged.back(), note)) {
            merged.push_back(std::move(note));
        }
    }
    notes = std::move(merged);
}

bool mergeChord(ScoreNote& top, ScoreNote& next) {
    if (!isSameTime(top.note.start, next.note.start)) {
        return false;
    }
    if (next.note.pitch > top.note.pitch) {
        std::swap(top, next);
    }
    takeSyllable(top, next);
    return true;
}

bool mergeTied(ScoreNote& held, ScoreNote& next) {
    const double end = held.note.start + held.note.length;
    if (!held.beginsTie || !next.endsTie || held.note.pitch != next.note.pitch ||
        !isSameTime(end, next.note.start)) {
        return false;
    }
    held.note.length = next.note.start + next.note.length - held.note.start;
    held.beginsTie = next.beginsTie;
    takeSyllable(held, next);
    return true;
}

} // namespace

bool ScoreVoice::isSung() const {
    return std::any_of(notes_.begin(), notes_.end(),
                       [](const auto& note) { return !note.syllable.text.empty(); });
}

std::vector<SongNote> ScoreVoice::takeSungNotes() {
    std::stable_sort(notes_.begin(), notes_.end(),
                     [](const auto& a, const auto& b) { return a.note.start < b.note.start; });
    mergeNeighbours(notes_, mergeChord);
    mergeNeighbours(notes_, mergeTied);
    cutOverlaps();
    typeWords();
    std::vector<SongNote> sung;
    for (auto& note : notes_) {
        sung.push_back(std::move(note.note));
    }
    notes_.clear();
    return sung;
}

void ScoreVoice::cutOverlaps() {
    for (std::size_t i = 1; i < notes_.size(); ++i) {
        auto& note = notes_[i - 1].note;
        note.length = std::min(note.length, notes_[i].note.start - note.start);
    }
}

void ScoreVoice::typeWords() {
    SongNote* openWord = nullptr;
    for (auto& [note, endsTie, beginsTie, syllable] : notes_) {
        if (syllable.text.empty()) {
            continue;
        }
        if (openWord == nullptr || !syllable.continuesWord) {
            openWord = &note;
            note.typed = true;
        }
        note.beginsSyllable = !syllable.isTyped;
        openWord->lyric = withSyllable(std::move(openWord->lyric), syllable.text);
        if (!syllable.leavesWordOpen) {
            openWord = nullptr;
        }
    }
}

} // namespace wybeta::wysim::song
