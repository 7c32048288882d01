// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Fitting.h"

#include "wysim/picture/SongPicture.h"
#include "wysim/session/Proof.h"
#include "wysim/session/SongInEditor.h"
#include "wysim/terminal/TextTable.h"
#include "wysim/words/Wording.h"

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

} // namespace

std::vector<FittedSongWord> fitWords(simulator::Editor& editor, words::LyricReader& reader,
                                     const song::Song& song, words::WaysToFit ways,
                                     terminal::Progress& progress) {
    Proof proof(editor);
    words::WordFitter fitter(reader, ways);
    std::vector<FittedSongWord> fitted;
    const auto words = words::wordsOf(song);
    progress.start("fitting", words.size());
    for (const auto& word : words) {
        const auto& found = fitter.fit(word);
        auto carried = proof.sung(found.text, found.syllables);
        carried.resize(std::min(carried.size(), word.notes));
        fitted.push_back({word, found, std::move(carried)});
        progress.step();
    }
    progress.finish();
    return fitted;
}

song::Song fittedSong(song::Song song, const std::vector<FittedSongWord>& words) {
    for (const auto& [word, fitted, carried] : words) {
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

bool areAllFitted(const std::vector<FittedSongWord>& words) {
    return countNotFitted(words) == 0;
}

std::string fittingTable(const std::vector<FittedSongWord>& words) {
    terminal::TextTable table(
        {"track", "note", "word", "notes", "type", "the notes then carry", "fitted by"});
    for (const auto& [word, fitted, carried] : words) {
        table.add({std::to_string(word.track), std::to_string(word.note), word.text,
                   std::to_string(word.notes), fitted.text, words::inBrackets(carried),
                   outcomeOf(fitted)});
    }
    return table.text();
}

std::string fittingTotals(const std::vector<FittedSongWord>& words, words::WaysToFit ways) {
    auto counts = countOutcomes(words);
    const auto count = [&counts](Outcome outcome) { return std::to_string(counts[outcome]); };
    return "words: " + std::to_string(words.size()) + "; as they are: " + count(Outcome::AsItIs) +
           ", with hyphens: " + count(Outcome::Hyphens) +
           ", with other entries: " + count(Outcome::OtherEntry) +
           ", with brackets: " + count(Outcome::Brackets) +
           (ways.guesses ? ", with guesses: " + count(Outcome::Guess) : "") +
           "; not fitted: " + std::to_string(countNotFitted(words)) +
           " (unknown: " + count(Outcome::Unknown) +
           ", divided otherwise: " + count(Outcome::DividedOtherwise) +
           ", not reached: " + count(Outcome::NotReached) + ")\n";
}

} // namespace wybeta::wysim::session
