// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/CheckReport.h"

#include "wysim/words/Wording.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace wybeta::wysim::words {

namespace {

struct Explanation {
    Reason reason;
    const char* name;
    const char* why;
    const char* advice; // where there is no suggestion
};

constexpr Explanation kExplanations[] = {
    {Reason::Unknown, "unknown", "the dictionary does not have it",
     "Write its phonemes in brackets behind it"},
    {Reason::Mark, "mark", "a mark sticks to it", ""},
    {Reason::Apostrophe, "apostrophe", "its apostrophe is a typographic one", ""},
    {Reason::Blank, "blank", "a blank of another kind sticks to it", ""},
    {Reason::FullWidth, "full-width", "its letters are full-width", ""},
    {Reason::HalfWidthKana, "half-width-kana", "its kana are half-width", ""},
    {Reason::BeforeKanaPair, "kana-pair", "two kana of one syllable come right behind it", ""},
    {Reason::Kanji, "kanji", "kanji are passed over", "Write it in kana"},
    {Reason::OtherCharacter, "other-character", "such characters are passed over",
     "Write it in kana or in plain letters"},
    {Reason::HyphenJoins, "hyphen-joins", "a hyphen makes one word of several", ""},
    {Reason::LongMark, "long-mark", "only ー holds a kana, and only a plain 0 drops a sound", ""},
    {Reason::OutsideBracket, "outside-bracket", "only the last bracket of a line is sung",
     "Give it a line of its own"},
    {Reason::EmptyBracket, "empty-bracket", "its bracket is empty",
     "Write its phonemes into the bracket"},
    {Reason::HyphenHolds, "hyphen-holds", "its hyphens hold syllables over further notes", ""},
    {Reason::Zero, "zero", "0 drops the sound before it, or makes a rest", "Write another word"},
    {Reason::OneSyllable, "one-syllable", "all of its bracket goes to one note", ""},
};

const Explanation& explanationOf(Reason reason) {
    return *std::find_if(
        std::begin(kExplanations), std::end(kExplanations),
        [reason](const auto& explanation) { return explanation.reason == reason; });
}

std::string named(const Suggestion& suggestion) {
    return (suggestion.isForLyric ? "the whole lyric as " : "") + inDoubleQuotes(suggestion.text) +
           (suggestion.isGuess ? " (a guess)" : "");
}

// "a", "b" or "c".
std::string listed(const std::vector<Suggestion>& suggestions) {
    std::string text = named(suggestions.front());
    for (std::size_t i = 1; i < suggestions.size(); ++i) {
        text += (i + 1 == suggestions.size() ? " or " : ", ") + named(suggestions[i]);
    }
    return text;
}

std::string adviceOn(const Finding& finding) {
    return finding.suggestions.empty() ? explanationOf(finding.reason).advice
                                       : "Write " + listed(finding.suggestions) +
                                             (isSung(finding.reason) ? " if not meant" : "");
}

struct Totals {
    std::size_t lines = 0;
    std::size_t syllables = 0;
    std::size_t unsung = 0;
    std::size_t toLookAt = 0;
    std::size_t unknown = 0; // of those that are not sung
    std::size_t withProposal = 0;
};

Totals totalsOf(const std::vector<CheckedLyric>& lines) {
    Totals totals;
    for (const auto& line : lines) {
        totals.lines += trimmed(line.text).empty() ? 0 : 1;
        totals.syllables += line.syllables;
        for (const auto& finding : line.findings) {
            ++(isSung(finding.reason) ? totals.toLookAt : totals.unsung);
            const bool isUnknown = finding.reason == Reason::Unknown;
            totals.unknown += isUnknown ? 1 : 0;
            totals.withProposal += isUnknown && !finding.suggestions.empty() ? 1 : 0;
        }
    }
    return totals;
}

// Only what is sung has syllables.
std::string countedSyllables(const Totals& totals) {
    auto text = "syllables: " + std::to_string(totals.syllables);
    if (totals.unsung > 0) {
        text += ", without the " + std::to_string(totals.unsung) +
                (totals.unsung == 1 ? " word that is" : " words that are") + " not sung";
    }
    return text;
}

std::string padded(std::size_t number, std::size_t width) {
    const auto digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), ' ') + digits;
}

} // namespace

bool isAllSung(const std::vector<CheckedLyric>& lines) {
    return totalsOf(lines).unsung == 0;
}

std::string checkReport(const std::vector<CheckedLyric>& lines) {
    constexpr std::size_t kWidth = 5;
    std::string report;
    for (const auto& line : lines) {
        report += trimmed(line.text).empty()
                      ? "\n"
                      : padded(line.syllables, kWidth) + "  " + line.text + "\n";
        for (const auto& finding : line.findings) {
            report += std::string(kWidth + 4, ' ') + "column " + std::to_string(finding.column) +
                      ": " + sentenceOn(finding) + "\n";
        }
    }
    const auto totals = totalsOf(lines);
    return report + "lines: " + std::to_string(totals.lines) + "; " + countedSyllables(totals) +
           "; not sung: " + std::to_string(totals.unsung) +
           ", to look at: " + std::to_string(totals.toLookAt) +
           "; unknown: " + std::to_string(totals.unknown) +
           ", with a proposal: " + std::to_string(totals.withProposal) + "\n";
}

nlohmann::ordered_json suggestionsJson(const Finding& finding) {
    auto list = nlohmann::ordered_json::array();
    for (const auto& suggestion : finding.suggestions) {
        list.push_back({{"text", suggestion.text}});
        if (suggestion.isForLyric) {
            list.back()["replaces"] = "lyric";
        }
        if (suggestion.isGuess) {
            list.back()["guess"] = true;
        }
    }
    return list;
}

std::string checkJson(const std::vector<CheckedLyric>& lines) {
    using nlohmann::ordered_json;
    auto list = ordered_json::array();
    for (const auto& line : lines) {
        auto findings = ordered_json::array();
        for (const auto& finding : line.findings) {
            findings.push_back({{"line", finding.line},
                                {"column", finding.column},
                                {"word", finding.word},
                                {"sung", isSung(finding.reason)},
                                {"reason", nameOf(finding.reason)},
                                {"suggestions", suggestionsJson(finding)},
                                {"syllables", finding.syllables}});
        }
        list.push_back(
            {{"text", line.text}, {"syllables", line.syllables}, {"findings", findings}});
    }
    const auto totals = totalsOf(lines);
    const ordered_json report = {{"lines", list},
                                 {"syllables", totals.syllables},
                                 {"notSung", totals.unsung},
                                 {"toLookAt", totals.toLookAt},
                                 {"unknown", totals.unknown},
                                 {"withProposal", totals.withProposal}};
    return report.dump(2) + "\n";
}

std::string sentenceOn(const Finding& finding) {
    return inDoubleQuotes(finding.word) +
           (isSung(finding.reason) ? " is sung, but " : " is not sung: ") +
           explanationOf(finding.reason).why + ". " + adviceOn(finding) + ".";
}

std::string nameOf(Reason reason) {
    return explanationOf(reason).name;
}

} // namespace wybeta::wysim::words
