// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/NoteListWriter.h"
#include "tests/unit/tracks/NamedNotes.h"
#include "tracks/NoteList.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace wybeta::tests {
namespace {

using tracks::NoteList;

// Writes a record for each letter.
void write(NoteList& list, const NoteList& previous, std::string_view letters) {
    tracks::NoteListWriter writer(list, previous);
    for (const char letter : letters) {
        writer.next() = noteNamed(letter);
        writer.keep();
    }
    writer.finish();
}

TEST(NoteListWriter, WritesTheRecordsThatAreKept) {
    NoteList list;
    const NoteList previous;
    tracks::NoteListWriter writer(list, previous);
    writer.next() = noteNamed('a');
    writer.keep();
    writer.next() = noteNamed('x');
    writer.next() = noteNamed('b');
    writer.keep();
    writer.next() = noteNamed('y');
    writer.finish();
    EXPECT_EQ(namesOf(list), "ab");
}

TEST(NoteListWriter, DropsWhatIsLeftOfTheSpareList) {
    auto list = notesNamed("wxyz");
    write(list, notesNamed("ab"), "ab");
    EXPECT_EQ(namesOf(list), "ab");
    write(list, notesNamed("ab"), "");
    EXPECT_TRUE(list.empty());
}

TEST(NoteListWriter, GoesOnPastTheEndOfTheSpareList) {
    auto list = notesNamed("w");
    write(list, NoteList(), "abc");
    EXPECT_EQ(namesOf(list), "abc");
}

TEST(NoteListWriter, OffersTheMemoryOfTheSpareListToBeWrittenOver) {
    auto list = notesNamed("xy");
    list.lyrics(0) = std::string(100, 'x');
    const auto* const record = &list[0];
    const auto* const text = list[0].lyrics.data();
    const auto previous = notesNamed("ab");

    tracks::NoteListWriter writer(list, previous);
    auto& next = writer.next();
    EXPECT_EQ(next.lyrics, std::string(100, 'x'));
    next.lyrics = "a";
    writer.keep();
    writer.finish();
    EXPECT_EQ(&list[0], record);
    EXPECT_EQ(list[0].lyrics.data(), text);
}

TEST(NoteListWriter, MakesRoomForAsManyRecordsAsThereWere) {
    NoteList list;
    const auto previous = notesNamed("abcd");
    tracks::NoteListWriter writer(list, previous);
    const auto* const first = &writer.next();
    for (int i = 0; i < 4; ++i) {
        writer.next() = previous[0];
        writer.keep();
    }
    writer.finish();
    EXPECT_EQ(&list[0], first);
}

TEST(NoteListWriter, FindsTheFirstRecordThatThePreviousListHasOfAnEvent) {
    NoteList list;
    const auto previous = notesNamed("abca");
    tracks::NoteListWriter writer(list, previous);
    EXPECT_EQ(writer.findPrevious(eventNamed('a')), &previous[0]);
    EXPECT_EQ(writer.findPrevious(eventNamed('c')), &previous[2]);
    EXPECT_EQ(writer.findPrevious(eventNamed('z')), nullptr);
}

TEST(NoteListWriter, LeavesAListKnownToBeDistinctThatRepeatsSuchAList) {
    NoteList list;
    write(list, knownDistinct(notesNamed("abc")), "abc");
    EXPECT_TRUE(list.isKnownDistinct());
    write(list, knownDistinct(notesNamed("abc")), "ab");
    EXPECT_TRUE(list.isKnownDistinct());
}

TEST(NoteListWriter, LeavesAListNotKnownToBeDistinctThatLeftTheOrder) {
    for (const std::string_view letters : {"ba", "aab", "abcd", "ac", "zabc"}) {
        auto list = knownDistinct(notesNamed("xyz"));
        write(list, knownDistinct(notesNamed("abc")), letters);
        EXPECT_FALSE(list.isKnownDistinct()) << letters;
    }
}

TEST(NoteListWriter, LeavesAListNotKnownToBeDistinctThatFollowsNoSuchList) {
    auto list = knownDistinct(notesNamed("xyz"));
    write(list, notesNamed("abc"), "abc");
    EXPECT_FALSE(list.isKnownDistinct());
}

TEST(NoteListWriter, LeavesAListNotKnownToBeDistinctWhileItIsAtWork) {
    auto list = knownDistinct(notesNamed("abc"));
    const auto previous = knownDistinct(notesNamed("abc"));
    tracks::NoteListWriter writer(list, previous);
    writer.next() = noteNamed('a');
    writer.keep();
    EXPECT_FALSE(list.isKnownDistinct());
}

} // namespace
} // namespace wybeta::tests
