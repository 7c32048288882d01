// SPDX-License-Identifier: GPL-3.0-or-later
//
// The cost of a walk grows with the project and no faster. At these sizes a search through all
// notes or tracks for each of them would take minutes.
#include "tests/session/SessionTest.h"

#include <chrono>

namespace wybeta::tests {
namespace {

using Clock = std::chrono::steady_clock;

class Scale : public SessionTest {
protected:
    // Generous, for a slow machine and a slow build.
    static constexpr std::chrono::seconds kLimit{60};

    void TearDown() override {
        EXPECT_LT(Clock::now() - start_, kLimit);
        SessionTest::TearDown();
    }

private:
    Clock::time_point start_ = Clock::now();
};

TEST_F(Scale, OfTwoHundredThousandNotesTypedIntoAtOnce) {
    constexpr std::size_t kNotes = 200'000;
    auto& track = addKnownTrack(Lyrics(kNotes, "la"));
    std::vector<simulator::Change> changes;
    for (const auto& item : dynamic_cast<Part&>(*track.items()[0]).items()) {
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

TEST_F(Scale, OfTwoHundredThousandTracksOfWhichHalfAreRemoved) {
    constexpr std::size_t kTracks = 200'000;
    const auto device = simulator::makeDevice(state(), simulator::Plugin::Kind::VoiceSynthesizer);
    const auto kept = make<Folder>(state());
    const auto removed = make<Folder>(state());
    for (std::size_t i = 0; i < kTracks; ++i) {
        const auto track = make<Track>(state());
        track->setDevice(device);
        (i % 2 == 0 ? kept : removed)->add(track);
    }
    project().add(kept);
    project().add(removed);
    editor().notify();
    project().remove(*removed);
    editor().notify();
    EXPECT_TRUE(hook().empty());
}

} // namespace
} // namespace wybeta::tests
