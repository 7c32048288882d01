// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/TextCheck.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/Song.h"
#include "wysim/words/CharacterKinds.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/Wording.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace wybeta::wysim::session {

namespace {

using Text = std::u32string_view;

void expectLine(const std::string& lyric) {
    auto line = lyric;
    // A text may be indented by tabs, which no song holds.
    std::replace(line.begin(), line.end(), '\t', ' ');
    song::checkText(line);
    const auto length = words::charactersOf(line).size();
    if (length > TextCheck::kLongestLine) {
        throw song::BadInput::expectedFound(
            "a line of at most " + std::to_string(TextCheck::kLongestLine) + " characters",
            "one of " + std::to_string(length));
    }
}

// A part of a line, without the blanks around it.
words::Finding findingOf(Text line, std::size_t begin, std::size_t end, words::Reason reason) {
    while (begin < end && line[begin] == U' ') {
        ++begin;
    }
    while (begin < end && line[end - 1] == U' ') {
        --end;
    }
    return {1, begin + 1, words::utf8Of(line.substr(begin, end - begin)), reason, {}, 0};
}

bool holdsWords(Text text) {
    return std::any_of(text.begin(), text.end(), words::isOfWords);
}

// The last bracket of a line, and the text before and behind it.
struct Bracket {
    std::size_t open;
    std::size_t end;
};
std::optional<Bracket> findBracket(Text line) {
    const auto close = line.rfind(U']');
    const auto open = close == Text::npos ? close : line.rfind(U'[', close);
    return open == Text::npos ? std::nullopt : std::optional(Bracket{open, close + 1});
}

std::string firstSoundOf(const Syllables& syllables) {
    const auto sounds = syllables.empty() ? std::vector<std::string>()
                                          : words::wordsBetweenBlanks(syllables.front());
    return sounds.empty() ? std::string() : sounds.front();
}

} // namespace

words::CheckedLyric TextCheck::checkLyric(const std::string& lyric) {
    expectLine(lyric);
    const auto syllables = scratch_.divide(lyric);
    const auto line = words::charactersOf(lyric);
    return {lyric, syllables.size(),
            findBracket(line) ? findAroundBracket(line, syllables) : findInWords(line)};
}

std::vector<words::CheckedLyric> TextCheck::checkLines(const std::vector<std::string>& lines,
                                                       terminal::Progress& progress) {
    std::vector<words::CheckedLyric> checked;
    progress.start("checking", lines.size());
    for (const auto& line : lines) {
        const auto number = checked.size() + 1;
        try {
            checked.push_back(checkLyric(line));
        } catch (const song::BadInput& error) {
            throw song::BadInput(error.what() + (" at line " + std::to_string(number)));
        }
        for (auto& finding : checked.back().findings) {
            finding.line = number;
        }
        progress.step();
    }
    progress.finish();
    return checked;
}

// Of a line with brackets, the last one is sung, in place of all text before it.
TextCheck::Findings TextCheck::findAroundBracket(Text line, const Syllables& syllables) {
    const auto bracket = *findBracket(line);
    const auto earlier = findBracket(line.substr(0, bracket.open));
    auto head = earlier ? earlier->end : 0;
    Findings findings;
    if (earlier && scratch_.divide(words::utf8Of(line.substr(head))) == syllables) {
        findings.push_back(findingOf(line, 0, head, words::Reason::OutsideBracket));
    }
    if (const auto end = endOfOtherWords(line.substr(0, bracket.open), head, syllables)) {
        findings.push_back(findingOf(line, head, *end, words::Reason::OutsideBracket));
        head = *end;
    }
    const bool isEmpty = std::all_of(syllables.begin(), syllables.end(),
                                     [](const auto& syllable) { return syllable.empty(); });
    if (isEmpty) {
        findings.push_back(findingOf(line, head, bracket.end, words::Reason::EmptyBracket));
        addMend(findings.back(), line.substr(head, bracket.open - head));
    }
    if (holdsWords(line.substr(bracket.end)) &&
        scratch_.divide(words::utf8Of(line.substr(0, bracket.end))) == syllables) {
        findings.push_back(
            findingOf(line, bracket.end, line.size(), words::Reason::OutsideBracket));
    }
    return findings;
}

// A bracket may stand for one word or for all words before it. It is not for those of which the
// first begins with another sound.
std::optional<std::size_t> TextCheck::endOfOtherWords(Text text, std::size_t begin,
                                                      const Syllables& syllables) {
    const auto words = words::wordsBetweenBlanks(words::utf8Of(text.substr(begin)));
    const auto sound = words.size() < 2 ? "" : firstSoundOf(scratch_.divide(words.front()));
    if (sound.empty() || sound == firstSoundOf(syllables)) {
        return std::nullopt;
    }
    return text.rfind(U' ', text.find_last_not_of(U' '));
}

void TextCheck::addMend(words::Finding& finding, Text text) {
    auto mend = std::string(words::trimmed(words::utf8Of(text)));
    if (!scratch_.divide(mend).empty()) {
        finding.mends.push_back(std::move(mend));
    }
}

TextCheck::Findings TextCheck::findInWords(Text line) {
    Findings findings;
    std::u32string before;
    for (std::size_t begin = 0; (begin = line.find_first_not_of(U' ', begin)) != Text::npos;) {
        const auto end = std::min(line.find(U' ', begin), line.size());
        const std::u32string piece(line.substr(begin, end - begin));
        const auto found = piece == U"0" ? findZero(before) : findInPiece(piece);
        for (const auto& finding : found) {
            findings.push_back(finding);
            findings.back().column += begin;
        }
        before = piece;
        begin = end;
    }
    return findings;
}

// A "0" by itself works on the word before it.
TextCheck::Findings TextCheck::findZero(const std::u32string& before) {
    const auto without = scratch_.divide(words::utf8Of(before));
    const auto syllables = scratch_.divide(words::utf8Of(before + U" 0"));
    if (syllables == without) {
        return {};
    }
    words::Finding finding{1, 1, "0", words::Reason::Zero, {}, syllables.size() - without.size()};
    addMend(finding, U"zero");
    return {finding};
}

const TextCheck::Findings& TextCheck::findInPiece(const std::u32string& piece) {
    const auto [known, isNew] = pieces_.try_emplace(piece);
    if (isNew) {
        known->second = PieceCheck(scratch_, kana_, piece).run();
    }
    return known->second;
}

} // namespace wybeta::wysim::session
