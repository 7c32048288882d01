// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/TrackTable.h"
#include "tests/unit/faults/FailingAllocation.h"
#include "tests/unit/tracks/NamedNotes.h"
#include "tracks/NoteList.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::tracks {
namespace {

using tests::eventNamed;
using tests::namesOf;
using tests::noteNamed;
using tests::notesNamed;

// The table never follows its keys, so any addresses will do; these ascend.
TrackKey key(std::size_t number) {
    static const char tracks[1000] = {};
    return reinterpret_cast<TrackKey>(&tracks[number]);
}

TrackTable makeTable(const std::vector<std::pair<std::size_t, std::string_view>>& entries) {
    TrackTable table;
    for (const auto& [number, letters] : entries) {
        table[key(number)].notes = std::make_shared<tracks::NoteList>(notesNamed(letters));
    }
    return table;
}

std::string namesAt(const TrackTable& table, std::size_t number) {
    return namesOf(*table.at(key(number)).notes);
}

TEST(TrackTablePruning, KeepsTheVisitedTracksAlone) {
    auto table = makeTable({{1, "a"}, {2, "b"}, {3, "c"}, {4, "d"}});
    pruneTrackTable(table, {key(4), key(2)});
    EXPECT_EQ(table.size(), 2u);
    EXPECT_EQ(namesAt(table, 2), "b");
    EXPECT_EQ(namesAt(table, 4), "d");
}

TEST(TrackTablePruning, KeepsNothingWithoutAVisit) {
    auto table = makeTable({{1, "a"}, {2, "b"}});
    pruneTrackTable(table, {});
    EXPECT_TRUE(table.empty());
}

TEST(TrackTablePruning, DoesNotMindVisitsThatComeTwiceOrThatTheTableDoesNotKnow) {
    auto table = makeTable({{1, "a"}, {2, "b"}});
    pruneTrackTable(table, {key(7), key(2), key(2), key(0), nullptr});
    EXPECT_EQ(table.size(), 1u);
    EXPECT_EQ(namesAt(table, 2), "b");
    table.clear();
    pruneTrackTable(table, {key(1)});
    EXPECT_TRUE(table.empty());
}

// A search through all visits for each track would not end here.
TEST(TrackTablePruning, TakesTimeInProportionToTheTracks) {
    constexpr std::size_t kTracks = 400'000;
    const std::vector<char> tracks(kTracks);
    TrackTable table;
    std::vector<TrackKey> visited;
    for (std::size_t i = 0; i < kTracks; ++i) {
        const auto track = reinterpret_cast<TrackKey>(&tracks[i]);
        table.emplace_hint(table.end(), track, TrackEntry{});
        if (i % 2 == 0) {
            visited.push_back(track);
        }
    }
    pruneTrackTable(table, visited);
    EXPECT_EQ(table.size(), visited.size());
}

TEST(TrackTableLyrics, GoIntoTheRecordsFromTheFirstNoteOn) {
    auto table = makeTable({{1, "abcd"}});
    syncTrackTableLyrics(table, eventNamed('b'), {"X", "Y"});
    EXPECT_EQ(namesAt(table, 1), "aXYd");
}

TEST(TrackTableLyrics, GoIntoTheFirstListThatHasTheNote) {
    auto table = makeTable({{3, "bc"}, {1, "a"}, {2, "ab"}});
    syncTrackTableLyrics(table, eventNamed('b'), {"X"});
    EXPECT_EQ(namesAt(table, 1), "a");
    EXPECT_EQ(namesAt(table, 2), "aX");
    EXPECT_EQ(namesAt(table, 3), "bc");
}

TEST(TrackTableLyrics, GoIntoTheFirstRecordOfTheNote) {
    auto table = makeTable({{1, "abcb"}});
    syncTrackTableLyrics(table, eventNamed('b'), {"X"});
    EXPECT_EQ(namesAt(table, 1), "aXcb");
}

TEST(TrackTableLyrics, GoNowhereWhenNoListHasTheNote) {
    auto table = makeTable({{1, "ab"}, {2, ""}});
    syncTrackTableLyrics(table, eventNamed('z'), {"X"});
    EXPECT_EQ(namesAt(table, 1), "ab");
    TrackTable empty;
    syncTrackTableLyrics(empty, eventNamed('a'), {"X"});
    EXPECT_TRUE(empty.empty());
}

TEST(TrackTableLyrics, AreLeftOutPastTheEndOfTheList) {
    auto table = makeTable({{1, "ab"}, {2, "cd"}});
    syncTrackTableLyrics(table, eventNamed('b'), {"X", "Y", "Z"});
    EXPECT_EQ(namesAt(table, 1), "aX");
    EXPECT_EQ(namesAt(table, 2), "cd");
}

TEST(TrackTableLyrics, ChangeNoOtherFieldOfTheRecords) {
    auto table = makeTable({{1, "a"}});
    auto record = noteNamed('a');
    record.start = 1.5;
    record.length = 0.5;
    record.value = 3;
    record.phoneme = "p";
    *table[key(1)].notes = {{record}};
    syncTrackTableLyrics(table, eventNamed('a'), {"X"});

    const auto& after = table[key(1)].notes->records[0];
    EXPECT_EQ(after.start, 1.5);
    EXPECT_EQ(after.length, 0.5);
    EXPECT_EQ(after.value, 3);
    EXPECT_EQ(after.phoneme, "p");
    EXPECT_EQ(after.event, eventNamed('a'));
}

// Writes long texts into three records, without the memory for one of them.
TEST(TrackTableLyrics, LeaveTheListWholeWhereverMemoryEnds) {
    const std::vector<std::string> texts{std::string(100, 'X'), std::string(100, 'Y'),
                                         std::string(100, 'Z')};
    for (const bool isRead : {false, true}) {
        std::uint64_t failures = 0;
        for (bool isDone = false; !isDone;) {
            auto table = makeTable({{1, "abcd"}});
            const auto read = isRead ? table[key(1)].notes : nullptr;
            try {
                const tests::FailingAllocation failure(failures + 1,
                                                       tests::FailingAllocation::Extent::One);
                syncTrackTableLyrics(table, eventNamed('a'), texts);
                isDone = true;
            } catch (const std::bad_alloc&) {
                ++failures;
            }
            EXPECT_EQ(namesAt(table, 1), isDone ? texts[0] + texts[1] + texts[2] + "d" : "abcd")
                << failures;
        }
        EXPECT_GE(failures, texts.size());
    }
}

TEST(TrackTableLyrics, LeaveAListAsItIsForAWalkThatReadsIt) {
    auto table = makeTable({{1, "abc"}});
    const auto read = table[key(1)].notes;
    syncTrackTableLyrics(table, eventNamed('a'), {"X"});
    EXPECT_EQ(namesOf(*read), "abc");
    EXPECT_EQ(namesAt(table, 1), "Xbc");
}

} // namespace
} // namespace wybeta::tracks
