// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/VerseChoice.h"

#include "wysim/song/Text.h"

#include <algorithm>
#include <vector>

namespace wybeta::wysim::song {

namespace {

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

VerseChoice chooseVerse(std::optional<int> asked, const std::set<int>& verses) {
    VerseChoice choice;
    choice.verse = asked.value_or(kUsualVerse);
    if (!asked && !verses.empty() && verses.count(kUsualVerse) == 0) {
        choice.verse = *verses.begin();
    }
    choice.hasWords = verses.count(choice.verse) != 0;
    choice.warning = warningOf(choice.verse, asked.has_value(), verses);
    return choice;
}

} // namespace wybeta::wysim::song
