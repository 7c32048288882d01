// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wysim/SmallScores.h"
#include "tests/wysim/SongFixture.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/JsonSong.h"
#include "wysim/song/SongFile.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>
#include <zlib.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace wybeta::tests {

namespace {

using wysim::song::BadInput;

TEST(Refusal, NamesTheFile) {
    const TemporaryFolder folder;
    const auto song = folder.write("song.xml", "<opus/>");
    EXPECT_EQ(refusalOf(song), song.u8string() + ": expected a MusicXML score, 'score-partwise' or "
                                                 "'score-timewise', found 'opus'");
}

TEST(Refusal, OfAFileThatCannotBeRead) {
    const TemporaryFolder folder;
    const auto missing = folder.file("missing.musicxml");
    EXPECT_EQ(refusalOf(missing),
              missing.u8string() + ": expected a file that can be read, found none");
    std::filesystem::create_directory(missing);
    EXPECT_EQ(refusalOf(missing), missing.u8string() + ": expected a file, found a folder");
}

TEST(Refusal, OfAFileWithAnotherEnding) {
    const std::string expected = ": expected a name that ends in .musicxml, .xml, .mxl or .json, ";
    EXPECT_EQ(refusalOf("song"), "song" + expected + "found no ending");
    EXPECT_EQ(refusalOf("song.mid"), "song.mid" + expected + "found '.mid'");
}

TEST(Refusal, OfALargeFileComesWithoutReadingIt) {
    const TemporaryFolder folder;
    const auto path = folder.write("large.musicxml", "");
    std::filesystem::resize_file(path, wysim::song::kLargestSongFile + 1);
    EXPECT_NE(refusalOf(path).find("expected a file of at most 64 MiB, found 67108865 bytes"),
              std::string::npos);
}

std::string scoreWithLyric(const std::string& text) {
    return scoreOf({noteOf("C4", 1, lyricOf(text))});
}

TEST(Refusal, OfXmlThatCannotBeRead) {
    ASSERT_EQ(refusalOfBytes(scoreWithLyric("la")), "");
    const std::string expected = "expected well-formed XML, found ";
    EXPECT_EQ(refusalOfBytes(scoreWithLyric("a < b")),
              expected + "could not determine tag type at line 4, column 103");
    EXPECT_EQ(refusalOfBytes(scoreWithLyric("</lyric>")),
              expected + "start-end tags mismatch at line 4, column 102");
    EXPECT_EQ(refusalOfBytes(scoreWithLyric(std::string(1, '\0'))),
              expected + "start-end tags mismatch at line 4, column 100");
    EXPECT_EQ(refusalOfBytes(""), expected + "no element at line 1, column 1");
    EXPECT_EQ(refusalOfBytes(scoreWithLyric("\xFF")),
              "expected a text in UTF-8, found other bytes at line 4, column 100");
}

TEST(Refusal, OfAScoreThatIsCutShort) {
    const auto score = scoreOf({noteOf("C4", 4)});
    EXPECT_EQ(refusalOfBytes(score.substr(0, score.find("ation>"))),
              "expected well-formed XML, found error parsing start element tag at line 4, column "
              "57");
}

// What the one note of a score is refused for, without where.
std::string refusalOfNote(const std::string& old, const std::string& other) {
    auto note = noteOf("C4", 1);
    note.replace(note.find(old), old.size(), other);
    auto sentence = refusalOfBytes(scoreOf({note}));
    const std::string place = ", in measure 1 of 'Voice' at line 4, column 2";
    const auto end = sentence.size() - std::min(sentence.size(), place.size());
    EXPECT_EQ(sentence.substr(end), place);
    return sentence.erase(end);
}

TEST(Refusal, OfPitchesThatCannotBeRead) {
    const std::string noPitch = "expected a note with a pitch, found none";
    EXPECT_EQ(refusalOfNote(">C<", ">H<"), noPitch);
    EXPECT_EQ(refusalOfNote(">C<", ">CC<"), noPitch);
    EXPECT_EQ(refusalOfNote("<step>C</step>", ""), noPitch);
    for (const auto* const octave : {"10", "-2", "99999999999", "x", ""}) {
        EXPECT_EQ(refusalOfNote("e>4<", "e>" + std::string(octave) + "<"), noPitch);
    }
    EXPECT_EQ(refusalOfNote("<octave>4", "<alter>1e9</alter><octave>4"), noPitch);
    EXPECT_EQ(refusalOfNote(">C</step><octave>4", ">B</step><octave>9"),
              "expected a pitch from 0 to 127, found 131");
}

TEST(Refusal, OfDurationsThatCannotBeRead) {
    for (const auto* const duration : {"long", "nan", "inf", "1 2", "0x"}) {
        EXPECT_EQ(refusalOfNote(">1<", ">" + std::string(duration) + "<"),
                  "expected a number as duration, found '" + std::string(duration) + "'");
    }
    EXPECT_EQ(refusalOfNote(">1<", ">-1<"), "expected a duration of 0 or more, found -1");
    EXPECT_EQ(refusalOfNote(">1<", ">1e300<"),
              "expected a time up to 1000000 quarter notes, found one beyond");
}

TEST(Refusal, OfNumbersThatCannotBeRead) {
    const auto attributes = [](const std::string& element) {
        return refusalOfBytes(scoreOf({"<attributes>" + element + "</attributes>"}));
    };
    EXPECT_EQ(attributes("<divisions>0</divisions>"),
              "expected divisions above 0, found 0, in measure 1 of 'Voice' at line 4, column 14");
    EXPECT_EQ(attributes("<divisions/>"), "expected a number as divisions, found nothing, in "
                                          "measure 1 of 'Voice' at line 4, column 14");
    EXPECT_EQ(
        attributes("<transpose><chromatic>x</chromatic></transpose>"),
        "expected a number as chromatic, found 'x', in measure 1 of 'Voice' at line 4, column 25");
    EXPECT_EQ(attributes("<transpose><octave-change>11</octave-change></transpose>"),
              "expected a transposition of at most 127 semitones, found 132, in measure 1 of "
              "'Voice' at line 4, column 14");
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
    EXPECT_EQ(refusalOfJson(replaced("\"typed\":true", "\"typed\":1")),
              "expected true or false as 'typed', found number at note 1 at track 1");
    for (const auto& [member, found] : std::vector<std::pair<std::string, std::string>>{
             {"\"slurred\":1", "'slurred', found number"},
             {R"("beamed":"yes")", "'beamed', found string"},
             {"\"endsPhrase\":null", "'endsPhrase', found null"}}) {
        EXPECT_EQ(refusalOfJson(replaced("\"pitch\":62", "\"pitch\":62," + member)),
                  "expected true or false as " + found + " at note 2 at track 1");
    }
    EXPECT_EQ(refusalOfJson(replaced("wysim song 1", "wysim song 2")),
              "expected the format 'wysim song 1', found 'wysim song 2'");
    EXPECT_EQ(refusalOfJson("{\"format\": \"wysim song 1\", \"title\": \"\", \"beats\": 4, "
                            "\"beatType\": 4, \"pickup\": 0, \"tracks\": []}"),
              "expected a song with a track, found none");
    EXPECT_EQ(refusalOfJson(replaced("\"beats\": 4", "\"beats\": 0")),
              "expected a time signature such as 4/4, found 0/4");
}

TEST(Refusal, OfAScoreWithoutParts) {
    EXPECT_EQ(refusalOfBytes("<score-partwise/>"), "expected a song with a track, found none");
}

// A JSON text nested so deep, with more brackets in a text.
std::string nestedJson(std::size_t depth) {
    return std::string(depth - 1, '[') + R"({"\"[[{{": 1})" + std::string(depth - 1, ']');
}

