// SPDX-License-Identifier: GPL-3.0-or-later
//
// The input is lines of text, each a lyric, with the numbers of notes that a score gives its
// syllables in front of it: "311 Gloria". They become a song that is fitted, and a text that is
// checked. What is fitted comes out on its notes, and what is proposed is sung.
#include "fuzz/Check.h"
#include "fuzz/ModuleExtension.h"
#include "simulator/Editor.h"
#include "wysim/session/Fitting.h"
#include "wysim/session/Proof.h"
#include "wysim/session/ScratchTrack.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/Song.h"
#include "wysim/terminal/Progress.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/SongWords.h"
#include "wysim/words/TextCheck.h"
#include "wysim/words/TextFinding.h"
#include "wysim/words/WordFitter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::fuzz {

namespace {

using namespace wysim;
using simulator::Editor;

struct Line {
    std::vector<std::size_t> notesOfSyllables;
    std::string lyric;
};

Line lineFrom(std::string_view text) {
    Line line;
    while (!text.empty() && text.front() >= '1' && text.front() <= '9') {
        line.notesOfSyllables.push_back(static_cast<std::size_t>(text.front() - '0'));
        text.remove_prefix(1);
    }
    if (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    line.lyric = text;
    return line;
}

bool isText(const std::string& text) {
    try {
        song::checkText(text);
        return true;
    } catch (const song::BadInput&) {
        return false;
    }
}

// The lines that a song can hold.
std::vector<Line> linesFrom(std::string_view text) {
    std::vector<Line> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const auto end = std::min(text.find('\n', begin), text.size());
        auto line = lineFrom(text.substr(begin, end - begin));
        begin = end + 1;
        if (isText(line.lyric)) {
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

song::Song songOf(const std::vector<Line>& lines) {
    song::Song song;
    song.tracks = {{"", {}}};
    auto& notes = song.tracks.front().notes;
    const auto add = [&notes](const std::string& lyric, bool isTyped, bool beginsSyllable) {
        notes.push_back({static_cast<double>(notes.size()), 1, 60, lyric, isTyped, beginsSyllable});
    };
    for (const auto& line : lines) {
        const bool isDivided = line.notesOfSyllables.size() > 1;
        add(line.lyric, true, isDivided);
        for (std::size_t i = 0; i < line.notesOfSyllables.size(); ++i) {
            for (std::size_t j = i == 0 ? 1 : 0; j < line.notesOfSyllables[i]; ++j) {
                add("", false, isDivided && j == 0);
            }
        }
    }
    return song;
}

words::LyricReader& reader() {
    static words::LyricReader shared;
    return shared;
}

// Each text is sung by the module as it was read.
void checkFit(Editor& editor, const song::Song& song, words::WaysToFit ways) {
    session::Proof proof(editor);
    words::WordFitter fitter(reader(), ways);
    for (const auto& word : words::wordsOf(song)) {
        const auto& fitted = fitter.fit(word);
        proof.sung(fitted.text, fitted.syllables);
        if (words::isFitted(fitted.outcome)) {
            check(fitted.syllables.size() == word.notes, "a fitted word does not fill its notes");
        } else {
            checkEqual(fitted.text, word.text);
            check(!fitted.reason.empty(), "a word is left without a reason");
        }
    }
}

// What was fitted once is left as it is.
void checkFitAgain(Editor& editor, const song::Song& song, words::WaysToFit ways) {
    terminal::Progress progress;
    const auto words = session::fitWords(editor, reader(), song, ways, progress);
    const auto again =
        session::fitWords(editor, reader(), session::fittedSong(song, words), ways, progress);
    check(words.size() == again.size(), "a fitted song has other words");
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto& fitted = words[i].fitted;
        checkEqual(again[i].fitted.text, fitted.text);
        checkEqual(again[i].carried, words[i].carried);
        check(words::isFitted(fitted.outcome) ? again[i].fitted.outcome == words::Outcome::AsItIs
                                              : again[i].fitted.outcome == fitted.outcome,
              "a fitted word is fitted otherwise when it comes again");
    }
}

// Whether nothing in a text can undo a suggestion: a "0" can drop what it adds, and an earlier
// bracket be as empty as the one that it takes out.
bool tellsByItself(const std::string& text) {
    return text.find('0') == std::string::npos && text.find('[') == text.rfind('[');
}

void checkFinding(session::ScratchTrack& scratch, const words::CheckedLyric& checked,
                  const words::Finding& finding) {
    const auto line = words::charactersOf(checked.text);
    const auto word = words::charactersOf(finding.word);
    const auto begin = finding.column - 1;
    check(!word.empty() && line.compare(begin, word.size(), word) == 0,
          "a finding names another word than stands there");
    for (const auto& suggestion : finding.suggestions) {
        check(suggestion.text != finding.word, "a suggestion changes nothing");
        auto changed = line;
        const auto text = words::charactersOf(suggestion.text);
        changed = suggestion.isForLyric ? text : changed.replace(begin, word.size(), text);
        // The reading of kanji is sung already.
        if (tellsByItself(checked.text) && finding.reason != words::Reason::Kanji) {
            check(scratch.divide(words::utf8Of(changed)) != scratch.divide(checked.text),
                  "a suggestion does not change what is sung");
        }
    }
}

void checkText(Editor& editor, const std::vector<Line>& lines) {
    session::Proof proof(editor);
    words::TextCheck text(reader(), proof.prover());
    session::ScratchTrack scratch(editor);
    for (const auto& line : lines) {
        const auto checked = text.checkLyric(line.lyric);
        check(checked.syllables == scratch.divide(line.lyric).size(),
              "a line has another number of syllables than are sung");
        std::size_t column = 1;
        for (const auto& finding : checked.findings) {
            check(finding.column >= column, "findings are out of order");
            column = finding.column;
            checkFinding(scratch, checked, finding);
        }
    }
}

void run(std::string_view input) {
    const auto lines = linesFrom(input);
    const auto song = songOf(lines);
    for (const auto ways : {words::WaysToFit{}, {true, false}, {true, true}}) {
        Editor editor(moduleExtension());
        checkFit(editor, song, ways);
        checkFitAgain(editor, song, ways);
    }
    Editor editor(moduleExtension());
    checkText(editor, lines);
}

} // namespace

} // namespace wybeta::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    wybeta::fuzz::run(wybeta::fuzz::textOf(data, size));
    return 0;
}
