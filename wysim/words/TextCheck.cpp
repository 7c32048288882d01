// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/TextCheck.h"

#include "lyrics/KanaPhonemeTable.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/Song.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/Readings.h"
#include "wysim/words/UnsungWords.h"
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

bool isKana(char32_t character) {
    return lyrics::findKanaSingle({&character, 1}, 0) != nullptr;
}

// The bracket of a lyric, if it has one.
const lyrics::LyricPart* bracketOf(const lyrics::LyricReading& reading) {
    const auto found =
        std::find_if(reading.parts.begin(), reading.parts.end(),
                     [](const auto& part) { return part.kind == PartKind::Bracket; });
    return found == reading.parts.end() ? nullptr : &*found;
}

// The inside of a bracket.
std::string phonemesIn(Text line, const lyrics::LyricPart& bracket) {
    return utf8Of(line.substr(bracket.begin + 1, bracket.end - bracket.begin - 2));
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
    if (const auto morae = dividedIntoMorae(phonemesIn(line, bracket))) {
        findings.push_back(findingOf(line, head, bracket.end, Reason::OneSyllable));
        findings.back().syllables = reading.syllables.size();
        addSuggestion(findings.back(), std::u32string(line.substr(head, bracket.begin - head)) +
                                           charactersOf("[" + *morae + "]"));
    }
    if (findWord(line, bracket.end, line.size()) < line.size()) {
        findings.push_back(findingOf(line, bracket.end, line.size(), Reason::OutsideBracket));
    }
    return findings;
}

// A bracket may stand for one word or for all words before it. It is not for those of which the
// first begins with another sound.
std::optional<std::size_t> TextCheck::endOfOtherWords(Text text, std::size_t begin,
                                                      const Syllables& syllables) {
    const auto words = wordsBetweenBlanks(utf8Of(text.substr(begin)));
    const bool isTold = words.size() > 1 && reader_.singsAllOf(words.front());
    const auto sound = isTold ? firstSoundOf(reader_.syllablesOf(words.front())) : std::string();
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
        finding.suggestions.push_back({std::move(suggestion)});
    }
}

TextCheck::Findings TextCheck::findInParts(Text line, const lyrics::LyricReading& reading) {
    Findings findings;
    std::vector<Unsung> unsung;
    const bool isAmongKana = isJapanese(line, reading);
    for (const auto& [part, kana] : visibleWords(line, reading)) {
        if (!kana.empty()) {
            findings.push_back(findingOf(line, part.begin, part.end, Reason::Kanji));
            addSuggestion(findings.back(), kana);
        } else if (part.kind == PartKind::Zero) {
            checkZero(line, part, findings);
        } else if (part.isKnown) {
            checkHyphens(line, part, findings);
        } else if (part.kind == PartKind::Word) {
            const auto begin = checkMarks(line, part.begin, part.end, findings);
            if (auto word = addUnsung(line, begin, part.end, isAmongKana, findings)) {
                unsung.push_back(*word);
            }
        }
    }
    addSuggestions(line, unsung, findings);
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
    const bool isAfterKana = part.begin > 0 && isKana(line[part.begin - 1]);
    const auto begin = part.begin - (isAfterKana ? 1 : 0);
    findings.push_back(findingOf(line, begin, part.end, Reason::Zero));
    findings.back().syllables = isAfterKana ? 1 : part.syllables;
    if (isAfterKana) {
        addSuggestion(findings.back(), line.substr(begin, 1));
    } else if (part.end == line.size() || line[part.end] == U' ') {
        addSuggestion(findings.back(), U"zero");
    }
}

std::size_t TextCheck::checkMarks(Text line, std::size_t begin, std::size_t end,
                                  Findings& findings) {
    if (begin == 0 || !isKana(line[begin - 1])) {
        return begin;
    }
    const std::u32string text(line.substr(begin - 1, end - begin + 1));
    const auto sung = withSungMarks(text);
    const auto same = std::mismatch(text.begin() + 1, text.end(), sung.begin() + 1,
                                    [](auto one, auto other) { return one != other; });
    const auto count = static_cast<std::size_t>(same.first - text.begin());
    if (count > 1) {
        findings.push_back(findingOf(line, begin - 1, begin - 1 + count, Reason::LongMark));
        addSuggestion(findings.back(), Text(sung).substr(0, count));
    }
    return begin - 1 + count;
}

std::optional<TextCheck::Unsung> TextCheck::addUnsung(Text line, std::size_t begin, std::size_t end,
                                                      bool isAmongKana, Findings& findings) {
    begin = findWord(line, begin, end);
    if (begin == end) {
        return std::nullopt;
    }
    const auto word = wordAt(line, begin, end);
    const auto& diagnosis = diagnosisOf(word, isAmongKana);
    const auto& proposals = diagnosis.proposals;
    // A blank at the end of a text shows only with what comes after it.
    const bool needsBlank =
        std::any_of(proposals.begin(), proposals.end(),
                    [](const auto& proposal) { return proposal.text.back() == U' '; });
    const bool isBeforeKana =
        word.after.size() > 1 && isKana(word.after[0]) && isKana(word.after[1]);
    const auto pair = needsBlank && isBeforeKana ? word.after.substr(0, 2) : std::u32string();
    findings.push_back(findingOf(line, begin, end + pair.size(), diagnosis.reason));
    return Unsung{begin, end, pair, &diagnosis, findings.size() - 1};
}

const Diagnosis& TextCheck::diagnosisOf(const WordInText& word, bool isAmongKana) {
    const auto [known, isNew] = diagnoses_.try_emplace({word, isAmongKana});
    if (isNew) {
        known->second = SuggestionSearch(reader_, word, isAmongKana).run();
        for (const auto& proposal : known->second.proposals) {
            if (proposal.syllables.empty()) {
                const auto lyric = utf8Of(word.before + proposal.text + word.after);
                prove_(lyric, reader_.syllablesOf(lyric));
            }
        }
    }
    return known->second;
}

void TextCheck::addSuggestions(Text line, const std::vector<Unsung>& unsung, Findings& findings) {
    const LyricPronunciations pronunciations(line, reader_);
    for (const auto& word : unsung) {
        auto& suggestions = findings[word.finding].suggestions;
        for (const auto& proposal : word.diagnosis->proposals) {
            if (proposal.syllables.empty()) {
                suggestions.push_back({utf8Of(proposal.text + word.pair)});
            } else if (auto suggestion = inBracket(line, proposal, word, pronunciations)) {
                prove_(suggestion->text, reader_.syllablesOf(suggestion->text));
                suggestions.push_back(*std::move(suggestion));
            }
        }
    }
}

std::optional<Suggestion> TextCheck::inBracket(Text line, const Proposal& proposal,
                                               const Unsung& word,
                                               const LyricPronunciations& pronunciations) {
    const bool isAlone =
        line.find_first_not_of(U' ') == word.begin && line.find_last_not_of(U' ') + 1 == word.end;
    const auto all = pronunciations.with(word.begin, {proposal.syllables, proposal.isGuess});
    if (!all) {
        return std::nullopt;
    }
    const auto text = isAlone ? line.substr(word.begin, word.end - word.begin) : line;
    auto lyric = withBracket(utf8Of(text), all->syllables);
    return charactersOf(lyric).size() > kLongestLine
               ? std::nullopt
               : std::optional(Suggestion{std::move(lyric), !isAlone, all->isGuess});
}

} // namespace wybeta::wysim::words
