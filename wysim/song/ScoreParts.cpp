// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ScoreParts.h"

#include "wysim/song/ScoreElements.h"
#include "wysim/song/ScoreLyric.h"
#include "wysim/song/Text.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

namespace wybeta::wysim::song {

namespace {

using pugi::xml_node;

// The names that a score lists for its parts, by their ids.
std::map<std::string, std::string> partNames(xml_node score) {
    std::map<std::string, std::string> names;
    for (const auto listed : score.child("part-list").children("score-part")) {
        names.emplace(listed.attribute("id").value(), onOneLine(textOf(listed.child("part-name"))));
    }
    return names;
}

void addMeasure(xml_node measure, bool isTyped, ScorePart& part) {
    part.measures.push_back(measure);
    for (const auto note : measure.children("note")) {
        if (isSilent(note)) {
            continue;
        }
        part.hasNotes = true;
        for (const auto lyric : note.children("lyric")) {
            const int verse = verseOf(lyric);
            if (part.verses.count(verse) == 0 && !readLyric(lyric, isTyped).text.empty()) {
                part.verses.insert(verse);
            }
        }
    }
}

constexpr int kUsualVerse = 1;

// "verse 1 is", "verses 1, 2 and 3 are".
std::string sentence(const std::set<int>& verses, const char* singular, const char* plural) {
    std::vector<std::string> numbers(verses.size());
    std::transform(verses.begin(), verses.end(), numbers.begin(),
                   [](int verse) { return std::to_string(verse); });
    return verses.size() == 1 ? "verse " + listOf(numbers) + singular
                              : "verses " + listOf(numbers) + plural;
}

std::string warningOf(int verse, bool isAskedFor, std::set<int> verses) {
    const bool hasWords = verses.erase(verse) != 0;
    const auto name = "verse " + std::to_string(verse);
    if (isAskedFor && !hasWords) {
        return name + " has no words" +
               (verses.empty() ? ", and no other has" : "; " + sentence(verses, " has", " have"));
    }
    if (isAskedFor || !hasWords || (verse == kUsualVerse && verses.empty())) {
        return {};
    }
    return (verse == kUsualVerse ? "" : "verse 1 has no words; ") + name + " is sung" +
           (verses.empty() ? "" : ", " + sentence(verses, " is not", " are not"));
}

} // namespace

std::vector<ScorePart> partsOf(xml_node score) {
    const bool isTyped = isOwnScore(score);
    std::vector<ScorePart> parts;
    const auto names = partNames(score);
    const auto beginPart = [&](xml_node part) {
        const auto listed = names.find(part.attribute("id").value());
        const bool hasName = listed != names.end() && !listed->second.empty();
        const auto number = std::to_string(parts.size() + 1);
        parts.push_back({hasName ? listed->second : "Part " + number, {}, false, {}});
    };
    for (const auto part : score.children("part")) {
        beginPart(part);
        for (const auto measure : part.children("measure")) {
            addMeasure(measure, isTyped, parts.back());
        }
    }
    // In a score by time, each measure holds a piece of each part.
    std::map<std::string, std::size_t> places;
    for (const auto measure : score.children("measure")) {
        for (const auto piece : measure.children("part")) {
            const auto [place, isNew] =
                places.try_emplace(piece.attribute("id").value(), parts.size());
            if (isNew) {
                beginPart(piece);
            }
            addMeasure(piece, isTyped, parts[place->second]);
        }
    }
    return parts;
}

VerseChoice chooseVerse(std::optional<int> asked, const std::vector<ScorePart>& parts) {
    std::set<int> verses;
    for (const auto& part : parts) {
        verses.insert(part.verses.begin(), part.verses.end());
    }
    VerseChoice choice;
    choice.verse = asked.value_or(kUsualVerse);
    if (!asked && !verses.empty() && verses.count(kUsualVerse) == 0) {
        choice.verse = *verses.begin();
    }
    choice.hasWords = verses.count(choice.verse) != 0;
    choice.warning = warningOf(choice.verse, asked.has_value(), std::move(verses));
    return choice;
}

} // namespace wybeta::wysim::song
