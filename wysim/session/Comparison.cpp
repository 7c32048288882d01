// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Comparison.h"

#include "wysim/session/ScratchTrack.h"
#include "wysim/song/BadInput.h"
#include "wysim/terminal/TextTable.h"
#include "wysim/words/LyricText.h"

#include <map>

namespace wybeta::wysim::session {

namespace {

Recognizer recognizerOf(const std::string& word, const Syllables& syllables) {
    if (syllables.empty()) {
        return Recognizer::Nothing;
    }
    if (word.find('[') != std::string::npos) {
        return Recognizer::Brackets;
    }
    return words::holdsKana(word) ? Recognizer::Kana : Recognizer::Dictionary;
}

std::string nameOf(Recognizer knownBy) {
    switch (knownBy) {
    case Recognizer::Dictionary:
        return "dictionary";
    case Recognizer::Kana:
        return "kana";
    case Recognizer::Brackets:
        return "brackets";
    case Recognizer::Nothing:
        break;
    }
    return "unknown";
}

std::string verdictOn(const ComparedWord& compared) {
    if (compared.knownBy == Recognizer::Nothing) {
        return "-";
    }
    const auto notes = compared.word.notes;
    if (compared.syllables == notes) {
        return "same";
    }
    return compared.syllables < notes ? "fewer" : "more";
}

} // namespace

std::vector<ComparedWord> compareWords(simulator::Editor& editor, const song::Song& song,
                                       terminal::Progress& progress) {
    const auto words = words::wordsOf(song);
    if (words.empty()) {
        throw song::BadInput::expectedFound("a song with words to compare", "none");
    }
    ScratchTrack scratch(editor);
    std::map<std::string, Syllables> divided;
    std::vector<ComparedWord> compared;
    progress.start("comparing", words.size());
    for (const auto& word : words) {
        const auto [known, isNew] = divided.try_emplace(word.text);
        if (isNew) {
            known->second = scratch.divide(word.text);
        }
        compared.push_back({word, known->second.size(), recognizerOf(word.text, known->second)});
        progress.step();
    }
    progress.finish();
    return compared;
}

std::string comparisonText(const std::vector<ComparedWord>& words) {
    terminal::TextTable table({"track", "note", "word", "known by", "notes", "syllables", "count"});
    std::map<std::string, std::size_t> totals;
    for (const auto& compared : words) {
        const auto& word = compared.word;
        const auto knownBy = nameOf(compared.knownBy);
        const auto verdict = verdictOn(compared);
        ++totals[knownBy];
        ++totals[verdict];
        table.add({std::to_string(word.track), std::to_string(word.note), word.text, knownBy,
                   std::to_string(word.notes), std::to_string(compared.syllables), verdict});
    }
    const auto total = [&totals](const char* name) { return std::to_string(totals[name]); };
    return table.text() + "words: " + std::to_string(words.size()) +
           "; known to the dictionary: " + total("dictionary") + ", by kana: " + total("kana") +
           ", by brackets: " + total("brackets") + ", unknown: " + total("unknown") +
           "; same count: " + total("same") + ", fewer: " + total("fewer") +
           ", more: " + total("more") + "\n";
}

} // namespace wybeta::wysim::session
