// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Laying.h"

#include "wysim/session/Proof.h"
#include "wysim/terminal/TextTable.h"
#include "wysim/words/LyricText.h"

#include "text/Splitting.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <vector>

namespace wybeta::wysim::session {

namespace {

using laying::LaidLine;
using laying::LaidText;
using laying::LaidWord;

// How a line came onto its notes.
std::string nameOfHolds(const LaidLine& line) {
    if (line.notes == 0) {
        return "-";
    }
    return line.isHeld() ? nameOf(line.heldBy) : "as sung";
}

// The words of a line that have no notes.
std::string left(const LaidText& laid, const LaidLine& line) {
    std::vector<std::string> words;
    for (auto i = line.firstWord; i < line.firstWord + line.words; ++i) {
        const auto& word = laid.words[i];
        if (!word.isSung) {
            words.push_back(word.text + " (not sung)");
        } else if (!word.note) {
            words.push_back(word.text);
        }
    }
    return text::joinText(words::viewsOf(words), " ");
}

template <class Test>
std::string count(const std::vector<LaidLine>& lines, Test test) {
    return std::to_string(std::count_if(lines.begin(), lines.end(), test));
}

std::size_t countUnsung(const LaidText& laid) {
    return static_cast<std::size_t>(std::count_if(laid.words.begin(), laid.words.end(),
                                                  [](const auto& word) { return !word.isSung; }));
}

} // namespace

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
    for (const auto& word : laid.words) {
        if (word.note) {
            notes[*word.note - 1].lyric = word.typed;
            notes[*word.note - 1].typed = true;
        }
    }
    return song;
}

std::string layingTable(const LaidText& laid) {
    terminal::TextTable table(
        {"line", "first note", "syllables", "notes", "how it was held", "what is left"});
    for (const auto& line : laid.lines) {
        const auto first = std::find_if(
            laid.words.begin() + static_cast<std::ptrdiff_t>(line.firstWord),
            laid.words.begin() + static_cast<std::ptrdiff_t>(line.firstWord + line.words),
            [](const auto& word) { return word.note.has_value(); });
        const bool hasNote =
            first != laid.words.begin() + static_cast<std::ptrdiff_t>(line.firstWord + line.words);
        table.add({std::to_string(line.number), hasNote ? std::to_string(*first->note) : "-",
                   std::to_string(line.syllables), std::to_string(line.notes), nameOfHolds(line),
                   left(laid, line)});
    }
    return table.text();
}

std::string layingTotals(const LaidText& laid) {
    std::size_t syllables = 0;
    std::size_t onNotes = 0;
    for (const auto& line : laid.lines) {
        syllables += line.syllables;
        onNotes += line.onNotes;
    }
    return "lines: " + std::to_string(laid.lines.size()) + ", as sung: " +
           count(laid.lines, [](const auto& line) { return line.isWhole() && !line.isHeld(); }) +
           ", held: " +
           count(laid.lines, [](const auto& line) { return line.isWhole() && line.isHeld(); }) +
           ", too long: " + count(laid.lines, [](const auto& line) { return !line.isWhole(); }) +
           "; syllables: " + std::to_string(syllables) + ", on notes: " + std::to_string(onNotes) +
           "; not sung: " + std::to_string(countUnsung(laid)) + "\n";
}

std::string layingJson(const LaidText& laid, const std::string& track) {
    using nlohmann::ordered_json;
    auto words = ordered_json::array();
    for (const auto& word : laid.words) {
        words.push_back({{"line", word.line},
                         {"text", word.text},
                         {"typed", word.note ? ordered_json(word.typed) : ordered_json()},
                         {"track", track},
                         {"note", word.note ? ordered_json(*word.note) : ordered_json()},
                         {"notesOfSyllables", word.notesOfSyllables}});
    }
    return ordered_json({{"words", words}}).dump(2) + "\n";
}

bool isAllLaid(const LaidText& laid) {
    return std::all_of(laid.words.begin(), laid.words.end(),
                       [](const auto& word) { return word.isSung && word.note; }) &&
           std::all_of(laid.lines.begin(), laid.lines.end(),
                       [](const auto& line) { return line.isWhole(); });
}

} // namespace wybeta::wysim::session
