// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/NoteListDiff.h"
#include "tests/unit/tracks/NamedNotes.h"
#include "tracks/NoteList.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace wybeta::tracks {
namespace {

using tests::namesOf;
using tests::noteNamed;
using tests::notesNamed;

std::string diff(std::string_view longer, std::string_view shorter) {
    return namesOf(diffNoteLists(notesNamed(longer), notesNamed(shorter)));
}

std::string merge(std::string_view records, const NoteChanges& changes) {
    return namesOf(mergeNotes(notesNamed(records), changes));
}

std::string remove(std::string_view records, const NoteChanges& changes) {
    auto list = notesNamed(records);
    removeNotes(list, changes);
    return namesOf(list);
}

// The list without the notes whose bits are set.
std::string without(std::string_view letters, unsigned bits) {
    std::string rest;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        if ((bits >> i & 1u) == 0) {
            rest += letters[i];
        }
    }
    return rest;
}

TEST(NoteListDiff, ListsTheNotesThatTheShorterListLacks) {
    EXPECT_EQ(diff("abcd", "ad"), "1b 2c");
    EXPECT_EQ(diff("aeb", "ab"), "1e");
    EXPECT_EQ(diff("abc", "bc"), "0a");
    EXPECT_EQ(diff("abc", "ab"), "2c");
    EXPECT_EQ(diff("abc", ""), "0a 1b 2c");
}

TEST(NoteListDiff, IsGreedy) {
    EXPECT_EQ(diff("qrs", "pq"), "0q 1r 2s");
    EXPECT_EQ(diff("abcd", "cb"), "0a 1b 3d");
}

TEST(NoteListDiff, IsEmptyWhenTheLongerListIsNot) {
    EXPECT_EQ(diff("a", "bc"), "");
    EXPECT_EQ(diff("", "a"), "");
    EXPECT_EQ(diff("", ""), "");
}

TEST(NoteListDiff, ComparesListsOfOneLengthAsWell) {
    EXPECT_EQ(diff("abc", "abc"), "");
    EXPECT_EQ(diff("abc", "axc"), "1b 2c");
}

TEST(NoteListDiff, MatchesEachRecordOfTheShorterListOnce) {
    EXPECT_EQ(diff("aab", "ab"), "1a");
    EXPECT_EQ(diff("aaa", "a"), "1a 2a");
}

TEST(NoteListDiff, ListsARecordWithoutANoteWhileTheShorterListGoesOn) {
    EXPECT_EQ(diff(".ab", "ab"), "0.");
    EXPECT_EQ(diff("a.b", "ab"), "1.");
    EXPECT_EQ(diff("a.b", "a.b"), "");
}

TEST(NoteListDiff, TakesARecordWithoutANoteForMatchedBehindTheShorterList) {
    EXPECT_EQ(diff("ab.", "ab"), "");
    EXPECT_EQ(diff("a..b", "a"), "3b");
}

TEST(NoteListDiff, LooksAtTheEventsOnlyAndCopiesWholeRecords) {
    auto first = noteNamed('a');
    first.lyrics = "another";
    auto second = noteNamed('b');
    second.start = 1.5;
    second.length = 0.25;
    second.value = 7;
    second.phoneme = "p";
    const auto changes = diffNoteLists({{first, second}}, notesNamed("a"));

    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].position, 1u);
    const NoteRecord& copy = changes[0].note;
    EXPECT_EQ(copy.start, 1.5);
    EXPECT_EQ(copy.length, 0.25);
    EXPECT_EQ(copy.value, 7);
    EXPECT_EQ(copy.lyrics, "b");
    EXPECT_EQ(copy.phoneme, "p");
    EXPECT_EQ(copy.event, second.event);
}

TEST(NoteListDiffMerge, PutsNotesBackAtTheirPositions) {
    EXPECT_EQ(merge("ad", {{1, noteNamed('b')}, {2, noteNamed('c')}}), "abcd");
    EXPECT_EQ(merge("ab", {{0, noteNamed('x')}}), "xab");
    EXPECT_EQ(merge("ab", {{2, noteNamed('x')}, {3, noteNamed('y')}}), "abxy");
    EXPECT_EQ(merge("b", {{0, noteNamed('a')}, {2, noteNamed('c')}}), "abc");
    EXPECT_EQ(merge("", {{0, noteNamed('a')}, {1, noteNamed('b')}}), "ab");
    EXPECT_EQ(merge("ab", {}), "ab");
    EXPECT_EQ(merge("", {}), "");
}

