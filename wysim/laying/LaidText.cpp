// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/laying/LaidText.h"

#include "wysim/laying/Alignment.h"
#include "wysim/song/BadInput.h"
#include "wysim/words/Holds.h"
#include "wysim/words/Wording.h"

#include <numeric>
#include <utility>

namespace wybeta::wysim::laying {

namespace {

std::size_t sumOf(const std::vector<std::size_t>& counts) {
    return std::accumulate(counts.begin(), counts.end(), std::size_t{0});
}

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

class TextLaying {
public:
    TextLaying(words::LyricReader& reader, bool usesGuesses)
        : reader_(reader), ways_(reader, usesGuesses), fitter_(reader, {true, usesGuesses}) {}

    LaidText run(const std::vector<std::string>& text, const song::Song& song, std::size_t track) {
        const auto lines = linesToLay(text, ways_, reader_);
        const auto melody = melodyOf(song, track);
        if (lines.empty()) {
            throw song::BadInput::expectedFound("a text with words", "none");
        }
        if (melody.empty()) {
            throw song::BadInput::expectedFound("a track with notes", "none");
        }
        auto laid = unlaid(lines);
        for (const auto& placed : align(lines, melody)) {
            lay(lines[placed.line].words[placed.word], placed, laid);
        }
        return laid;
    }

private:
    static LaidText unlaid(const std::vector<LineToLay>& lines) {
        LaidText laid;
        for (const auto& line : lines) {
            laid.lines.push_back({line.number, laid.words.size(), line.words.size()});
            for (const auto& word : line.words) {
                laid.words.push_back({line.number, word.column, word.text, !word.ways.empty()});
                laid.lines.back().syllables +=
                    word.ways.empty() ? 0 : word.ways.front().syllables.size();
            }
        }
        return laid;
    }

    void lay(const WordToLay& word, const PlacedWord& placed, LaidText& laid) {
        auto& line = laid.lines[placed.line];
        auto& laidWord = laid.words[line.firstWord + placed.word];
        const auto& way = word.ways[placed.way];
        auto typed = fitted(word, way, placed);
        line.syllables += placed.joins.size();
        line.syllables -= word.ways.front().syllables.size();
        line.onNotes += placed.joins.size();
        line.notes += sumOf(placed.notesOfSyllables);
        line.heldBy = placed.heldBy;
        laidWord.note = placed.note + 1;
        laidWord.typed = std::move(typed.first);
        laidWord.carried = std::move(typed.second);
        laidWord.notesOfSyllables = placed.notesOfSyllables;
    }

    // What to type, and what the notes then carry.
    std::pair<std::string, Syllables> fitted(const WordToLay& word, const WayToSing& way,
                                             const PlacedWord& placed) {
        const auto syllables = syllablesOn(way, placed.joins);
        const bool isPlain = !way.isOwn && syllables == way.syllables;
        if (isPlain) {
            const auto& found = fitter_.fit(
                {1, 1, word.lyric, sumOf(placed.notesOfSyllables), placed.notesOfSyllables});
            if (isFitted(found.outcome)) {
                return {found.text, found.syllables};
            }
        }
        words::Holds holds;
        for (const auto notes : placed.notesOfSyllables) {
            holds.push_back(notes - 1);
        }
        auto held = words::withHolds(syllables, holds);
        return {words::withBracket(word.lyric, held), std::move(held)};
    }

    words::LyricReader& reader_;
    WaysToSing ways_;
    words::WordFitter fitter_;
};

} // namespace

LaidText layText(const std::vector<std::string>& text, const song::Song& song, std::size_t track,
                 words::LyricReader& reader, bool usesGuesses) {
    return TextLaying(reader, usesGuesses).run(text, song, track);
}

} // namespace wybeta::wysim::laying
