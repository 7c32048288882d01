// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Fitting.h"

#include "wysim/picture/SongPicture.h"
#include "wysim/session/ScratchTrack.h"
#include "wysim/session/SongInEditor.h"
#include "wysim/session/WordFitter.h"
#include "wysim/terminal/TextTable.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

namespace wybeta::wysim::session {

namespace {

std::string outcomeOf(const FittedWord& fitted) {
    return fitted.reason.empty() ? nameOf(fitted.outcome)
                                 : nameOf(fitted.outcome) + ": " + fitted.reason;
}

std::string inBrackets(const Syllables& syllables) {
    std::string text;
    for (const auto& syllable : syllables) {
        text += (text.empty() ? "[" : " [") + syllable + "]";
    }
    return text.empty() ? "-" : text;
}

} // namespace

std::vector<FittedSongWord> fitWords(simulator::Editor& editor, const song::Song& song,
                                     bool usesBrackets, terminal::Progress& progress) {
    ScratchTrack scratch(editor);
    WordFitter fitter(scratch, usesBrackets);
    std::vector<FittedSongWord> fitted;
    auto words = words::wordsOf(song);
    progress.start("fitting", words.size());
    for (auto& word : words) {
        auto found = fitter.fit(word);
        fitted.push_back({std::move(word), std::move(found)});
        progress.step();
    }
    progress.finish();
    return fitted;
}

song::Song fittedSong(song::Song song, const std::vector<FittedSongWord>& words) {
    for (const auto& [word, fitted] : words) {
        if (fitted.text != word.text) {
            words::typeWord(song, word, fitted.text);
        }
    }
    return song;
}

std::string fittedPicture(simulator::Editor& editor, const song::Song& fitted) {
    return picture::svgPicture(fitted, SongInEditor(editor, fitted).song());
}

std::map<Outcome, std::size_t> countOutcomes(const std::vector<FittedSongWord>& words) {
    std::map<Outcome, std::size_t> counts;
    for (const auto& word : words) {
        ++counts[word.fitted.outcome];
    }
    return counts;
}

std::size_t countNotFitted(const std::vector<FittedSongWord>& words) {
    return static_cast<std::size_t>(std::count_if(words.begin(), words.end(), [](const auto& word) {
        return !isFitted(word.fitted.outcome);
    }));
}

std::string nameOf(Outcome outcome) {
    switch (outcome) {
    case Outcome::AsItIs:
        return "as it is";
    case Outcome::Hyphens:
        return "hyphens";
    case Outcome::OtherEntry:
        return "other entry";
    case Outcome::Brackets:
        return "brackets";
    case Outcome::Unknown:
        return "unknown";
    case Outcome::DividedOtherwise:
        return "divided otherwise";
    case Outcome::NotReached:
        break;
    }
    return "not reached";
}

bool areAllFitted(const std::vector<FittedSongWord>& words) {
    return countNotFitted(words) == 0;
}

std::string fittingTable(const std::vector<FittedSongWord>& words) {
    terminal::TextTable table(
        {"track", "note", "word", "notes", "type", "the notes then carry", "fitted by"});
    for (const auto& [word, fitted] : words) {
        table.add({std::to_string(word.track), std::to_string(word.note), word.text,
                   std::to_string(word.notes), fitted.text, inBrackets(fitted.carried),
                   outcomeOf(fitted)});
    }
    return table.text();
}

std::string fittingTotals(const std::vector<FittedSongWord>& words) {
    auto counts = countOutcomes(words);
    const auto count = [&counts](Outcome outcome) { return std::to_string(counts[outcome]); };
    return "words: " + std::to_string(words.size()) + "; as they are: " + count(Outcome::AsItIs) +
           ", with hyphens: " + count(Outcome::Hyphens) +
           ", with other entries: " + count(Outcome::OtherEntry) +
           ", with brackets: " + count(Outcome::Brackets) +
           "; not fitted: " + std::to_string(countNotFitted(words)) +
           " (unknown: " + count(Outcome::Unknown) +
           ", divided otherwise: " + count(Outcome::DividedOtherwise) +
           ", not reached: " + count(Outcome::NotReached) + ")\n";
}

} // namespace wybeta::wysim::session
