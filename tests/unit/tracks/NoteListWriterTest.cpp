// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/NoteListWriter.h"
#include "tests/unit/tracks/NamedNotes.h"
#include "tracks/NoteList.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <set>
#include <string>
#include <string_view>

namespace wybeta::tests {
namespace {

using tracks::NoteList;
using tracks::NoteRecord;

void keepNote(tracks::NoteListWriter& writer, char letter) {
    writer.next() = noteNamed(letter);
    writer.keep();
}

// Writes a record for each letter.
void write(NoteList& list, const NoteList& previous, std::string_view letters) {
    tracks::NoteListWriter writer(list, previous);
    for (const char letter : letters) {
        keepNote(writer, letter);
    }
    writer.finish();
}

// What a search through the list from its front finds.
const NoteRecord* findFromFront(const NoteList& list, const void* event) {
    for (const auto& record : list.records) {
        if (record.event == event) {
            return &record;
        }
    }
    return nullptr;
}

TEST(NoteListWriter, WritesTheRecordsThatAreKept) {
    NoteList list;
    const NoteList previous;
    tracks::NoteListWriter writer(list, previous);
    keepNote(writer, 'a');
    writer.next() = noteNamed('x');
    keepNote(writer, 'b');
    writer.next() = noteNamed('y');
    writer.finish();
    EXPECT_EQ(namesOf(list), "ab");
}

TEST(NoteListWriter, DropsWhatIsLeftOfTheSpareList) {
    auto list = notesNamed("wxyz");
    write(list, notesNamed("ab"), "ab");
    EXPECT_EQ(namesOf(list), "ab");
    write(list, notesNamed("ab"), "");
    EXPECT_TRUE(list.records.empty());
}

TEST(NoteListWriter, GoesOnPastTheEndOfTheSpareList) {
    auto list = notesNamed("w");
    write(list, NoteList(), "abc");
    EXPECT_EQ(namesOf(list), "abc");
}

TEST(NoteListWriter, OffersTheMemoryOfTheSpareListToBeWrittenOver) {
    auto list = notesNamed("xy");
    list.records[0].lyrics = std::string(100, 'x');
    const auto* const record = &list.records[0];
    const auto* const text = record->lyrics.data();
    const auto previous = notesNamed("ab");

    tracks::NoteListWriter writer(list, previous);
    auto& next = writer.next();
    EXPECT_EQ(next.lyrics, std::string(100, 'x'));
    next.lyrics = "a";
    writer.keep();
    writer.finish();
    EXPECT_EQ(list.records.data(), record);
    EXPECT_EQ(list.records[0].lyrics.data(), text);
}

TEST(NoteListWriter, MakesRoomForAsManyRecordsAsThereWere) {
    NoteList list;
    const auto previous = notesNamed("abcd");
    tracks::NoteListWriter writer(list, previous);
    const auto* const first = &writer.next();
    for (const char letter : {'a', 'b', 'c', 'd'}) {
        keepNote(writer, letter);
    }
    writer.finish();
    EXPECT_EQ(list.records.data(), first);
}

TEST(NoteListWriter, FindsTheFirstRecordThatThePreviousListHasOfTheEventThatWasKept) {
    for (const auto& previous : {notesNamed("ab.ca."), knownDistinct(notesNamed("ab.c"))}) {
        NoteList list;
        tracks::NoteListWriter writer(list, previous);
        for (const char letter : {'a', 'b', 'c', 'a', '.', 'z'}) {
            keepNote(writer, letter);
            EXPECT_EQ(writer.findPrevious(), findFromFront(previous, eventNamed(letter))) << letter;
        }
    }
}

TEST(NoteListWriter, FindsNothingInAnEmptyList) {
    NoteList list;
    const NoteList previous;
    tracks::NoteListWriter writer(list, previous);
    for (const char letter : {'.', 'a'}) {
        keepNote(writer, letter);
        EXPECT_EQ(writer.findPrevious(), nullptr);
    }
}

TEST(NoteListWriter, KnowsTheEventsToBeDistinctOnceItSearchedForOne) {
    NoteList list;
    const auto previous = notesNamed("abc");
    tracks::NoteListWriter writer(list, previous);
    keepNote(writer, 'a');
    keepNote(writer, 'b');
    writer.findPrevious();
    writer.finish();
    EXPECT_TRUE(list.isKnownDistinct);
}

TEST(NoteListWriter, LeavesAListKnownToBeDistinctThatRepeatsSuchAList) {
    NoteList list;
    write(list, knownDistinct(notesNamed("abc")), "abc");
    EXPECT_TRUE(list.isKnownDistinct);
    write(list, knownDistinct(notesNamed("abc")), "ab");
    EXPECT_TRUE(list.isKnownDistinct);
}

TEST(NoteListWriter, LeavesAListNotKnownToBeDistinctThatLeftTheOrder) {
    for (const std::string_view letters : {"ba", "aab", "abcd", "ac", "zabc"}) {
        auto list = knownDistinct(notesNamed("xyz"));
        write(list, knownDistinct(notesNamed("abc")), letters);
        EXPECT_FALSE(list.isKnownDistinct) << letters;
    }
}

TEST(NoteListWriter, LeavesAListNotKnownToBeDistinctThatFollowsNoSuchList) {
    auto list = knownDistinct(notesNamed("xyz"));
    write(list, notesNamed("abc"), "abc");
    EXPECT_FALSE(list.isKnownDistinct);
}

// Repeats lists of few notes, some of them twice, with notes moved, left out and added.
TEST(NoteListWriter, FindsWhatASearchFromTheFrontFindsWhateverItFollowed) {
    std::mt19937_64 random(2);
    const auto randomLetter = [&random] { return static_cast<char>('a' + random() % 24); };
    for (int round = 0; round < 5000; ++round) {
        std::string letters(random() % 12, ' ');
        for (auto& letter : letters) {
            letter = randomLetter();
        }
        auto previous = notesNamed(letters);
        if (random() % 2 == 0) {
            previous = knownDistinct(previous);
        }
        NoteList list;
        tracks::NoteListWriter writer(list, previous);
        std::set<char> kept;
        for (std::size_t i = 0; i < letters.size() + 2; ++i) {
            const bool isSame = i < letters.size() && random() % 8 != 0;
            const char letter = isSame ? letters[i] : randomLetter();
            keepNote(writer, letter);
            kept.insert(letter);
            if (random() % 2 == 0) {
                ASSERT_EQ(writer.findPrevious(), findFromFront(previous, eventNamed(letter)))
                    << round << " " << i;
            }
        }
        writer.finish();
        ASSERT_TRUE(kept.size() == list.records.size() || !list.isKnownDistinct) << round;
    }
}

} // namespace
} // namespace wybeta::tests
