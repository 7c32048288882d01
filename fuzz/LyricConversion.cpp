// SPDX-License-Identifier: GPL-3.0-or-later
//
// The input is a lyric, in UTF-8 or not. It has to be divided into the same texts as by the naive
// conversion, or refused with an error of the same kind, which leaves the texts of before.
#include "lyrics/LyricConversion.h"
#include "dictionary/PronunciationDictionary.h"
#include "fuzz/Check.h"
#include "fuzz/NaiveDictionary.h"
#include "lyrics/LyricReading.h"
#include "resources/ResourceTable.h"
#include "tests/model/NaiveConversion.h"

#include <utf8cpp/utf8.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace wybeta::fuzz {

namespace {

// Words as the English dictionary has none: without a vowel, without a symbol, with a symbol that
// only begins like one of a group, and with a division that fits badly.
constexpr auto kOddWords = "nt\tn t\tn . t\n"
                           "kp\tk p\tk . p\n"
                           "zs\tt s . k w ih\tz\n"
                           "q\t . .k  t. \tq . q\n"
                           "v0\tp\v b . d g\tv . 0\n"
                           "\xC3\xA9\ta0x1 . m\t\xC3 . \xA9\n"
                           "b\xE6\xBC\xA2\tb . i2y\tb . \xE6\xBC\xA2\n";

struct Dictionaries {
    dictionary::PronunciationDictionary real;
    tests::NaiveWords naive;
};

Dictionaries load() {
    const auto* const resource = resources::findResource("cmudict0_7butf8spll");
    check(resource != nullptr, "no dictionary in the library");
    const auto text =
        std::string(resource->data, static_cast<std::size_t>(resource->size)) + kOddWords;
    return {dictionary::loadPronunciationDictionary(text.data(),
                                                    static_cast<std::int32_t>(text.size())),
            naiveDictionary(text)};
}

std::optional<lyrics::NoteLyricList> expectedLyrics(const std::string& lyric,
                                                    const tests::NaiveWords& words) {
    try {
        return tests::naiveNoteLyrics(lyric, words);
    } catch (const utf8::exception&) {
        return std::nullopt;
    }
}

bool areInOrder(const lyrics::LyricPart& part, const lyrics::LyricPart& next) {
    // A word takes the first kana of a pair.
    const bool isTaken = part.kind == lyrics::PartKind::Word &&
                         next.kind == lyrics::PartKind::KanaPair && next.begin + 1 == part.end;
    return (part.end <= next.begin || isTaken) &&
           part.firstSyllable + part.syllables == next.firstSyllable;
}

// The texts are made of what the reading of the lyric has, whose parts have all of its syllables.
void checkReading(const std::string& lyric, const lyrics::NoteLyricList& texts,
                  const Dictionaries& dictionaries) {
    const auto reading = lyrics::readLyric(lyric, dictionaries.real);
    check(reading.syllables.empty() ? texts.size() == 1 && texts.front() == lyric
                                    : texts.size() == reading.syllables.size(),
          "a reading has other syllables than the texts");
    std::size_t syllables = 0;
    for (std::size_t i = 0; i < reading.parts.size(); ++i) {
        const auto& part = reading.parts[i];
        check(part.begin < part.end, "a part is empty");
        check(i == 0 || areInOrder(reading.parts[i - 1], part), "parts are out of order");
        syllables += part.syllables;
    }
    check(syllables == reading.syllables.size(), "the parts have not all syllables");
    for (std::size_t i = 0; i < syllables; ++i) {
        const auto ending = '[' + reading.syllables[i] + ']';
        const auto& text = texts[i];
        check(text.size() >= ending.size() &&
                  text.compare(text.size() - ending.size(), ending.size(), ending) == 0,
              "a text ends in another syllable than that of the reading");
    }
}

void checkLyric(const std::string& lyric, const Dictionaries& dictionaries) {
    const lyrics::NoteLyricList before = {"before"};
    auto found = before;
    bool isRefused = false;
    try {
        lyrics::convertLyric(lyric, found, dictionaries.real);
    } catch (const utf8::exception&) {
        isRefused = true;
    }
    const auto expected = expectedLyrics(lyric, dictionaries.naive);
    check(isRefused == !expected.has_value(), "a lyric is refused by only one of them");
    checkEqual(found, expected.value_or(before));
    if (!isRefused) {
        checkReading(lyric, found, dictionaries);
    }
}

} // namespace

} // namespace wybeta::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace wybeta::fuzz;
    static const Dictionaries dictionaries = load();
    checkLyric(std::string(textOf(data, size)), dictionaries);
    return 0;
}
