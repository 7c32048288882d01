// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/NoteList.h"
#include "tests/unit/tracks/NamedNotes.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace wybeta::tests {
namespace {

using tracks::NoteList;
using tracks::NoteRecord;

TEST(NoteList, IsEmptyAtFirst) {
    const NoteList list;
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.size(), 0u);
    EXPECT_FALSE(list.isKnownDistinct());
}

TEST(NoteList, KeepsTheRecordsInTheOrderInWhichTheyAreAppended) {
    const auto list = notesNamed("aba");
    EXPECT_FALSE(list.empty());
    EXPECT_EQ(list.size(), 3u);
    EXPECT_EQ(namesOf(list), "aba");
    EXPECT_EQ(list[1].event, eventNamed('b'));
}

TEST(NoteList, IsNotKnownToBeDistinctOnceARecordIsAppended) {
    auto list = knownDistinct(notesNamed("ab"));
    ASSERT_TRUE(list.isKnownDistinct());
    list.append(noteNamed('c'));
    EXPECT_FALSE(list.isKnownDistinct());
}

TEST(NoteList, StaysKnownToBeDistinctWhileRecordsAreRemovedOrChanged) {
    auto list = knownDistinct(notesNamed("abc"));
    list.removeIf([](const NoteRecord& record) { return record.event == eventNamed('b'); });
    list.lyrics(0) = "x";
    list.value(1) = 7;
    list.reserve(10);
    EXPECT_TRUE(list.isKnownDistinct());
}

TEST(NoteList, IsKnownToBeDistinctWhenItIsACopyOfSuchAList) {
    const auto list = knownDistinct(notesNamed("ab"));
    auto copy = list;
    copy.lyrics(0) = "x";
    EXPECT_TRUE(copy.isKnownDistinct());
    EXPECT_EQ(namesOf(copy), "xb");
    EXPECT_EQ(namesOf(list), "ab");
}

TEST(NoteList, RemovesEachRecordThatThePredicateTakesAndKeepsTheOrder) {
    auto list = notesNamed("abcabd");
    list.removeIf([](const NoteRecord& record) { return record.lyrics == "b"; });
    EXPECT_EQ(namesOf(list), "acad");
    list.removeIf([](const NoteRecord&) { return true; });
    EXPECT_TRUE(list.empty());
}

TEST(NoteList, ChangesLyricsAndValueInPlace) {
    auto list = notesNamed("ab");
    list.lyrics(1) = "x";
    list.value(0) = -1;
    EXPECT_EQ(namesOf(list), "ax");
    EXPECT_EQ(list[0].value, -1);
    EXPECT_EQ(list[1].value, 0);
    EXPECT_EQ(list[1].event, eventNamed('b'));
}

TEST(NoteList, GivesNoWayToChangeAnEventInPlace) {
    using Reference = decltype(std::declval<NoteList&>()[0]);
    EXPECT_TRUE(std::is_const_v<std::remove_reference_t<Reference>>);
    EXPECT_TRUE(
        std::is_const_v<std::remove_reference_t<decltype(*std::declval<NoteList&>().begin())>>);
}

} // namespace
} // namespace wybeta::tests
