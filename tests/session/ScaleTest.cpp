// SPDX-License-Identifier: GPL-3.0-or-later
//
// The cost of a walk grows with the notes and no faster. At these sizes a search through all notes
// for each of them would take minutes.
#include "simulator/Editor.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace wybeta::tests {
namespace {

using Scale = SessionTest;

TEST_F(Scale, OfTwoHundredThousandNotesTypedIntoAtOnce) {
    constexpr std::size_t kNotes = 200'000;
    auto& track = addKnownTrack(Lyrics(kNotes, "la"));
    std::vector<simulator::Change> changes;
    for (const auto& item : partOf(track).items()) {
        changes.push_back(simulator::typingChange(dynamic_cast<Event&>(*item), "か"));
    }
    editor().edit(std::move(changes));
    EXPECT_EQ(lyricsOf(track), Lyrics(kNotes, "か[k a]"));
    EXPECT_TRUE(hook().empty());
    editor().undo();
    EXPECT_EQ(lyricsOf(track), Lyrics(kNotes, "la"));
    EXPECT_TRUE(hook().empty());
}

TEST_F(Scale, OfTwoHundredThousandNotesAddedAtOnce) {
    constexpr std::size_t kNotes = 200'000;
    auto& track = addKnownTrack({"a", "b"});
    const auto added = makePart(Lyrics(kNotes, "la"));
    editor().add(track, 0, added);
    ASSERT_EQ(editor().lastSteps().size(), 1u);
    editor().undo();
    EXPECT_TRUE(hook().empty());
    editor().redo();
    EXPECT_TRUE(hook().empty());
}

} // namespace
} // namespace wybeta::tests
