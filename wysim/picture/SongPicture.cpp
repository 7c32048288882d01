// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/picture/SongPicture.h"

#include "wysim/picture/NoteText.h"
#include "wysim/picture/RollLayout.h"
#include "wysim/song/NumberText.h"
#include "wysim/song/Pitch.h"
#include "wysim/song/Time.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <sstream>
#include <tuple>
#include <utility>
#include <vector>

namespace wybeta::wysim::picture {

namespace {

using pugi::xml_node;

constexpr double kMargin = 24;
constexpr double kPitchLabels = 34; // left of each roll
constexpr double kRollWidth = 600;
constexpr double kColumn = kPitchLabels + kRollWidth + kMargin;
constexpr double kPictureWidth = kMargin + 2 * kColumn;
constexpr double kTitleSize = 22;
constexpr double kSmallestText = 7;

constexpr auto kStyle = R"(
  text { font-family: "Noto Sans CJK JP", "Yu Gothic UI", "Hiragino Sans", Meiryo, sans-serif;
         fill: #1c2430; }
  .title { font-weight: bold; }
  .track { font-size: 16px; font-weight: bold; }
  .side { font-size: 13px; fill: #5b6675; }
  .roll { fill: #f6f8fa; }
  .bar { stroke: #c3cad3; }
  .octave { stroke: #e1e6ec; }
  .label { font-size: 10px; fill: #7a8594; }
  .word { fill: #1f5fa8; }
  .syllable { fill: #2f8f83; }
  .silent { fill: #c9d1da; }
  .lyric { stroke: #f6f8fa; stroke-width: 3px; paint-order: stroke; font-weight: bold; }
  .phonemes { fill: #ffffff; }
)";

std::string pixels(double value) {
    return song::formatNumber(std::round(value * 10) / 10);
}

void set(xml_node node, const char* name, const std::string& value) {
    node.append_attribute(name).set_value(value.c_str());
}

xml_node addShape(xml_node parent, const char* shape, const char* kind,
                  std::initializer_list<std::pair<const char*, double>> sizes) {
    auto element = parent.append_child(shape);
    for (const auto& [name, value] : sizes) {
        set(element, name, pixels(value));
    }
    set(element, "class", kind);
    return element;
}

xml_node addText(xml_node parent, double x, double y, const char* kind, const std::string& text) {
    auto element = addShape(parent, "text", kind, {{"x", x}, {"y", y}});
    element.text().set(text.c_str());
    return element;
}

// A text that is drawn no wider than its room.
void addFittingText(xml_node parent, double x, double y, const char* kind, const std::string& text,
                    double size, double room) {
    if (text.empty()) {
        return;
    }
    auto element = addText(parent, x, y, kind, text);
    const double fitting = std::max(std::min(size, room / drawnWidth(text)), kSmallestText);
    set(element, "font-size", pixels(fitting));
    if (drawnWidth(text) * fitting > room) {
        set(element, "textLength", pixels(room));
        set(element, "lengthAdjust", "spacingAndGlyphs");
    }
}

void addLine(xml_node parent, double x1, double y1, double x2, double y2, const char* kind) {
    addShape(parent, "line", kind, {{"x1", x1}, {"y1", y1}, {"x2", x2}, {"y2", y2}});
}

xml_node addBox(xml_node parent, double x, double y, double width, double height,
                const char* kind) {
    return addShape(parent, "rect", kind,
                    {{"x", x}, {"y", y}, {"width", width}, {"height", height}});
}

xml_node addGroup(xml_node parent, double x, double y) {
    auto group = parent.append_child("g");
    set(group, "transform", "translate(" + pixels(x) + " " + pixels(y) + ")");
    return group;
}

// The notes that sound in each row, by their indexes. Rows without any are not drawn.
std::map<std::int64_t, std::vector<std::size_t>> rowsOf(const song::SongTrack& track,
                                                        const RollLayout& layout) {
    std::map<std::int64_t, std::vector<std::size_t>> rows;
    for (std::size_t i = 0; i < track.notes.size(); ++i) {
        const auto& note = track.notes[i];
        for (auto row = layout.rowOf(note.start);
             song::isBefore(layout.startOf(row), note.start + note.length); ++row) {
            rows[row].push_back(i);
        }
    }
    return rows;
}

// One row of one track, at the origin of a group of its own.
class RollRow {
public:
    RollRow(xml_node group, const RollLayout& layout, std::int64_t row)
        : group_(group), layout_(layout), row_(row) {}

    void drawGrid() {
        addBox(group_, 0, 0, kRollWidth, layout_.rowHeight(), "roll");
        for (int pitch = layout_.lowestPitch(); pitch <= layout_.highestPitch(); ++pitch) {
            const double middle = layout_.y(pitch) + kBoxHeight / 2;
            if (pitch % 12 == 0) {
                addLine(group_, 0, middle, kRollWidth, middle, "octave");
            }
            if (pitch % 12 == 0 || pitch == layout_.lowestPitch()) {
                addLabel(-kPitchLabels + 6, middle + 3, song::formatPitch(pitch), pitch);
            }
        }
        const auto measures = std::llround(layout_.measuresPerRow());
        for (std::int64_t i = 0; i < measures; ++i) {
            const double x = kRollWidth * static_cast<double>(i) / static_cast<double>(measures);
            addLine(group_, x, 0, x, layout_.rowHeight(), "bar");
            addText(group_, x + 3, 11, "label", std::to_string(layout_.firstMeasure(row_) + i));
        }
    }

    void drawNotes(const song::SongTrack& track, const std::vector<std::size_t>& indexes) {
        for (const auto index : indexes) {
            drawBox(track.notes[index]);
        }
        for (const auto index : indexes) {
            const auto& note = track.notes[index];
            if (layout_.rowOf(note.start) == row_) {
                const bool isLast = index + 1 == track.notes.size();
                drawTexts(note, isLast ? note.start + note.length : track.notes[index + 1].start);
            }
        }
    }

private:
    // The lowest pitch gives way to an octave's label close above it.
    void addLabel(double x, double y, const std::string& text, int pitch) {
        const int toOctave = 12 - pitch % 12;
        const bool isCrowded =
            pitch % 12 != 0 && toOctave <= 1 && pitch + toOctave <= layout_.highestPitch();
        if (!isCrowded) {
            addText(group_, x, y, "label", text);
        }
    }

    double left(const song::SongNote& note) const {
        return std::max(layout_.x(note.start, row_), 0.0);
    }
    double right(double time) const { return std::min(layout_.x(time, row_), kRollWidth); }

    void drawBox(const song::SongNote& note) {
        const NoteText text(note.lyric);
        const char* const kind = note.lyric.empty()   ? "silent"
                                 : text.lyric.empty() ? "syllable"
                                                      : "word";
        const double width = right(note.start + note.length) - left(note);
        auto box = addBox(group_, left(note) + 0.5, layout_.y(note.pitch), std::max(width - 1, 1.0),
                          kBoxHeight, kind);
        set(box, "rx", "3");
        box.append_child("title").text().set(note.lyric.c_str());
    }

    void drawTexts(const song::SongNote& note, double nextStart) {
        const NoteText text(note.lyric);
        const double room = std::max(right(nextStart) - left(note) - 4, 1.0);
        const double y = layout_.y(note.pitch);
        addFittingText(group_, left(note) + 2, y - 4, "lyric", text.lyric, kLyricSize, room);
        const double boxRoom = right(note.start + note.length) - left(note) - 6;
        addFittingText(group_, left(note) + 3, y + 13, "phonemes", text.syllable, kSyllableSize,
                       std::max(boxRoom, 1.0));
    }

    xml_node group_;
    const RollLayout& layout_;
    std::int64_t row_;
};

// Draws one track from y on and returns where it ends.
double drawTrack(xml_node svg, const song::Song& song, const song::SongTrack& before,
                 const song::SongTrack& after, double y) {
    constexpr double kHeading = 52;
    constexpr double kRowGap = 10;
    const RollLayout layout(song, before, after, kRollWidth);
    auto left = rowsOf(before, layout);
    auto right = rowsOf(after, layout);
    addText(svg, kMargin, y + 18, "track", after.name);
    addText(svg, kMargin + kPitchLabels, y + 42, "side", "before: as typed");
    addText(svg, kMargin + kColumn + kPitchLabels, y + 42, "side", "after: as divided");
    y += kHeading;
    for (const auto& [row, notes] : right) {
        left.try_emplace(row);
    }
    for (const auto& [row, notes] : left) {
        for (const auto& [x, track, indexes] :
             {std::tuple(kMargin, &before, notes),
              std::tuple(kMargin + kColumn, &after, right[row])}) {
            RollRow roll(addGroup(svg, x + kPitchLabels, y), layout, row);
            roll.drawGrid();
            roll.drawNotes(*track, indexes);
        }
        y += layout.rowHeight() + kRowGap;
    }
    return y + kMargin;
}

// Tells what the colours mean, at the right of the title.
void drawLegend(xml_node svg, double y) {
    double x = kMargin + kColumn + kPitchLabels;
    for (const auto& [kind, meaning] :
         {std::pair("word", "a word begins"), std::pair("syllable", "a further syllable"),
          std::pair("silent", "no lyric")}) {
        auto box = addBox(svg, x, y + 4, 22, 12, kind);
        set(box, "rx", "3");
        addText(svg, x + 28, y + 15, "side", meaning);
        x += 160;
    }
}

} // namespace

std::string svgPicture(const song::Song& before, const song::Song& after) {
    pugi::xml_document document;
    auto svg = document.append_child("svg");
    set(svg, "xmlns", "http://www.w3.org/2000/svg");
    svg.append_child("style").text().set(kStyle);
    auto background = addBox(svg, 0, 0, kPictureWidth, 0, "background");
    addFittingText(svg, kMargin, kMargin + 16, "title", after.title, kTitleSize, kColumn);
    drawLegend(svg, kMargin);
    double y = kMargin + 40;
    for (std::size_t i = 0; i < after.tracks.size(); ++i) {
        y = drawTrack(svg, after, before.tracks[i], after.tracks[i], y);
    }
    background.attribute("height").set_value(pixels(y).c_str());
    background.append_attribute("fill").set_value("#ffffff");
    set(svg, "width", pixels(kPictureWidth));
    set(svg, "height", pixels(y));
    std::ostringstream text;
    document.save(text, "", pugi::format_raw | pugi::format_no_declaration);
    return text.str() + "\n";
}

} // namespace wybeta::wysim::picture
