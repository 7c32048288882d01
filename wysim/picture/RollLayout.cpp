// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/picture/RollLayout.h"

#include "wysim/picture/NoteText.h"
#include "wysim/song/Time.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace wybeta::wysim::picture {

namespace {

constexpr double kTextGap = 6;
constexpr double kRoomAbove = kLyricSize + kBoxHeight + 4; // the bar's number and a lyric
constexpr double kRoomBelow = 8;
constexpr double kTallestRoll = 180;
constexpr double kSemitone = 7;
constexpr double kLeastPixelsPerQuarter = 24;

// The pixels per quarter note that the text of each note asks for.
void addNeeds(const song::SongTrack& track, std::vector<double>& needs) {
    const auto& notes = track.notes;
    for (std::size_t i = 0; i < notes.size(); ++i) {
        const NoteText text(notes[i].lyric);
        const double width = std::max(kLyricSize * drawnWidth(text.lyric),
                                      kSyllableSize * drawnWidth(text.syllable));
        const double next =
            i + 1 < notes.size() ? notes[i + 1].start : notes[i].start + notes[i].length;
        needs.push_back((width + kTextGap) / (next - notes[i].start));
    }
}

// Nearly all texts get their full size, and the others one that can still be read.
double enoughFor(std::vector<double> needs) {
    constexpr double kReadable = 0.75;
    if (needs.empty()) {
        return kLeastPixelsPerQuarter;
    }
    std::sort(needs.begin(), needs.end());
    return std::max(
        {needs[needs.size() * 95 / 100], kReadable * needs.back(), kLeastPixelsPerQuarter});
}

} // namespace

RollLayout::RollLayout(const song::Song& song, const song::SongTrack& before,
                       const song::SongTrack& after, double width)
    : measureLength_(song.time.measureLength()),
      origin_(song.pickup > 0 ? song.pickup - measureLength_ : 0) {
    std::vector<double> needs;
    for (const auto* const track : {&before, &after}) {
        addNeeds(*track, needs);
        for (const auto& note : track->notes) {
            lowest_ = std::min(lowest_, note.pitch);
            highest_ = std::max(highest_, note.pitch);
        }
    }
    const double measureWidth = enoughFor(std::move(needs)) * measureLength_;
    rowLength_ = std::max(1.0, std::floor(width / measureWidth)) * measureLength_;
    pixelsPerQuarter_ = width / rowLength_;
    lowest_ = std::min(lowest_, highest_);
    pixelsPerSemitone_ = std::min(kSemitone, kTallestRoll / (highest_ - lowest_ + 1));
}

double RollLayout::rowHeight() const {
    return kRoomAbove + kBoxHeight + (highest_ - lowest_) * pixelsPerSemitone_ + kRoomBelow;
}

std::int64_t RollLayout::rowOf(double time) const {
    return static_cast<std::int64_t>(song::wholeOf((time - origin_) / rowLength_));
}

double RollLayout::startOf(std::int64_t row) const {
    return origin_ + static_cast<double>(row) * rowLength_;
}

std::int64_t RollLayout::firstMeasure(std::int64_t row) const {
    return row * std::llround(measuresPerRow()) + (origin_ < 0 ? 0 : 1);
}

double RollLayout::x(double time, std::int64_t row) const {
    return (time - startOf(row)) * pixelsPerQuarter_;
}

double RollLayout::y(int pitch) const {
    return kRoomAbove + (highest_ - pitch) * pixelsPerSemitone_;
}

} // namespace wybeta::wysim::picture
