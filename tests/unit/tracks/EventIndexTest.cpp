// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/EventIndex.h"
#include "tracks/NoteList.h"

#include "tests/unit/tracks/NamedNotes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <set>
#include <vector>

namespace wybeta::tracks {
namespace {

const void* address(std::uintptr_t number) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): nobody looks at what it points to.
    return reinterpret_cast<const void*>(number);
}

NoteList recordsOf(const std::vector<std::uintptr_t>& events) {
    NoteList records;
    for (const auto event : events) {
        NoteRecord record;
        record.event = address(event);
        records.append(record);
    }
    return records;
}

// What a search through the list from its front finds.
const NoteRecord* findFromFront(const NoteList& records, const void* event) {
    for (const auto& record : records) {
        if (record.event == event) {
            return &record;
        }
    }
    return nullptr;
}

TEST(EventIndex, FindsTheRecordOfAnEvent) {
    const auto records = recordsOf({0x1000, 0x2000, 0x3000});
    EventIndex index(records);
    EXPECT_EQ(index.find(address(0x3000)), &records[2]);
    EXPECT_EQ(index.find(address(0x1000)), &records[0]);
    EXPECT_EQ(index.find(address(0x4000)), nullptr);
}

TEST(EventIndex, FindsTheFirstOfSeveralRecords) {
    const auto records = recordsOf({0x1000, 0x2000, 0x2000, 0x1000, 0x2000});
    EventIndex index(records);
    EXPECT_EQ(index.find(address(0x1000)), &records[0]);
    EXPECT_EQ(index.find(address(0x2000)), &records[1]);
}

TEST(EventIndex, FindsNothingInAnEmptyList) {
    const NoteList records;
    EventIndex index(records);
    EXPECT_EQ(index.find(address(0x1000)), nullptr);
    EXPECT_EQ(index.find(nullptr), nullptr);
}

TEST(EventIndex, FindsTheRecordWithoutAnEvent) {
    const auto records = recordsOf({0x1000, 0, 0});
    EventIndex index(records);
    EXPECT_EQ(index.find(nullptr), &records[1]);
}

TEST(EventIndex, FindsWhatASearchFromTheFrontFinds) {
    std::mt19937_64 random(1);
    for (int round = 0; round < 300; ++round) {
        const std::uint64_t spacing = std::uint64_t{1} << random() % 40;
        const std::uint64_t events = 1 + random() % 200;
        std::vector<std::uintptr_t> numbers(random() % 300);
        for (auto& number : numbers) {
            number = static_cast<std::uintptr_t>(random() % events * spacing);
        }
        const auto records = recordsOf(numbers);
        EventIndex index(records);
        for (std::uint64_t i = 0; i < events; ++i) {
            const auto* const event = address(static_cast<std::uintptr_t>(i * spacing));
            ASSERT_EQ(index.find(event), findFromFront(records, event)) << round << " " << i;
        }
    }
}

TEST(EventIndex, FindsWhatItFollowedInAListKnownToBeDistinct) {
    const auto records = tests::knownDistinct(recordsOf({0x1000, 0x2000, 0x3000}));
    EventIndex index(records);
    index.advance(address(0x1000));
    index.advance(address(0x2000));
    EXPECT_EQ(index.find(address(0x2000)), &records[1]);
    EXPECT_EQ(index.find(address(0x3000)), &records[2]);
    EXPECT_EQ(index.find(address(0x4000)), nullptr);
}

TEST(EventIndex, FindsTheFirstRecordOfAnEventThatItFollowedTwice) {
    const auto records = recordsOf({0x1000, 0x2000, 0x1000});
    EventIndex index(records);
    for (const auto& record : records) {
        index.advance(record.event);
    }
    EXPECT_EQ(index.find(address(0x1000)), &records[0]);
    EXPECT_FALSE(index.isKnownDistinct());
}

TEST(EventIndex, KnowsTheEventsToBeDistinctOnceItSearchedForOne) {
    const auto records = recordsOf({0x1000, 0x2000});
    EventIndex index(records);
    index.advance(address(0x1000));
    EXPECT_FALSE(index.isKnownDistinct());
    index.find(address(0x1000));
    EXPECT_TRUE(index.isKnownDistinct());
}

TEST(EventIndex, DoesNotKnowAnEventToBeDistinctThatIsNotTheNextOfTheList) {
    const auto records = tests::knownDistinct(recordsOf({0x1000, 0x2000}));
    for (const auto event : {0x2000, 0x3000}) {
        EventIndex index(records);
        index.advance(address(static_cast<std::uintptr_t>(event)));
        EXPECT_FALSE(index.isKnownDistinct());
    }
}

// Follows lists that are much like the one of the index: with events moved, left out and added.
TEST(EventIndex, FindsWhatASearchFromTheFrontFindsWhateverItFollowed) {
    std::mt19937_64 random(2);
    for (int round = 0; round < 3000; ++round) {
        std::vector<std::uintptr_t> numbers(random() % 12);
        for (auto& number : numbers) {
            number = static_cast<std::uintptr_t>(random() % 24 * 16);
        }
        const auto records =
            random() % 2 == 0 ? tests::knownDistinct(recordsOf(numbers)) : recordsOf(numbers);

        EventIndex index(records);
        std::set<const void*> followed;
        bool isDistinct = true;
        for (std::size_t i = 0; i < numbers.size() + 2; ++i) {
            const bool isSame = i < numbers.size() && random() % 8 != 0;
            const auto* const event = isSame ? address(numbers[i]) : address(random() % 24 * 16);
            index.advance(event);
            isDistinct = followed.insert(event).second && isDistinct;
            if (random() % 2 == 0) {
                ASSERT_EQ(index.find(event), findFromFront(records, event)) << round << " " << i;
            }
            ASSERT_TRUE(isDistinct || !index.isKnownDistinct()) << round << " " << i;
        }
    }
}

} // namespace
} // namespace wybeta::tracks
