// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/terminal/Progress.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/SuggestionSearch.h"
#include "wysim/words/TextFinding.h"
#include "wysim/words/UnsungWords.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::wysim::words {

// Checks lyrics before there are notes for them: what of a text would not be sung, and why.
class TextCheck {
public:
    // In characters.
    static constexpr std::size_t kLongestLine = 1'000;

    // Takes each lyric that is counted, and each with a suggestion in it, and the syllables that
    // the reading gives it: the chance to see whether they are what is sung.
    using Prover = std::function<void(const std::string& lyric, const Syllables& syllables)>;

    // The reader has to outlive this.
    TextCheck(LyricReader& reader, Prover prove) : reader_(reader), prove_(std::move(prove)) {}

    // What there is to say of a lyric that is typed into one note; the lines of the findings are 1.
    // Throws BadInput when it is no line of text or too long.
    CheckedLyric checkLyric(const std::string& lyric);

    // Each line as a lyric. Throws BadInput, saying which line.
    std::vector<CheckedLyric> checkLines(const std::vector<std::string>& lines,
                                         terminal::Progress& progress);

private:
    using Text = std::u32string_view;
    using Findings = std::vector<Finding>;

    // A word that is not sung, and the finding that says so.
    struct Unsung {
        std::size_t begin; // in characters, as the end
        std::size_t end;
        std::u32string pair; // what is repeated after each text, to show the blank before it
        const Diagnosis* diagnosis;
        std::size_t finding;
    };

    Findings findInParts(Text line, const lyrics::LyricReading& reading);
    void checkHyphens(Text line, const lyrics::LyricPart& part, Findings& findings);
    void checkZero(Text line, const lyrics::LyricPart& part, Findings& findings);
    // Finds marks after a kana for which there are others that are sung, and returns their end.
    std::size_t checkMarks(Text line, std::size_t begin, std::size_t end, Findings& findings);
    std::optional<Unsung> addUnsung(Text line, std::size_t begin, std::size_t end, bool isAmongKana,
                                    Findings& findings);
    const Diagnosis& diagnosisOf(const WordInText& word, bool isAmongKana);
    // Adds what is proposed for the words.
    void addSuggestions(Text line, const std::vector<Unsung>& unsung, Findings& findings);
    // The word with proposed phonemes. A bracket is for all of a lyric, so that of a word among
    // others has the phonemes of all; none if nothing is proposed for one of these.
    static std::optional<Suggestion> inBracket(Text line, const Proposal& proposal,
                                               const Unsung& word,
                                               const LyricPronunciations& pronunciations);

    Findings findAroundBracket(Text line, const lyrics::LyricReading& reading);
    // Where the words from `begin` on end that the syllables of a bracket after the text leave out.
    std::optional<std::size_t> endOfOtherWords(Text text, std::size_t begin,
                                               const Syllables& syllables);
    // Adds the text as a suggestion if it is sung.
    void addSuggestion(Finding& finding, Text text);

    LyricReader& reader_;
    Prover prove_;
    std::map<std::pair<WordInText, bool>, Diagnosis> diagnoses_;
};

} // namespace wybeta::wysim::words
