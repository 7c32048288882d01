// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "wysim/session/PieceCheck.h"
#include "wysim/session/ScratchTrack.h"
#include "wysim/terminal/Progress.h"
#include "wysim/words/TextFinding.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::session {

// Checks lyrics before there are notes for them: what of a text would not be sung, and why. Goes by
// what the extension does with the text, in whole and in part.
class TextCheck {
public:
    // In characters.
    static constexpr std::size_t kLongestLine = 1'000;

    // Adds a track to the editor, which has to outlive this and best holds nothing else.
    explicit TextCheck(simulator::Editor& editor) : scratch_(editor) {}

    // What there is to say of a lyric that is typed into one note; the lines of the findings are 1.
    // Throws BadInput when it is no line of text or too long.
    words::CheckedLyric checkLyric(const std::string& lyric);

    // The phonemes of the lyric's syllables.
    Syllables syllablesOf(const std::string& lyric) { return scratch_.divide(lyric); }

    // Each line as a lyric. Throws BadInput, saying which line.
    std::vector<words::CheckedLyric> checkLines(const std::vector<std::string>& lines,
                                                terminal::Progress& progress);

private:
    using Findings = std::vector<words::Finding>;

    Findings findAroundBracket(std::u32string_view line, const Syllables& syllables);
    // Where the words from `begin` on end that the syllables of a bracket behind the text leave
    // out.
    std::optional<std::size_t> endOfOtherWords(std::u32string_view text, std::size_t begin,
                                               const Syllables& syllables);
    // Adds the text as a mend if it is sung.
    void addMend(words::Finding& finding, std::u32string_view text);
    Findings findInWords(std::u32string_view line);
    Findings findZero(const std::u32string& before);
    const Findings& findInPiece(const std::u32string& piece);

    ScratchTrack scratch_;
    KnownKana kana_{scratch_};
    std::map<std::u32string, Findings> pieces_;
};

} // namespace wybeta::wysim::session