TEST(NoteListDiffMerge, EndsAtAPositionPastTheEnd) {
    EXPECT_EQ(merge("ab", {{3, noteNamed('x')}}), "ab");
    EXPECT_EQ(merge("ab", {{1, noteNamed('x')}, {9, noteNamed('y')}, {3, noteNamed('z')}}), "axb");
    EXPECT_EQ(merge("", {{1, noteNamed('x')}}), "");
}

TEST(NoteListDiffMerge, EndsAtAPositionThatWasPassed) {
    EXPECT_EQ(merge("ab", {{2, noteNamed('x')}, {0, noteNamed('y')}}), "abx");
    EXPECT_EQ(merge("ab", {{1, noteNamed('x')}, {1, noteNamed('y')}}), "axb");
}

TEST(NoteListDiffMerge, ReadsPositionsAsSigned32BitNumbers) {
    EXPECT_EQ(merge("ab", {{0xFFFFFFFF, noteNamed('x')}}), "ab");
    EXPECT_EQ(merge("ab", {{0x80000000, noteNamed('x')}}), "ab");
    EXPECT_EQ(merge("ab", {{0xFFFFFFFFFFFFFFFF, noteNamed('x')}}), "ab");
    EXPECT_EQ(merge("ab", {{0x100000001, noteNamed('x')}}), "axb");
}

TEST(NoteListDiffMerge, PutsBackAnySelectionThatTheDifferenceFound) {
    const std::string letters = "abcdefgh";
    for (unsigned bits = 0; bits < 256; ++bits) {
        const auto rest = without(letters, bits);
        const auto changes = diffNoteLists(notesNamed(letters), notesNamed(rest));
        EXPECT_EQ(merge(rest, changes), letters) << rest;
        EXPECT_EQ(remove(letters, changes), rest);
    }
}

TEST(NoteListDiffRemoval, TakesNotesOutAndKeepsTheOrder) {
    EXPECT_EQ(remove("abcd", {{1, noteNamed('b')}, {2, noteNamed('c')}}), "ad");
    EXPECT_EQ(remove("abcd", {{3, noteNamed('d')}, {0, noteNamed('a')}}), "bc");
    EXPECT_EQ(remove("ab", {{0, noteNamed('a')}, {1, noteNamed('b')}}), "");
    EXPECT_EQ(remove("ab", {}), "ab");
}

TEST(NoteListDiffRemoval, GoesByPositionsAndNotByNotes) {
    EXPECT_EQ(remove("abc", {{1, noteNamed('z')}}), "ac");
}

TEST(NoteListDiffRemoval, LeavesPositionsPastTheEndAlone) {
    EXPECT_EQ(remove("ab", {{2, noteNamed('x')}, {0, noteNamed('a')}}), "b");
    EXPECT_EQ(remove("ab", {{0xFFFFFFFFFFFFFFFF, noteNamed('x')}}), "ab");
    EXPECT_EQ(remove("ab", {{0x100000001, noteNamed('x')}}), "ab");
    EXPECT_EQ(remove("", {{0, noteNamed('x')}}), "");
}

TEST(NoteListDiffRemoval, TakesAPositionThatComesTwiceOnce) {
    EXPECT_EQ(remove("abc", {{1, noteNamed('b')}, {1, noteNamed('b')}}), "ac");
}

TEST(NoteListDiffRemoval, DropsRecordsThatHeldTheDeletionMarkBefore) {
    auto records = notesNamed("abcd");
    records.records[0].value = -1;
    records.records[3].value = static_cast<std::int32_t>(0xFFFFFFFF);
    removeNotes(records, {{1, noteNamed('b')}});
    EXPECT_EQ(namesOf(records), "c");

    records = notesNamed("ab");
    records.records[1].value = -1;
    removeNotes(records, {});
    EXPECT_EQ(namesOf(records), "a");
}

} // namespace
} // namespace wybeta::tracks
