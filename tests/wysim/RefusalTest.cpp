// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/TestName.h"
#include "tests/wysim/SongFixture.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/JsonSong.h"
#include "wysim/song/SongFile.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <ostream>
#include <string>

namespace wybeta::tests {

namespace {

using wysim::song::BadInput;

struct Refused {
    const char* file;
    const char* sentence;
};

void PrintTo(const Refused& refused, std::ostream* out) {
    *out << refused.file;
}

class RefusedFile : public testing::TestWithParam<Refused> {};

TEST_P(RefusedFile, IsRefusedWithWhatAndWhere) {
    const auto path = dataFile(GetParam().file);
    EXPECT_EQ(refusalOf(path), path.u8string() + ": " + GetParam().sentence);
}

INSTANTIATE_TEST_SUITE_P(
    Import, RefusedFile,
    testing::Values(
        Refused{"cut-short.musicxml", "expected well-formed XML, found error parsing start element "
                                      "tag at line 11, column 14"},
        Refused{"no-pitch.musicxml",
                "expected a note with a pitch, found none at line 9, column 8"},
        Refused{"no-duration.musicxml", "expected a number as duration, found 'long' at "
                                        "line 9, column 8"},
        Refused{"missing.musicxml", "expected a file that can be read, found none"},
        Refused{".", "expected a name that ends in .musicxml, .xml, .mxl or .json, found no "
                     "ending"}),
    [](const auto& test) { return testNameOf(test.param.file); });

TEST(Refusal, OfALargeFileComesWithoutReadingIt) {
    const TemporaryFolder folder;
    const auto path = folder.write("large.musicxml", "");
    std::filesystem::resize_file(path, wysim::song::kLargestSongFile + 1);
    EXPECT_NE(refusalOf(path).find("expected a file of at most 256 MiB, found 268435457 bytes"),
              std::string::npos);
}

std::string scoreWith(const std::string& note) {
    return "<score-partwise><part id='P1'><measure>" + note + "</measure></part></score-partwise>";
}

std::string noteWith(const std::string& lyric) {
    return "<note><pitch><step>C</step><octave>4</octave></pitch><duration>1</duration><lyric>"
           "<text>" +
           lyric + "</text></lyric></note>";
}

TEST(Refusal, OfXmlThatCannotBeRead) {
    ASSERT_EQ(refusalOfBytes(scoreWith(noteWith("la"))), "");
    const std::string expected = "expected well-formed XML, found ";
    EXPECT_EQ(refusalOfBytes(scoreWith(noteWith("a < b"))),
              expected + "could not determine tag type at line 1, column 131");
    EXPECT_EQ(refusalOfBytes(scoreWith(noteWith("</lyric>"))),
              expected + "start-end tags mismatch at line 1, column 130");
    EXPECT_EQ(refusalOfBytes(scoreWith(noteWith(std::string(1, '\0')))),
              expected + "start-end tags mismatch at line 1, column 128");
    EXPECT_EQ(refusalOfBytes(""), expected + "no element at line 1, column 1");
    EXPECT_EQ(refusalOfBytes(scoreWith("\n" + noteWith("\xFF"))),
              "expected a text in UTF-8, found other bytes at line 2, column 89");
}

TEST(Refusal, OfValuesThatNoSongCanHold) {
    const auto withDuration = [](const std::string& duration) {
        auto note = noteWith("la");
        return scoreWith(note.replace(note.find(">1<") + 1, 1, duration));
    };
    EXPECT_EQ(refusalOfBytes(withDuration("2")), "");
    for (const auto* const duration : {"-1", "1e300", "nan", "inf", "1 2", "0x"}) {
        EXPECT_NE(refusalOfBytes(withDuration(duration)), "") << duration;
    }
    for (const auto* const octave : {"10", "-2", "99999999999", "x"}) {
        auto note = noteWith("la");
        note.replace(note.find(">4<") + 1, 1, octave);
        EXPECT_NE(refusalOfBytes(scoreWith(note)), "") << octave;
    }
    EXPECT_EQ(refusalOfBytes(scoreWith("<attributes><transpose><chromatic>200</chromatic>"
                                       "</transpose></attributes>")),
              "expected a transposition of at most 127 semitones, found 200 at line 1, column 53");
    EXPECT_NE(refusalOfBytes(scoreWith("<attributes><divisions>0</divisions></attributes>")), "");
}

// An error or a song, whatever a file holds; anything else would end the test program.
void readDamaged(const std::string& bytes, const std::string& ending) {
    const auto attempt = [&ending](const std::string& damaged) {
        try {
            songFrom(damaged, ending);
        } catch (const BadInput& error) {
            EXPECT_NE(std::string(error.what()).find("expected "), std::string::npos);
        }
    };
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        attempt(bytes.substr(0, size));
    }
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        for (const char other : {'\0', '<', '"', '\x7F', '\xFF'}) {
            auto damaged = bytes;
            damaged[i] = other;
            attempt(damaged);
        }
    }
}