TEST(Refusal, OfJsonNestedDeeperThanAHundred) {
    EXPECT_EQ(refusalOfBytes(nestedJson(100), ".json"), "expected an object, found array");
    EXPECT_EQ(refusalOfBytes(nestedJson(101), ".json"),
              "expected JSON nested at most 100 deep, found more at line 1, column 101");
    std::string list = "[";
    for (int i = 0; i < 200; ++i) {
        list += "[{}],";
    }
    EXPECT_EQ(refusalOfBytes(list + "1]", ".json"), "expected an object, found array");
}

TEST(Refusal, OfJsonWithMoreValuesThanMemoryIsMeantFor) {
    std::string list = "[0";
    for (int i = 1; i < 6'000'000; ++i) {
        list += ",0";
    }
    EXPECT_EQ(refusalOfBytes(list + "]", ".json"), "expected an object, found array");
    EXPECT_EQ(refusalOfBytes(list + ",0]", ".json"),
              "expected JSON of at most 6000000 values, found more");
}

TEST(Refusal, OfMoreElementsThanMemoryIsMeantFor) {
    std::string elements;
    for (int i = 0; i < 2'000'000; ++i) {
        elements += "<a/><b></b>";
    }
    EXPECT_EQ(refusalOfBytes("<c>" + elements + "</c>"),
              "expected a MusicXML score, 'score-partwise' or 'score-timewise', found 'c'");
    EXPECT_EQ(refusalOfBytes("<c>" + elements + elements + "</c>"),
              "expected a score of at most 6000000 elements, found 8000001");
}

TEST(Refusal, OfWhatIsNoScoreNamesIt) {
    const std::string expected = "expected a compressed score, found ";
    const auto refusalOfMxl = [](const std::string& bytes) {
        return refusalOfBytes(bytes, ".mxl");
    };
    const std::string svg = "<?xml version='1.0'?>\n<svg xmlns='http://www.w3.org/2000/svg'/>";
    EXPECT_EQ(refusalOfMxl(svg), expected + "a picture (SVG)");
    EXPECT_EQ(refusalOfMxl("\x89PNG\r\n\x1A\n<a/>"), expected + "a picture (PNG)");
    EXPECT_EQ(refusalOfMxl("\xFF\xD8\xFF\xE0"), expected + "a picture (JPEG)");
    EXPECT_EQ(refusalOfMxl("GIF89a"), expected + "a picture (GIF)");
    EXPECT_EQ(refusalOfMxl("%PDF-1.7"), expected + "a PDF document");
    EXPECT_EQ(refusalOfMxl("MThd"), expected + "a MIDI file");
    EXPECT_EQ(refusalOfMxl("la la la"), expected + "neither a zip file nor XML");
    EXPECT_EQ(refusalOfMxl(""), expected + "neither a zip file nor XML");
    EXPECT_EQ(refusalOfBytes("MThd"), "expected a score in MusicXML, found a MIDI file");
    EXPECT_EQ(refusalOfMxl(scoreWithLyric("&lt;svg")), "");
}

