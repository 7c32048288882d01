// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ScoreVoice.h"

#include "wysim/song/Time.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace wybeta::wysim::song {

namespace {

void takeSyllable(ScoreNote& to, ScoreNote& from) {
    if (to.syllable.text.empty()) {
        to.syllable = std::move(from.syllable);
    }
}

// Drops each note for which merge(previous, note) returns true.
template <class Merge>
void mergeNeighbours(std::vector<ScoreNote>& notes, Merge merge) {
    auto end = notes.begin();
    for (auto note = notes.begin(); note != notes.end(); ++note) {
        if (end != notes.begin() && merge(*std::prev(end), *note)) {
            continue;
        }
        if (end != note) {
            *end = std::move(*note);
        }
        ++end;
    }
    notes.erase(end, notes.end());
}

// Of a note that is sung as one with another.
void takeMarks(SongNote& to, const SongNote& from) {
    to.marks.isBeamed = to.marks.isBeamed || from.marks.isBeamed;
    to.marks.endsPhrase = to.marks.endsPhrase || from.marks.endsPhrase;
}

bool haveWordsEach(const ScoreNote& a, const ScoreNote& b) {
    return !a.syllable.text.empty() && !b.syllable.text.empty();
}

bool mergeChord(ScoreNote& top, ScoreNote& next, ScoreWarnings& warnings) {
    if (!isSameTime(top.note.start, next.note.start)) {
        return false;
    }
    if (next.note.pitch > top.note.pitch) {
        std::swap(top, next);
    }
    warnings.add("a chord gives its top note only", next.element);
    if (haveWordsEach(top, next) && top.syllable.text != next.syllable.text) {
        warnings.add("a chord has words of its own on each of its notes, and those of the top note "
                     "are sung",
                     next.element);
    }
    takeSyllable(top, next);
    takeMarks(top.note, next.note);
    return true;
}

// Tied notes that each have words are sung one by one.
bool mergeTied(ScoreNote& held, ScoreNote& next) {
    const double end = held.note.start + held.note.length;
    if (!held.beginsTie || !next.endsTie || held.note.pitch != next.note.pitch ||
        !isSameTime(end, next.note.start) || haveWordsEach(held, next)) {
        return false;
    }
    held.note.length = next.note.start + next.note.length - held.note.start;
    held.note.marks.endsPhrase = held.note.marks.endsPhrase || next.note.marks.endsPhrase;
    held.beginsTie = next.beginsTie;
    takeSyllable(held, next);
    return true;
}

} // namespace

void ScoreVoice::add(ScoreNote note) {
    note.syllable = joined(std::exchange(waiting_, {}), note.syllable);
    notes_.push_back(std::move(note));
}

void ScoreVoice::beginSlur(const std::string& number) {
    if (!notes_.empty()) {
        openSlurs_[number] = notes_.back().note.start;
    }
}

void ScoreVoice::endSlur(const std::string& number) {
    const auto begun = openSlurs_.find(number);
    if (begun != openSlurs_.end()) {
        slurs_.emplace_back(begun->second, notes_.back().note.start);
        openSlurs_.erase(begun);
    }
}

bool ScoreVoice::isSung() const {
    return (!notes_.empty() && !waiting_.text.empty()) ||
           std::any_of(notes_.begin(), notes_.end(),
                       [](const auto& note) { return !note.syllable.text.empty(); });
}

std::vector<SongNote> ScoreVoice::takeNotes(ScoreWarnings& warnings) {
    if (!notes_.empty()) {
        auto& last = notes_.back().syllable;
        last = joined(std::move(last), std::exchange(waiting_, {}));
    }
    const auto isEarlier = [](const auto& a, const auto& b) { return a.note.start < b.note.start; };
    if (!std::is_sorted(notes_.begin(), notes_.end(), isEarlier)) {
        std::stable_sort(notes_.begin(), notes_.end(), isEarlier);
    }
    mergeNeighbours(notes_,
                    [&warnings](auto& top, auto& next) { return mergeChord(top, next, warnings); });
    mergeNeighbours(notes_, mergeTied);
    cutOverlaps(warnings);
    markBeams();
    markSlurs();
    markPhraseEnds();
    typeWords();
    std::vector<SongNote> taken;
    taken.reserve(notes_.size());
    for (auto& note : notes_) {
        taken.push_back(std::move(note.note));
    }
    notes_.clear();
    return taken;
}

void ScoreVoice::cutOverlaps(ScoreWarnings& warnings) {
    for (std::size_t i = 1; i < notes_.size(); ++i) {
        auto& note = notes_[i - 1].note;
        const auto& next = notes_[i].note;
        if (overlap(note, next)) {
            warnings.add("a note ends where the next of its voice begins", notes_[i - 1].element);
        }
        note.length = std::min(note.length, next.start - note.start);
    }
}

// There is no note before the first that a beam could join it to.
void ScoreVoice::markBeams() {
    if (!notes_.empty()) {
        notes_.front().note.marks.isBeamed = false;
    }
}

void ScoreVoice::markSlurs() {
    std::sort(slurs_.begin(), slurs_.end());
    auto next = slurs_.begin();
    double end = 0; // of the slurs that began before the note
    for (auto& written : notes_) {
        auto& note = written.note;
        for (; next != slurs_.end() && isBefore(next->first, note.start); ++next) {
            end = std::max(end, next->second);
        }
        note.marks.isSlurred = next != slurs_.begin() && !isBefore(end, note.start);
    }
    slurs_.clear();
    openSlurs_.clear();
}

void ScoreVoice::markPhraseEnds() {
    std::sort(phraseEnds_.begin(), phraseEnds_.end());
    auto time = phraseEnds_.begin();
    for (auto& written : notes_) {
        const double end = written.note.start + written.note.length;
        time = std::find_if(time, phraseEnds_.end(),
                            [end](double candidate) { return !isBefore(candidate, end); });
        if (time != phraseEnds_.end() && isSameTime(*time, end)) {
            written.note.marks.endsPhrase = true;
        }
    }
    phraseEnds_.clear();
}

void ScoreVoice::typeWords() {
    SongNote* openWord = nullptr;
    for (auto& [note, endsTie, beginsTie, syllable, element] : notes_) {
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
