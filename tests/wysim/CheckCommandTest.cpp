// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wysim/SongFixture.h"
#include "wysim/program/TextFile.h"
#include "wysim/words/CheckReport.h"
#include "wysim/words/TextFinding.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>

namespace wybeta::tests {

namespace {

using namespace wysim::words;

constexpr auto kText = "Amazing grace!\n\nさくら ス0\nhelo xyzzy 桜\n";

TEST(CheckCommand, TellsOfEachLineItsSyllablesAndWhatIsNotSung) {
    const auto run = runProgram({"check", "-"}, kText);
    EXPECT_EQ(
        run.out,
        "    3  Amazing grace!\n"
        "         column 9: \"grace!\" is not sung: a mark sticks to it. Write \"grace\".\n"
        "\n"
        "    4  さくら ス0\n"
        "         column 5: \"ス0\" is sung, but 0 drops the sound before it, or makes a rest. "
        "Write \"ス\" if not meant.\n"
        "    0  helo xyzzy 桜\n"
        "         column 1: \"helo\" is not sung: the dictionary does not have it. Write "
        "\"hello\", \"hemlo\", \"helot\" or \"delo\".\n"
        "         column 6: \"xyzzy\" is not sung: the dictionary does not have it. Write its "
        "phonemes in brackets behind it.\n"
        "         column 12: \"桜\" is not sung: kanji are passed over. Write it in kana.\n"
        "lines: 3; syllables: 7, without the 4 words that are not sung; not sung: 4, to look at: "
        "1; unknown: 2, with a proposal: 1\n");
    EXPECT_EQ(run.err, "");
}

TEST(CheckCommand, CountsTheSyllablesThatAreSung) {
    const auto total = [](const std::string& text) {
        const auto out = runProgram({"check", "-"}, text).out;
        return out.substr(out.find("lines: "));
    };
    EXPECT_EQ(total("love, me"), "lines: 1; syllables: 1, without the 1 word that is not sung; "
                                 "not sung: 1, to look at: 0; unknown: 0, with a proposal: "
                                 "0\n");
    EXPECT_EQ(total("love lo-ve"), "lines: 1; syllables: 3; not sung: 0, to look at: 1; "
                                   "unknown: 0, with a proposal: 0\n");
    EXPECT_EQ(total("xyzzy 7"), "lines: 1; syllables: 0, without the 2 words that are not sung; "
                                "not sung: 2, to look at: 0; unknown: 2, with a proposal: 0\n");
    EXPECT_EQ(total("xyzzy"), "lines: 1; syllables: 0, without the 1 word that is not sung; not "
                              "sung: 1, to look at: 0; unknown: 1, with a proposal: 1\n");
}

TEST(CheckCommand, EndsWithThreeWhenSomethingIsNotSung) {
    EXPECT_EQ(runProgram({"check", "-"}, "").status, 0);
    EXPECT_EQ(runProgram({"check", "-"}, "Amazing grace").status, 0);
    EXPECT_EQ(runProgram({"check", "-"}, "ス0 lo-ve").status, 0);
    EXPECT_EQ(runProgram({"check", "-"}, "xyzzy").status, 3);
    EXPECT_EQ(runProgram({"check", "--json", "-"}, "xyzzy").status, 3);
}

TEST(CheckCommand, WritesJsonForPrograms) {
    const auto run = runProgram({"check", "-", "--json"}, "love　さくら\nス0\n");
    EXPECT_EQ(run.out, R"({
  "lines": [
    {
      "text": "love　さくら",
      "syllables": 3,
      "findings": [
        {
          "line": 1,
          "column": 1,
          "word": "love　さく",
          "sung": false,
          "reason": "blank",
          "suggestions": [
            {
              "text": "love さく"
            }
          ],
          "syllables": 0
        }
      ]
    },
    {
      "text": "ス0",
      "syllables": 1,
      "findings": [
        {
          "line": 2,
          "column": 1,
          "word": "ス0",
          "sung": true,
          "reason": "zero",
          "suggestions": [
            {
              "text": "ス"
            }
          ],
          "syllables": 1
        }
      ]
    }
  ],
  "syllables": 4,
  "notSung": 1,
  "toLookAt": 1,
  "unknown": 0,
  "withProposal": 0
}
)");
}

TEST(CheckCommand, ReadsAFileWithAnyLineEndsAndAByteOrderMark) {
    const TemporaryFolder folder;
    const auto file = folder.write("words.txt", "\xEF\xBB\xBFlove\r\nme\r\n");
    const auto run = runProgram({"check", file.u8string()});
    EXPECT_EQ(run.out, "    1  love\n    1  me\nlines: 2; syllables: 2; not sung: 0, to look at: "
                       "0; unknown: 0, with a proposal: 0\n");
}

TEST(CheckCommand, RefusesATextThatItCannotCheck) {
    const TemporaryFolder folder;
    const auto missing = folder.file("missing.txt").u8string();
    const auto refusal = [](const std::string& file, const std::string& input = {}) {
        const auto run = runProgram({"check", file}, input);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        return run.err;
    };
    EXPECT_EQ(refusal(missing),
              "wysim: expected a text that can be read, found none at " + missing + ".\n");
    EXPECT_EQ(refusal(folder.file("").u8string()).substr(0, 38),
              "wysim: expected a text that can be rea");
    EXPECT_EQ(refusal("-", "love\n\xFF"), "wysim: expected a text of one line in UTF-8, found "
                                          "control characters or other bytes at line 2.\n");
    EXPECT_EQ(refusal("-", std::string(1001, 'x')),
              "wysim: expected a line of at most 1000 characters, found one of 1001 at line 1.\n");
    std::string large;
    while (large.size() <= wysim::program::kLargestText) {
        large += std::string(999, ' ') + "\n";
    }
    EXPECT_EQ(refusal("-", large),
              "wysim: expected a text of at most 1 MiB, found a larger one.\n");
}

TEST(CheckReport, NamesAndExplainsEveryReason) {
    std::set<std::string> names;
    std::set<std::string> sentences;
    constexpr int kLast = static_cast<int>(Reason::Zero);
    for (int reason = 0; reason <= kLast; ++reason) {
        const Finding finding{1, 1, "word", static_cast<Reason>(reason), {}, 0};
        names.insert(nameOf(finding.reason));
        sentences.insert(checkReport({{"word", 0, {finding}}}));
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(kLast) + 1);
    EXPECT_EQ(sentences.size(), names.size());
}

} // namespace

} // namespace wybeta::tests