// The compressed score with another text of the same length in it.
std::string storedWith(const std::string& old, const std::string& other) {
    auto bytes = bytesOf(dataFile("stored.mxl"));
    bytes.replace(bytes.find(old), old.size(), other);
    const auto begin = bytes.rfind("<?xml");
    const auto directory = bytes.find("PK\1\2");
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(bytes.data() + begin),
                           static_cast<uInt>(directory - begin));
    constexpr std::size_t kSumInHeader = 14;
    constexpr std::size_t kSumInDirectory = 16;
    for (const auto place :
         {bytes.rfind("PK\3\4") + kSumInHeader, bytes.rfind("PK\1\2") + kSumInDirectory}) {
        for (std::size_t i = 0; i < 4; ++i) {
            bytes[place + i] = static_cast<char>(sum >> 8 * i);
        }
    }
    return bytes;
}

TEST(Refusal, OfACompressedScoreNamesMeasureAndPartAndNoLine) {
    const auto refusal = [](const std::string& old, const std::string& other) {
        return refusalOfBytes(storedWith(old, other), ".mxl");
    };
    EXPECT_EQ(refusal("<step>D", "<step>D"), "");
    EXPECT_EQ(refusal("<step>D", "<step>H"),
              "expected a note with a pitch, found none, in measure 1 of 'Part 1'");
    EXPECT_EQ(refusal("<divisions>2<", "<divisions>x<"),
              "expected a number as divisions, found 'x', in measure 1 of 'Part 1'");
    EXPECT_EQ(refusal("</measure>", "</mEasure>"),
              "expected well-formed XML, found start-end tags mismatch");
    EXPECT_EQ(refusal("<step>D", "<step>\xFF"), "expected a text in UTF-8, found other bytes");
}

TEST(Refusal, OfACompressedScoreThatUnpacksToMoreThanTheLimit) {
    auto bytes = bytesOf(dataFile("compressed.mxl"));
    constexpr std::size_t kSize = 24;
    bytes.replace(bytes.rfind("PK\1\2") + kSize, 4, {"\1\0\0\4", 4});
    EXPECT_EQ(refusalOfBytes(bytes, ".mxl"),
              "expected at most 67108864 bytes in 'score.xml', found 67108865");
}

// Counts the memory of the documents that are read while it lives, and can end it.
class CountedXmlMemory {
public:
    explicit CountedXmlMemory(std::size_t limit) {
        left = limit;
        pugi::set_memory_management_functions(
            [](std::size_t size) -> void* {
                const bool isLeft = size <= left;
                left -= isLeft ? size : 0;
                return isLeft ? std::malloc(size) : nullptr;
            },
            std::free);
    }
    ~CountedXmlMemory() { pugi::set_memory_management_functions(std::malloc, std::free); }
    CountedXmlMemory(const CountedXmlMemory&) = delete;
    CountedXmlMemory& operator=(const CountedXmlMemory&) = delete;

    inline static std::size_t left = 0;
};

TEST(Refusal, OfAScoreForWhichThereIsNoMemoryIsASentence) {
    const TemporaryFolder folder;
    const auto song = folder.write("song.xml", scoreWithLyric("la"));
    const CountedXmlMemory memory(1000);
    EXPECT_EQ(refusalOf(song), song.u8string() + ": expected enough memory, found that the "
                                                 "program is out of memory");
}

TEST(ScoreMemory, OfElementsIsAtMostFiveTimesTheText) {
    std::string notes;
    for (int i = 0; i < 5000; ++i) {
        notes += noteOf("C4", 1, voiceOf(1) + lyricOf("la"));
    }
    const auto score = scoreOf({notes});
    const CountedXmlMemory memory(5 * score.size());
    EXPECT_EQ(songFrom(score).tracks.front().notes.size(), 5000U);
}

TEST(Refusal, OfDeepNestingIsNoOverflow) {
    constexpr int kDepth = 1'000'000;
    EXPECT_EQ(refusalOfBytes(std::string(kDepth, '['), ".json"),
              "expected JSON nested at most 100 deep, found more at line 1, column 101");
    std::string begins;
    std::string ends;
    for (int i = 0; i < kDepth; ++i) {
        begins += "<a>";
        ends += "</a>";
    }
    EXPECT_NE(refusalOfBytes(begins), "");
    EXPECT_NE(refusalOfBytes(begins + ends), "");
    EXPECT_EQ(refusalOfBytes(scoreOf({begins + noteOf("C4", 1) + ends + noteOf("D4", 1)})), "");
}

} // namespace

} // namespace wybeta::tests
