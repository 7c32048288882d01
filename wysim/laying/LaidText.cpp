// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/laying/LaidText.h"

#include "wysim/laying/Melody.h"
#include "wysim/song/BadInput.h"
#include "wysim/words/Holds.h"
#include "wysim/words/Wording.h"

#include <utf8cpp/utf8.h>

#include <numeric>

namespace wybeta::wysim::laying {

namespace {

using song::BadInput;

// The syllables of a way to sing that have notes, those that share one joined.
Syllables syllablesOn(const WayToSing& way, const std::vector<bool>& joins) {
    Syllables syllables;
    for (std::size_t i = 0; i < joins.size(); ++i) {
        if (joins[i]) {
            syllables.back() = joinedSyllable(syllables.back(), way.syllables[i]);
        } else {
            syllables.push_back(way.syllables[i]);
        }
    }
    return syllables;
}

words::Holds holdsOf(const PlacedWord& placed) {
    words::Holds holds;
    for (const auto notes : placed.notesOfSyllables) {
        holds.push_back(notes - 1);
    }
    return holds;
}

// No line of it is laid yet.
LaidText unlaid(const std::vector<LineToLay>& lines) {
    LaidText laid;
    for (const auto& line : lines) {
        laid.lines.push_back({line.number, laid.words.size(), line.words.size()});
        for (const auto& word : line.words) {
            laid.words.push_back(
                {line.number, word.column, word.text, word.lyric, !word.ways.empty()});
            laid.lines.back().syllables +=
                word.ways.empty() ? 0 : word.ways.front().syllables.size();
        }
    }
    return laid;
}

// What shows that the notes of a word after the first of each syllable are held.
void countHeld(const LaidWord& word, const std::vector<song::SongNote>& notes, LaidLine& line) {
    auto note = *word.note - 1;
    for (const auto count : word.notesOfSyllables) {
        for (std::size_t i = 1; i < count; ++i) {
            const auto& marks = notes[note + i].marks;
            ++(marks.isSlurred  ? line.heldBySlurs
               : marks.isBeamed ? line.heldByBeams
                                : line.heldFreely);
        }
        note += count;
    }
}

void count(const WordToLay& word, const PlacedWord& placed, const LaidWord& laid, LaidLine& line) {
    const auto onNotes = placed.notesOfSyllables.size();
    const auto left = word.ways[placed.way].syllables.size() - placed.joins.size();
    line.syllables = line.syllables - word.ways.front().syllables.size() + onNotes + left;
    line.onNotes += onNotes;
    line.notes += laid.notes();
}

void expectUtf8(std::string_view line, std::size_t number) {
    const auto* const bad = utf8::find_invalid(line.data(), line.data() + line.size());
    if (bad != line.data() + line.size()) {
        const auto column = utf8::distance(line.data(), bad) + 1;
        throw BadInput::expectedFound("a text in UTF-8", "other bytes in line " +
                                                             std::to_string(number) + ", column " +
                                                             std::to_string(column));
    }
}

} // namespace

std::size_t LaidWord::notes() const {
    return std::accumulate(notesOfSyllables.begin(), notesOfSyllables.end(), std::size_t{0});
}

std::vector<std::string> linesOfText(std::string_view text) {
    if (text.size() > kLargestText) {
        throw BadInput::expectedFound("a text of at most 256 KiB",
                                      std::to_string((text.size() + 1023) / 1024) + " KiB");
    }
    std::vector<std::string> lines;
    for (bool isLast = false; !isLast;) {
        const auto end = text.find('\n');
        isLast = end == std::string_view::npos;
        const auto line = words::withoutReturn(text.substr(0, end));
        expectUtf8(line, lines.size() + 1);
        lines.emplace_back(line);
        text.remove_prefix(isLast ? text.size() : end + 1);
    }
    const auto count = lines.size() - (lines.back().empty() ? 1 : 0);
    if (count > kMostLines) {
        throw BadInput::expectedFound("a text of at most 10000 lines", std::to_string(count));
    }
    return lines;
}

LaidText TextLaying::lay(const std::vector<std::string>& text, const song::Song& song,
                         std::size_t track) {
    return laid(linesToLay(text, ways_, reader_), song, track, true);
}

LaidText TextLaying::place(const std::vector<std::string>& text, const song::Song& song,
                           std::size_t track) {
    return laid(linesToLay(text, ways_, reader_), song, track, false);
}

LaidText TextLaying::laid(const std::vector<LineToLay>& lines, const song::Song& song,
                          std::size_t track, bool isTyped) {
    if (isTyped && lines.empty()) {
        throw BadInput::expectedFound("a text with words", "none");
    }
    const auto melody = melodyOf(song, track);
    if (melody.empty()) {
        throw BadInput::expectedFound("a track with notes", "none");
    }
    auto laid = unlaid(lines);
    for (const auto& placed : align(lines, melody)) {
        const auto& word = lines[placed.line].words[placed.word];
        auto& line = laid.lines[placed.line];
        auto& laidWord = laid.words[line.firstWord + placed.word];
        laidWord.note = placed.note + 1;
        laidWord.notesOfSyllables = placed.notesOfSyllables;
        laidWord.isCutOff = placed.joins.size() < word.ways[placed.way].syllables.size();
        if (isTyped) {
            typeWord(word, placed, laidWord);
        }
        count(word, placed, laidWord, line);
        countHeld(laidWord, song.tracks[track].notes, line);
    }
    return laid;
}

// By hyphens and other entries where the dictionary has the syllables, or else in a bracket.
void TextLaying::typeWord(const WordToLay& word, const PlacedWord& placed, LaidWord& laid) {
    const auto& way = word.ways[placed.way];
    const auto syllables = syllablesOn(way, placed.joins);
    if (!way.isOwn && syllables == way.syllables) {
        const auto& found = fitter_.fit({1, 1, word.lyric, laid.notes(), placed.notesOfSyllables});
        if (isFitted(found.outcome)) {
            laid.typed = found.text;
            laid.carried = found.syllables;
            return;
        }
    }
    laid.carried = words::withHolds(syllables, holdsOf(placed));
    laid.typed = words::withBracket(word.lyric, laid.carried);
}

} // namespace wybeta::wysim::laying
