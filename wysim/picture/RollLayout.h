// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"

#include <cstdint>

namespace wybeta::wysim::picture {

constexpr double kLyricSize = 13;
constexpr double kSyllableSize = 12;
constexpr double kBoxHeight = 18;

// How the notes of a track are spread over rows, the same before and after. All sizes in pixels.
class RollLayout {
public:
    // Widens the notes until their texts fit, as far as a row can hold at least one measure.
    RollLayout(const song::Song& song, const song::SongTrack& before, const song::SongTrack& after,
               double width);

    double measuresPerRow() const { return rowLength_ / measureLength_; }
    double rowHeight() const;

    std::int64_t rowOf(double time) const;
    double startOf(std::int64_t row) const;
    // The measure that begins a row, counted from 1; an incomplete first measure is 0.
    std::int64_t firstMeasure(std::int64_t row) const;

    // Distances from the left and from the top of the row.
    double x(double time, std::int64_t row) const;
    double y(int pitch) const;

    int lowestPitch() const { return lowest_; }
    int highestPitch() const { return highest_; }

private:
    double measureLength_;
    double origin_; // the start of the first measure, as if it were complete
    double rowLength_ = 0;
    double pixelsPerQuarter_ = 0;
    int lowest_ = song::kHighestPitch;
    int highest_ = 0;
    double pixelsPerSemitone_ = 0;
};

} // namespace wybeta::wysim::picture
