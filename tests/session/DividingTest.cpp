// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which lyrics of a track are divided, and what undo brings back for them.
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>

namespace wybeta::tests {
namespace {

class Dividing : public SessionTest {
protected:
    // Types into one note of the track and hooks the edit. Returns the track's lyrics.
    Lyrics typed(Track& track, std::size_t index, std::string_view lyric) {
        typeInto(noteAt(track, index), lyric);
        steps_ = hook();
        return lyricsOf(track);
    }

    // The track's lyrics after the one step of the last hook is undone.
    Lyrics undone(Track& track) {
        EXPECT_EQ(steps_.size(), 1u);
        steps_.at(0)->undo();
        return lyricsOf(track);
    }

    const EditSteps& steps() const { return steps_; }

    void TearDown() override {
        steps_.clear();
        SessionTest::TearDown();
    }

private:
    EditSteps steps_;
};

TEST_F(Dividing, SpreadsKanaOverTheNoteAndThoseThatFollow) {
    auto& track = addKnownTrack({"", "", ""});
    EXPECT_EQ(typed(track, 0, "さくら"), (Lyrics{"さくら[s a]", "[k u]", "[r a]"}));
}

TEST_F(Dividing, SpreadsAnEnglishWordOverTheNoteAndThoseThatFollow) {
    auto& track = addKnownTrack({"", "", "", ""});
    EXPECT_EQ(typed(track, 1, "abandon"), (Lyrics{"", "abandon[ah]", "[b ae n]", "[d ah n]"}));
}

TEST_F(Dividing, SpreadsWrittenPhonemesOverTheNoteAndThoseThatFollow) {
    auto& track = addKnownTrack({"", "", ""});
    EXPECT_EQ(typed(track, 0, "sakura[ s a , k u,r a ]"),
              (Lyrics{"sakura[s a]", "[k u]", "[r a]"}));
}

TEST_F(Dividing, SpreadsAMixedLyricInItsOrder) {
    auto& track = addKnownTrack({"", "", "", ""});
    EXPECT_EQ(typed(track, 0, "きゃ hello ん"),
              (Lyrics{"きゃ hello ん[ky a]", "[hh ah]", "[l ow]", "[N]"}));
}

TEST_F(Dividing, LeavesTheNotesBehindTheLastSyllableAlone) {
    auto& track = addKnownTrack({"", "x", "y", "z"});
    EXPECT_EQ(typed(track, 0, "かき"), (Lyrics{"かき[k a]", "[k i]", "y", "z"}));
    EXPECT_EQ(reported(*steps().at(0)).size(), 2u);
}

TEST_F(Dividing, LeavesTheNotesBeforeTheTypedOneAlone) {
    auto& track = addKnownTrack({"x", "y", "", ""});
    EXPECT_EQ(typed(track, 2, "かき"), (Lyrics{"x", "y", "かき[k a]", "[k i]"}));
}

TEST_F(Dividing, LosesTheSyllablesForWhichThereIsNoNote) {
    auto& track = addKnownTrack({"", ""});
    EXPECT_EQ(typed(track, 0, "さくらさく"), (Lyrics{"さくらさく[s a]", "[k u]"}));
    EXPECT_EQ(typed(track, 1, "かきく"), (Lyrics{"さくらさく[s a]", "かきく[k a]"}));
}

TEST_F(Dividing, GoesOnIntoTheFollowingParts) {
    auto& track = addKnownTrackOf({{"", ""}, {"x"}, {}, {"y", "z"}});
    EXPECT_EQ(typed(track, 1, "さくら"), (Lyrics{"", "さくら[s a]", "[k u]", "[r a]", "z"}));
    EXPECT_EQ(undone(track), (Lyrics{"", "", "x", "y", "z"}));
}

TEST_F(Dividing, DoesNotGoOnIntoTheNextTrack) {
    auto& first = addKnownTrack({""});
    auto& second = addKnownTrack({"x"});
    typed(first, 0, "かき");
    EXPECT_EQ(lyricsOf(second), Lyrics{"x"});
}

TEST_F(Dividing, WritesOverWhateverTheFollowingNotesCarry) {
    auto& track = addKnownTrack({"", "la[l a]", "さくら"});
    EXPECT_EQ(typed(track, 0, "かきく"), (Lyrics{"かきく[k a]", "[k i]", "[k u]"}));
    EXPECT_EQ(undone(track), (Lyrics{"", "la[l a]", "さくら"}));
}

TEST_F(Dividing, BringsBackTheTextFromBeforeTheTyping) {
    auto& track = addKnownTrack({"before", "x"});
    typed(track, 0, "かき");
    EXPECT_EQ(undone(track), (Lyrics{"before", "x"}));
}

TEST_F(Dividing, BringsBackWhatTheFollowingNotesCarriedWhenTheyWereMet) {
    auto& track = addKnownTrack({"", "recorded"});
    noteAt(track, 1).setLyric("met");
    typed(track, 0, "かき");
    EXPECT_EQ(undone(track), (Lyrics{"", "met"}));
}

TEST_F(Dividing, IsForFlaggedNotesOnly) {
    auto& track = addKnownTrack({"", ""});
    noteAt(track, 0).setLyric("かき");
    EXPECT_TRUE(hook().empty());
    noteAt(track, 0).flagged = true;
    EXPECT_TRUE(hook().empty());
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき", ""}));
}

TEST_F(Dividing, LeavesAFlaggedNoteWithTheSameLyricAlone) {
    auto& track = addKnownTrack({"かき", ""});
    EXPECT_EQ(typed(track, 0, "かき"), (Lyrics{"かき", ""}));
    EXPECT_TRUE(steps().empty());
}

TEST_F(Dividing, ComparesLyricsByteForByte) {
    auto& track = addKnownTrack({"love"});
    EXPECT_EQ(typed(track, 0, "Love"), Lyrics{"Love[l ah v]"});
    EXPECT_EQ(typed(track, 0, "Love "), Lyrics{"Love [l ah v]"});
}

TEST_F(Dividing, MakesAStepForALyricThatNothingConverts) {
    auto& track = addKnownTrack({"before", "x"});
    EXPECT_EQ(typed(track, 0, "漢字"), (Lyrics{"漢字", "x"}));
    EXPECT_EQ(undone(track), (Lyrics{"before", "x"}));
}

TEST_F(Dividing, MakesAStepForALyricThatIsDividedAlready) {
    auto& track = addKnownTrack({"before"});
    EXPECT_EQ(typed(track, 0, "ra[r a]"), Lyrics{"ra[r a]"});
    EXPECT_EQ(undone(track), Lyrics{"before"});
}

TEST_F(Dividing, MakesAStepForAClearedLyric) {
    auto& track = addKnownTrack({"before", "x"});
    EXPECT_EQ(typed(track, 0, ""), (Lyrics{"", "x"}));
    EXPECT_EQ(reported(*steps().at(0)), Nodes{noteAt(track, 0).node()});
    EXPECT_EQ(undone(track), (Lyrics{"before", "x"}));
}

TEST_F(Dividing, DividesTheLyricOfANoteThatTheTableDoesNotKnow) {
    auto& track = addKnownTrack({"x"});
    partOf(track).insert(0, makeNote());
    EXPECT_EQ(typed(track, 0, "かき"), (Lyrics{"かき[k a]", "[k i]"}));
    EXPECT_EQ(undone(track), (Lyrics{"", "x"}));
}

TEST_F(Dividing, LeavesAnEmptyFlaggedNoteThatTheTableDoesNotKnowAlone) {
    auto& track = addKnownTrack({"x"});
    track.add(makePart({""}));
    typed(track, 1, "");
    ASSERT_EQ(steps().size(), 1u);
    EXPECT_FALSE(isDivision(*steps()[0]));
}

TEST_F(Dividing, EndsAtAFlaggedNoteWhoseLyricDidNotChange) {
    auto& track = addKnownTrack({"", "a", "b", "c"});
    noteAt(track, 2).flagged = true;
    EXPECT_EQ(typed(track, 0, "さくらさ"), (Lyrics{"さくらさ[s a]", "[k u]", "b", "c"}));
}

TEST_F(Dividing, EndsAtAnEmptyFlaggedNoteThatTheTableDoesNotKnow) {
    auto& track = addKnownTrackOf({{"", "a"}, {"c"}});
    const auto added = makeNote();
    added->flagged = true;
    partOf(track).add(added);
    EXPECT_EQ(typed(track, 0, "さくらさ"), (Lyrics{"さくらさ[s a]", "[k u]", "", "c"}));
}

TEST_F(Dividing, BeginsAnewAtEveryTypedNoteInOneStep) {
    auto& track = addKnownTrackOf({{"1", "2", "3"}, {"4", "5"}});
    typeInto(noteAt(track, 2), "かき");
    EXPECT_EQ(typed(track, 0, "さくらさ"),
              (Lyrics{"さくらさ[s a]", "[k u]", "かき[k a]", "[k i]", "5"}));
    EXPECT_EQ(undone(track), (Lyrics{"1", "2", "3", "4", "5"}));
}

TEST_F(Dividing, LeavesAGapBetweenTwoDivisionsAlone) {
    auto& track = addKnownTrack({"1", "2", "3", "4"});
    typeInto(noteAt(track, 3), "き");
    EXPECT_EQ(typed(track, 0, "かき"), (Lyrics{"かき[k a]", "[k i]", "3", "き[k i]"}));
}

TEST_F(Dividing, PassesOverEventsThatAreNoNotes) {
    auto& track = addKnownTrack({"", "x", "y"});
    const auto other = makeOtherEvent();
    other->flagged = true;
    partOf(track).insert(1, other);
    partOf(track).insert(2, {});
    EXPECT_EQ(typed(track, 0, "かきく"), (Lyrics{"かきく[k a]", "", "[k i]", "[k u]"}));
}

TEST_F(Dividing, PassesOverNullParts) {
    auto& track = addKnownTrackOf({{""}, {"x"}});
    track.insert(1, {});
    track.insert(0, {});
    EXPECT_EQ(typed(track, 0, "かき"), (Lyrics{"かき[k a]", "[k i]"}));
}

TEST_F(Dividing, StopsAtTheFirstChildThatIsNoPart) {
    auto& track = addKnownTrackOf({{"", "x"}, {"y"}});
    track.insert(1, makeHandle<TreeNode>(state(), "Node", "automation"));
    EXPECT_EQ(typed(track, 0, "さくら"), (Lyrics{"さくら[s a]", "[k u]", "y"}));
    EXPECT_EQ(typed(track, 2, "かき"), (Lyrics{"さくら[s a]", "[k u]", "かき"}));
}

TEST_F(Dividing, StopsAtAPartWithoutAnIterator) {
    auto& track = addKnownTrackOf({{"", "x"}, {}, {"y"}});
    dynamic_cast<Part&>(*track.items()[1]).answerNoIteratorWhenEmpty();
    EXPECT_EQ(typed(track, 0, "さくら"), (Lyrics{"さくら[s a]", "[k u]", "y"}));
}

TEST_F(Dividing, SeesNoNotesInATrackWithoutAnIterator) {
    auto& track = addKnownTrack({"x"});
    track.remove(*track.items()[0]);
    track.answerNoIteratorWhenEmpty();
    const auto steps = hook();
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_FALSE(isDivision(*steps[0]));
}

TEST_F(Dividing, GivesNothingMoreWhenNothingChangesAfterwards) {
    auto& track = addKnownTrack({"", "", ""});
    typed(track, 0, "さくら");
    EXPECT_TRUE(hook().empty());
    undone(track);
    EXPECT_TRUE(hook().empty());
}

} // namespace
} // namespace wybeta::tests
