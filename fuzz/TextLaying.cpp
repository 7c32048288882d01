// SPDX-License-Identifier: GPL-3.0-or-later
//
// The first line of the input is a melody: a letter is a note, "~" before it slurs and "=" beams it
// to the note before, a digit after it doubles its length so often, "," ends a phrase, and a blank
// is a rest. The lines after it are a text that is laid under it. Each word that is sung has notes
// of its own, or is named as left, and the module sings what was read.
#include "fuzz/Check.h"
#include "fuzz/ModuleExtension.h"
#include "simulator/Editor.h"
#include "wysim/laying/LaidText.h"
#include "wysim/session/Laying.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/Song.h"
#include "wysim/words/LyricReader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace wybeta::fuzz {

namespace {

using namespace wysim;
using laying::LaidLine;
using laying::LaidText;

song::Song songFrom(std::string_view melody) {
    song::Song song;
    song.tracks = {{"", {}}};
    auto& notes = song.tracks.front().notes;
    double now = 0;
    song::NoteMarks marks;
    for (const char character : melody) {
        if (character == '~') {
            marks.isSlurred = true;
        } else if (character == '=') {
            marks.isBeamed = true;
        } else if (character == ' ') {
            now += 1;
        } else if (character == ',' && !notes.empty()) {
            notes.back().marks.endsPhrase = true;
        } else if (character >= '0' && character <= '9' && !notes.empty()) {
            notes.back().length = static_cast<double>(1 << (character - '0')) / 4;
            now = notes.back().start + notes.back().length;
        } else {
            notes.push_back({now, 1, 60 + character % 12, "", false, false, marks});
            marks = {};
            now += 1;
        }
    }
    return song;
}

words::LyricReader& reader() {
    static words::LyricReader shared;
    return shared;
}

void checkLine(const LaidText& laid, const LaidLine& line, std::size_t& free) {
    std::size_t onNotes = 0;
    std::size_t notes = 0;
    bool isLeft = false;
    for (auto i = line.firstWord; i < line.firstWord + line.words; ++i) {
        const auto& word = laid.words[i];
        check(word.line == line.number, "a word is in another line");
        isLeft = isLeft || (word.isSung && (!word.note || word.isCutOff));
        if (!word.note) {
            continue;
        }
        check(word.isSung, "a word that is not sung has notes");
        check(*word.note >= free, "two words share a note, or are out of order");
        check(std::count(word.notesOfSyllables.begin(), word.notesOfSyllables.end(), 0U) == 0,
              "a syllable has no note");
        check(word.carried.size() == word.notes(), "a word carries other notes than it has");
        free = *word.note + word.notes();
        onNotes += word.notesOfSyllables.size();
        notes += word.notes();
    }
    check(onNotes == line.onNotes && notes == line.notes, "a line counts otherwise than its words");
    check(line.heldBySlurs + line.heldByBeams + line.heldFreely == notes - onNotes,
          "held notes are counted otherwise than they are");
    check(isLeft == line.isTooLong(), "a line is too long though no word is left, or the reverse");
}

void checkLaid(const song::Song& song, std::string_view text, bool usesGuesses) {
    laying::TextLaying laying(reader(), usesGuesses);
    const auto lines = laying::linesOfText(text);
    const auto laid = laying.lay(lines, song, 0);
    std::size_t free = 1;
    for (const auto& line : laid.lines) {
        checkLine(laid, line, free);
    }
    check(free <= song.tracks.front().notes.size() + 1, "a word goes on after the last note");
    simulator::Editor editor(moduleExtension());
    session::proveLaid(editor, laid);
    const auto placed = laying.place(lines, song, 0);
    for (std::size_t i = 0; i < laid.words.size(); ++i) {
        check(placed.words[i].note == laid.words[i].note, "a text is placed otherwise than laid");
    }
}

void run(std::string_view input) {
    const auto end = std::min(input.find('\n'), input.size());
    const auto song = songFrom(input.substr(0, end));
    input.remove_prefix(std::min(end + 1, input.size()));
    try {
        checkLaid(song, input, false);
        checkLaid(song, input, true);
    } catch (const song::BadInput&) {
        // no notes, no words, or no UTF-8
    }
}

} // namespace

} // namespace wybeta::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    wybeta::fuzz::run(wybeta::fuzz::textOf(data, size));
    return 0;
}
