// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Comparison.h"

#include "wysim/session/Proof.h"
#include "wysim/song/BadInput.h"
#include "wysim/terminal/TextTable.h"

#include <algorithm>
#include <map>

namespace wybeta::wysim::session {

namespace {

using lyrics::PartKind;

std::string recognizerOf(const lyrics::LyricReading& reading) {
    const auto holds = [&reading](auto... kinds) {
        return std::any_of(reading.parts.begin(), reading.parts.end(),
                           [&](const auto& part) { return ((part.kind == kinds) || ...); });
    };
    if (reading.syllables.empty()) {
        return "unknown";
    }
    if (holds(PartKind::Bracket)) {
        return "brackets";
    }
    return holds(PartKind::Kana, PartKind::KanaPair) ? "kana" : "dictionary";
}

std::string verdictOn(const ComparedWord& compared) {
    if (compared.syllables == 0) {
        return "-";
    }
    const auto notes = compared.word.notes;
    if (compared.syllables == notes) {
        return "same";
    }
    return compared.syllables < notes ? "fewer" : "more";
}

} // namespace

std::vector<ComparedWord> compareWords(simulator::Editor& editor, words::LyricReader& reader,
                                       const song::Song& song, terminal::Progress& progress) {
    const auto words = words::wordsOf(song);
    if (words.empty()) {
        throw song::BadInput::expectedFound("a song with words to compare", "none");
    }
    Proof proof(editor);
    std::vector<ComparedWord> compared;
    progress.start("comparing", words.size());
    for (const auto& word : words) {
        const auto reading = reader.read(word.text);
        const auto& sung = proof.sung(word.text, reading.syllables);
        compared.push_back({word, sung.size(), recognizerOf(reading)});
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
        const auto verdict = verdictOn(compared);
        ++totals[compared.knownBy];
        ++totals[verdict];
        table.add({std::to_string(word.track), std::to_string(word.note), word.text,
                   compared.knownBy, std::to_string(word.notes), std::to_string(compared.syllables),
                   verdict});
    }
    const auto total = [&totals](const char* name) { return std::to_string(totals[name]); };
    return table.text() + "words: " + std::to_string(words.size()) +
           "; known to the dictionary: " + total("dictionary") + ", by kana: " + total("kana") +
           ", by brackets: " + total("brackets") + ", unknown: " + total("unknown") +
           "; same count: " + total("same") + ", fewer: " + total("fewer") +
           ", more: " + total("more") + "\n";
}

} // namespace wybeta::wysim::session
