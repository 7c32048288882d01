// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/laying/Melody.h"

#include "wysim/song/Time.h"

#include <algorithm>
#include <cmath>

namespace wybeta::wysim::laying {

namespace {

using song::SongNote;

// A stretch of more notes is hardly sung in one breath.
constexpr std::size_t kLongestPhrase = 16;

bool isWhole(double value) {
    return std::abs(value - std::round(value)) < song::kNearly;
}

double weightOf(const song::Song& song, double start) {
    const double inBar = (start - song.pickup) / song.time.measureLength();
    if (isWhole(inBar)) {
        return 0;
    }
    const double beat = (start - song.pickup) * song.time.beatType / 4;
    const bool isHalf = song.time.beats % 2 == 0 && isWhole(2 * inBar);
    return isHalf ? 0.25 : isWhole(beat) ? 0.5 : 1;
}

bool endsPhrase(const SongNote& note, const SongNote& next) {
    return note.marks.endsPhrase || song::isBefore(note.start + note.length, next.start);
}

// Ends phrases within notes [begin, end), which nothing divides: after notes that are long beside
// the others, or else at bar lines.
void divide(const song::Song& song, const std::vector<SongNote>& notes, std::size_t begin,
            std::size_t end, std::vector<MelodyNote>& melody) {
    if (end - begin <= kLongestPhrase) {
        return;
    }
    std::vector<double> lengths;
    for (auto i = begin; i < end; ++i) {
        lengths.push_back(notes[i].length);
    }
    const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
    std::nth_element(lengths.begin(), middle, lengths.end());
    const double isLong = 2 * *middle;
    const bool areSomeLong = std::any_of(lengths.begin(), lengths.end(), [isLong](double length) {
        return !song::isBefore(length, isLong);
    });
    for (auto i = begin + 1; i < end; ++i) {
        melody[i].isPhraseSure = false;
        const bool isFree = !melody[i].looksHeld[static_cast<std::size_t>(HeldBy::SlursAndBeams)];
        melody[i].beginsPhrase =
            isFree && (areSomeLong ? !song::isBefore(notes[i - 1].length, isLong)
                                   : weightOf(song, notes[i].start) == 0);
    }
}

} // namespace

std::vector<MelodyNote> melodyOf(const song::Song& song, std::size_t track) {
    const auto& notes = song.tracks[track].notes;
    std::vector<MelodyNote> melody(notes.size());
    for (std::size_t i = 0; i < notes.size(); ++i) {
        auto& note = melody[i];
        note.beginsPhrase = i == 0 || endsPhrase(notes[i - 1], notes[i]);
        const auto& marks = notes[i].marks;
        note.looksHeld = {marks.isSlurred, marks.isSlurred || marks.isBeamed, false,
                          marks.isBeamed};
        note.repeatsPitch = i > 0 && notes[i - 1].pitch == notes[i].pitch;
        note.isShorter = i > 0 && song::isBefore(notes[i].length, notes[i - 1].length);
        note.weight = weightOf(song, notes[i].start);
    }
    for (std::size_t begin = 0; begin < notes.size();) {
        auto end = begin + 1;
        while (end < notes.size() && !melody[end].beginsPhrase) {
            ++end;
        }
        divide(song, notes, begin, end, melody);
        begin = end;
    }
    return melody;
}

} // namespace wybeta::wysim::laying
