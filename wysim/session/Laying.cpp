// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Laying.h"

#include "text/Splitting.h"
#include "wysim/session/Proof.h"
#include "wysim/terminal/TextTable.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/SongWords.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace wybeta::wysim::session {

using laying::LaidLine;
using laying::LaidWord;

void proveLaid(simulator::Editor& editor, const LaidText& laid) {
    Proof proof(editor);
    for (const auto& word : laid.words) {
        if (word.note) {
            proof.sung(word.typed, word.carried);
        }
    }
}

song::Song laidSong(song::Song song, std::size_t track, const LaidText& laid) {
    auto& notes = song.tracks[track].notes;
    for (auto& note : notes) {
        note.lyric.clear();
        note.typed = false;
        note.beginsSyllable = false;
    }
    for (const auto& lyric : laidLyrics(laid)) {
        auto note = notes.begin() + static_cast<std::ptrdiff_t>(lyric.note);
        note->lyric = lyric.text;
        note->typed = true;
        for (const auto count : lyric.notesOfSyllables) {
            note->beginsSyllable = true;
            note += static_cast<std::ptrdiff_t>(count);
        }
    }
    return song;
}

std::vector<LaidLyric> laidLyrics(const LaidText& laid) {
    std::vector<LaidLyric> lyrics;
    for (const auto& word : laid.words) {
        if (word.note) {
            lyrics.push_back({*word.note - 1, word.typed, word.notesOfSyllables});
        }
    }
    return lyrics;
}

std::size_t countWords(const song::Song& song, std::size_t track) {
    const auto words = words::wordsOf(song);
    return static_cast<std::size_t>(std::count_if(
        words.begin(), words.end(), [track](const auto& word) { return word.track == track + 1; }));
}

LayingCounts countLaid(const LaidText& laid) {
    LayingCounts counts;
    for (const auto& line : laid.lines) {
        counts.asSung += line.isAsSung() ? 1 : 0;
        counts.held += line.isHeld() ? 1 : 0;
        counts.tooLong += line.isTooLong() ? 1 : 0;
        counts.syllables += line.syllables;
        counts.onNotes += line.onNotes;
    }
    counts.notSung = static_cast<std::size_t>(std::count_if(
        laid.words.begin(), laid.words.end(), [](const auto& word) { return !word.isSung; }));
    return counts;
}

std::string waysOfHolding(const LaidLine& line) {
    if (line.notes == line.onNotes) {
        return line.notes == 0 ? "-" : "as sung";
    }
    std::vector<std::string_view> ways;
    for (const auto& [count, name] :
         {std::pair(line.heldBySlurs, "slurs"), std::pair(line.heldByBeams, "beams"),
          std::pair(line.heldFreely, "no marks")}) {
        if (count > 0) {
            ways.emplace_back(name);
        }
    }
    return text::joinText(ways, " and ");
}

std::size_t firstNoteOf(const LaidText& laid, const LaidLine& line) {
    for (auto i = line.firstWord; i < line.firstWord + line.words; ++i) {
        if (laid.words[i].note) {
            return *laid.words[i].note;
        }
    }
    return 0;
}

std::vector<LaidWord> wordsLeft(const LaidText& laid, const LaidLine& line) {
    const auto first = laid.words.begin() + static_cast<std::ptrdiff_t>(line.firstWord);
    std::vector<LaidWord> left;
    std::copy_if(first, first + static_cast<std::ptrdiff_t>(line.words), std::back_inserter(left),
                 [](const auto& word) { return !word.note || word.isCutOff; });
    return left;
}

std::string textLeft(const LaidWord& word) {
    return word.isCutOff ? word.text + "\u2026" : word.text;
}

std::string layingTable(const LaidText& laid) {
    terminal::TextTable table(
        {"line", "first note", "syllables", "notes", "how it was held", "what is left"});
    for (const auto& line : laid.lines) {
        std::vector<std::string> left;
        for (const auto& word : wordsLeft(laid, line)) {
            left.push_back(word.isSung ? textLeft(word) : word.text + " (not sung)");
        }
        const auto note = firstNoteOf(laid, line);
        table.add({std::to_string(line.number), note == 0 ? "-" : std::to_string(note),
                   std::to_string(line.syllables), std::to_string(line.notes), waysOfHolding(line),
                   text::joinText(words::viewsOf(left), " ")});
    }
    return table.text();
}

std::string layingTotals(const LaidText& laid) {
    const auto counts = countLaid(laid);
    return "lines: " + std::to_string(laid.lines.size()) +
           ", as sung: " + std::to_string(counts.asSung) +
           ", held: " + std::to_string(counts.held) +
           ", too long: " + std::to_string(counts.tooLong) +
           "; syllables: " + std::to_string(counts.syllables) +
           ", on notes: " + std::to_string(counts.onNotes) +
           "; not sung: " + std::to_string(counts.notSung) + "\n";
}

std::string layingJson(const LaidText& laid, std::size_t track) {
    using nlohmann::ordered_json;
    auto words = ordered_json::array();
    for (const auto& word : laid.words) {
        words.push_back({{"line", word.line},
                         {"text", word.text},
                         {"typed", word.note ? ordered_json(word.typed) : ordered_json()},
                         {"track", track + 1},
                         {"note", word.note ? ordered_json(*word.note) : ordered_json()},
                         {"notesOfSyllables", word.notesOfSyllables}});
    }
    return ordered_json({{"words", words}}).dump(2) + "\n";
}

} // namespace wybeta::wysim::session
