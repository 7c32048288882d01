// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/TextCheck.h"

#include "lyrics/KanaPhonemeTable.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/Song.h"
#include "wysim/words/CharacterKinds.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/Wording.h"

#include <algorithm>

namespace wybeta::wysim::words {

namespace {

using lyrics::PartKind;
using Text = std::u32string_view;

void expectLine(const std::string& lyric) {
    auto line = lyric;
    // A text may be indented by tabs, which no song holds.
    std::replace(line.begin(), line.end(), '\t', ' ');
    song::checkText(line);
    const auto length = charactersOf(line).size();
    if (length > TextCheck::kLongestLine) {
        throw song::BadInput::expectedFound(
            "a line of at most " + std::to_string(TextCheck::kLongestLine) + " characters",
            "one of " + std::to_string(length));
    }
}

// A part of a line, without the blanks around it.
Finding findingOf(Text line, std::size_t begin, std::size_t end, Reason reason) {
    while (begin < end && line[begin] == U' ') {
        ++begin;
    }
    while (begin < end && line[end - 1] == U' ') {
        --end;
    }
    return {1, begin + 1, utf8Of(line.substr(begin, end - begin)), reason, {}, 0};
}

bool holdsWords(Text text) {
    return std::any_of(text.begin(), text.end(), isOfWords);
}

// The bracket of a lyric, if it has one.
const lyrics::LyricPart* bracketOf(const lyrics::LyricReading& reading) {
    const auto found =
        std::find_if(reading.parts.begin(), reading.parts.end(),
                     [](const auto& part) { return part.kind == PartKind::Bracket; });
    return found == reading.parts.end() ? nullptr : &*found;
}

// The parts with what is passed over as words, joined with the unknown word that touches it. The
// first kana of a pair is left to the pair.
std::vector<lyrics::LyricPart> withoutEffectJoined(const std::vector<lyrics::LyricPart>& parts) {
    std::vector<lyrics::LyricPart> joined;
    bool isOpen = false; // whether the last one can take up more
    for (auto part : parts) {
        const bool isPassedOver = part.kind == PartKind::PassedOver;
        if (!joined.empty()) {
            joined.back().end = std::min(joined.back().end, part.begin);
        }
        if (isOpen && part.kind == PartKind::Word && !part.isKnown &&
            joined.back().end == part.begin) {
            joined.back().end = part.end;
        } else {
            part.kind = isPassedOver ? PartKind::Word : part.kind;
            joined.push_back(part);
        }
        isOpen = isPassedOver;
    }
    return joined;
}

// Whether a character in front of a word keeps out of it.
bool isHarmlessInFront(char32_t character) {
    return !isOfWords(character) && (!isAscii(character) || isOtherBlank(character));
}

// A word of a line with what is around it up to the next blanks.
WordInText wordAt(Text line, std::size_t begin, std::size_t end) {
    const auto blank = begin == 0 ? Text::npos : line.rfind(U' ', begin - 1);
    const auto first = blank == Text::npos ? 0 : blank + 1;
    const auto last = std::min(line.find(U' ', end), line.size());
    return {std::u32string(line.substr(first, begin - first)),
            std::u32string(line.substr(begin, end - begin)),
            std::u32string(line.substr(end, last - end))};
}

std::string firstSoundOf(const Syllables& syllables) {
    const auto sounds =
        syllables.empty() ? std::vector<std::string>() : wordsBetweenBlanks(syllables.front());
    return sounds.empty() ? std::string() : sounds.front();
}

} // namespace

CheckedLyric TextCheck::checkLyric(const std::string& lyric) {
    expectLine(lyric);
    const auto reading = reader_.read(lyric);
    prove_(lyric, reading.syllables);
    const auto line = charactersOf(lyric);
    return {lyric, reading.syllables.size(),
            bracketOf(reading) ? findAroundBracket(line, reading) : findInParts(line, reading)};
}

std::vector<CheckedLyric> TextCheck::checkLines(const std::vector<std::string>& lines,
                                                terminal::Progress& progress) {
    std::vector<CheckedLyric> checked;
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

// Of a line with brackets, only the last one is sung.
TextCheck::Findings TextCheck::findAroundBracket(Text line, const lyrics::LyricReading& reading) {
    const auto& bracket = *bracketOf(reading);
    const auto before = reader_.read(utf8Of(line.substr(0, bracket.begin)));
    const auto* const earlier = bracketOf(before);
    auto head = earlier != nullptr ? earlier->end : 0;
    Findings findings;
    if (earlier != nullptr) {
        findings.push_back(findingOf(line, 0, head, Reason::OutsideBracket));
    }
    if (const auto end = endOfOtherWords(line.substr(0, bracket.begin), head, reading.syllables)) {
        findings.push_back(findingOf(line, head, *end, Reason::OutsideBracket));
        head = *end;
    }
    const bool isEmpty = std::all_of(reading.syllables.begin(), reading.syllables.end(),
                                     [](const auto& syllable) { return syllable.empty(); });
    if (isEmpty) {
        findings.push_back(findingOf(line, head, bracket.end, Reason::EmptyBracket));
        addSuggestion(findings.back(), line.substr(head, bracket.begin - head));
    }
    if (holdsWords(line.substr(bracket.end))) {
        findings.push_back(findingOf(line, bracket.end, line.size(), Reason::OutsideBracket));
    }
    return findings;
}

// A bracket may stand for one word or for all words before it. It is not for those of which the
// first begins with another sound.
std::optional<std::size_t> TextCheck::endOfOtherWords(Text text, std::size_t begin,
                                                      const Syllables& syllables) {
    const auto words = wordsBetweenBlanks(utf8Of(text.substr(begin)));
    const auto sound = words.size() < 2 ? "" : firstSoundOf(reader_.syllablesOf(words.front()));
    if (sound.empty() || sound == firstSoundOf(syllables)) {
        return std::nullopt;
    }
    return text.rfind(U' ', text.find_last_not_of(U' '));
}

void TextCheck::addSuggestion(Finding& finding, Text text) {
    auto suggestion = std::string(trimmed(utf8Of(text)));
    const auto syllables = reader_.syllablesOf(suggestion);
    if (!syllables.empty()) {
        prove_(suggestion, syllables);
        finding.suggestions.push_back(std::move(suggestion));
    }
}

TextCheck::Findings TextCheck::findInParts(Text line, const lyrics::LyricReading& reading) {
    Findings findings;
    for (const auto& part : withoutEffectJoined(reading.parts)) {
        if (part.kind == PartKind::Zero) {
            checkZero(line, part, findings);
        } else if (part.isKnown) {
            checkHyphens(line, part, findings);
        } else if (part.kind == PartKind::Word) {
            addUnsung(line, part.begin, part.end, findings);
        }
    }
    return findings;
}

void TextCheck::checkHyphens(Text line, const lyrics::LyricPart& part, Findings& findings) {
    std::u32string word(line.substr(part.begin, part.end - part.begin));
    const auto hyphens = std::remove(word.begin(), word.end(), U'-');
    if (hyphens != word.end()) {
        findings.push_back(findingOf(line, part.begin, part.end, Reason::HyphenHolds));
        findings.back().syllables = part.syllables;
        word.erase(hyphens, word.end());
        addSuggestion(findings.back(), word);
    }
}

// A "0" right after a kana works on that, one by itself on the word before it.
void TextCheck::checkZero(Text line, const lyrics::LyricPart& part, Findings& findings) {
    const bool isAfterKana = part.begin > 0 && lyrics::findKanaSingle(line, part.begin - 1);
    const auto begin = part.begin - (isAfterKana ? 1 : 0);
    findings.push_back(findingOf(line, begin, part.end, Reason::Zero));
    findings.back().syllables = isAfterKana ? 1 : part.syllables;
    if (isAfterKana) {
        addSuggestion(findings.back(), line.substr(begin, 1));
    } else if (part.end == line.size() || line[part.end] == U' ') {
        addSuggestion(findings.back(), U"zero");
    }
}

void TextCheck::addUnsung(Text line, std::size_t begin, std::size_t end, Findings& findings) {
    begin = static_cast<std::size_t>(
        std::find_if_not(line.begin() + static_cast<std::ptrdiff_t>(begin),
                         line.begin() + static_cast<std::ptrdiff_t>(end), isHarmlessInFront) -
        line.begin());
    if (!holdsWords(line.substr(begin, end - begin))) {
        return;
    }
    const auto word = wordAt(line, begin, end);
    const auto& [reason, suggestions] = diagnosisOf(word);
    // A blank at the end of a suggestion shows only with what comes after it.
    const bool needsBlank = std::any_of(suggestions.begin(), suggestions.end(),
                                        [](const auto& text) { return text.back() == U' '; });
    const auto pair = needsBlank ? word.after.substr(0, 2) : std::u32string();
    findings.push_back(findingOf(line, begin, end + pair.size(), reason));
    for (const auto& suggestion : suggestions) {
        findings.back().suggestions.push_back(utf8Of(suggestion + pair));
    }
}

const Diagnosis& TextCheck::diagnosisOf(const WordInText& word) {
    const auto [known, isNew] = diagnoses_.try_emplace(word);
    if (isNew) {
        known->second = SuggestionSearch(reader_, word).run();
        for (const auto& suggestion : known->second.suggestions) {
            const auto lyric = utf8Of(word.before + suggestion + word.after);
            prove_(lyric, reader_.syllablesOf(lyric));
        }
    }
    return known->second;
}

} // namespace wybeta::wysim::words