TEST(Refusal, OrASongIsWhatADamagedScoreGives) {
    readDamaged(bytesOf(dataFile("plain.musicxml")), ".musicxml");
}

TEST(Refusal, OrASongIsWhatADamagedJsonFileGives) {
    readDamaged(wysim::song::jsonFromSong(readSong(dataFile("plain.musicxml"))), ".json");
}

TEST(Refusal, OrASongIsWhatADamagedCompressedScoreGives) {
    readDamaged(bytesOf(dataFile("compressed.mxl")), ".mxl");
}

TEST(Refusal, OfJsonSaysWhere) {
    const auto refusalOfJson = [](const std::string& bytes) {
        return refusalOfBytes(bytes, ".json");
    };
    auto json = wysim::song::jsonFromSong(readSong(dataFile("plain.musicxml")));
    EXPECT_EQ(refusalOfJson(json), "");
    EXPECT_EQ(refusalOfJson("{\n \"format\" 1}"),
              "expected well-formed JSON, found an error at line 2, column 11");
    EXPECT_EQ(refusalOfJson("[]"), "expected an object, found array");
    EXPECT_EQ(refusalOfJson("{}"), "expected a text as 'format', found none");
    const auto replaced = [&json](const std::string& old, const std::string& text) {
        auto changed = json;
        return changed.replace(changed.find(old), old.size(), text);
    };
    EXPECT_EQ(refusalOfJson(replaced("\"pitch\":62", "\"pitch\":128")),
              "expected a pitch from 0 to 127, found 128 at note 2 at track 1");
    EXPECT_EQ(refusalOfJson(replaced("\"length\":1.0", "\"length\":2")),
              "expected the notes of track 'Part 1' one after the other, found note 2 begin "
              "before note 1 ends");
    EXPECT_EQ(refusalOfJson(replaced("love", "lo\\nve")),
              "expected a text of one line in UTF-8, found control characters or other bytes at "
              "note 4 at track 1");
    EXPECT_EQ(refusalOfJson(replaced("wysim song 1", "wysim song 2")),
              "expected the format 'wysim song 1', found 'wysim song 2'");
    EXPECT_EQ(refusalOfJson("{\"format\": \"wysim song 1\", \"title\": \"\", \"beats\": 4, "
                            "\"beatType\": 4, \"pickup\": 0, \"tracks\": []}"),
              "expected a song with a track, found none");
    EXPECT_EQ(refusalOfJson(replaced("\"beats\": 4", "\"beats\": 0")),
              "expected a time signature such as 4/4, found 0/4");
}

TEST(Refusal, OfOtherXmlThanAScore) {
    EXPECT_EQ(refusalOfBytes("<opus/>"), "expected a MusicXML score, 'score-partwise' or "
                                         "'score-timewise', found 'opus'");
}

TEST(Refusal, OfAScoreWithoutParts) {
    EXPECT_EQ(refusalOfBytes("<score-partwise/>"), "expected a song with a track, found none");
}

TEST(Refusal, OfDeepNestingIsNoOverflow) {
    constexpr int kDepth = 1'000'000;
    EXPECT_NE(refusalOfBytes(std::string(kDepth, '['), ".json"), "");
    std::string begins;
    std::string ends;
    for (int i = 0; i < kDepth; ++i) {
        begins += "<a>";
        ends += "</a>";
    }
    EXPECT_NE(refusalOfBytes(begins), "");
    EXPECT_NE(refusalOfBytes(begins + ends), "");
    EXPECT_EQ(refusalOfBytes(scoreWith(begins + noteWith("la") + ends)), "");
}

} // namespace

} // namespace wybeta::tests
