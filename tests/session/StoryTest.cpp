// SPDX-License-Identifier: GPL-3.0-or-later
//
// Sessions as a user has them, from typing to the far end of the undo history.
#include "simulator/Editor.h"
#include "simulator/HostObject.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace wybeta::tests {
namespace {

class Story : public SessionTest {
protected:
    // What the project shows, and that the extension has nothing to add to it and remembers it so.
    void expectLyrics(Track& track, const Lyrics& lyrics) {
        EXPECT_EQ(lyricsOf(track), lyrics);
        EXPECT_TRUE(hook().empty());
        EXPECT_EQ(recordedLyrics(track), lyrics);
    }
};

TEST_F(Story, TypesDividesUndoesRedoesUndoesAgainAndTypesSomethingElse) {
    auto& track = addKnownTrack({"la", "li", "lu"});
    const Lyrics before = lyricsOf(track);
    const Lyrics after{"さくら[s a]", "[k u]", "[r a]"};

    editor().type(noteAt(track, 0), "さくら");
    expectLyrics(track, after);
    editor().undo();
    expectLyrics(track, before);
    editor().redo();
    expectLyrics(track, after);
    editor().undo();
    expectLyrics(track, before);
    editor().type(noteAt(track, 0), "hello");
    expectLyrics(track, {"hello[hh ah]", "[l ow]", "lu"});
    EXPECT_FALSE(editor().canRedo());
    editor().undo();
    expectLyrics(track, before);
}

TEST_F(Story, TypesOverALyricThatIsDividedAlready) {
    auto& track = addKnownTrack({"", "", ""});
    editor().type(noteAt(track, 0), "さくら");
    editor().type(noteAt(track, 0), "かき");
    expectLyrics(track, {"かき[k a]", "[k i]", "[r a]"});
    editor().undo();
    expectLyrics(track, {"さくら[s a]", "[k u]", "[r a]"});
    editor().undo();
    expectLyrics(track, {"", "", ""});
}

TEST_F(Story, TypesIntoTheMiddleOfADividedPhrase) {
    auto& track = addKnownTrack({"", "", "", ""});
    editor().type(noteAt(track, 0), "さくらさ");
    editor().type(noteAt(track, 2), "かき");
    expectLyrics(track, {"さくらさ[s a]", "[k u]", "かき[k a]", "[k i]"});

    editor().type(noteAt(track, 0), "たちつて");
    expectLyrics(track, {"たちつて[t a]", "[ch i]", "かき[k a]", "[k i]"});
    editor().undo();
    editor().undo();
    expectLyrics(track, {"さくらさ[s a]", "[k u]", "[r a]", "[s a]"});
    editor().undo();
    expectLyrics(track, {"", "", "", ""});
    while (editor().redo()) {
    }
    expectLyrics(track, {"たちつて[t a]", "[ch i]", "かき[k a]", "[k i]"});
}

TEST_F(Story, TypesMoreSyllablesThanThereAreNotes) {
    auto& track = addKnownTrack({"a", "b", "c"});
    editor().type(noteAt(track, 1), "さくらさくら");
    expectLyrics(track, {"a", "さくらさくら[s a]", "[k u]"});
    editor().undo();
    expectLyrics(track, {"a", "b", "c"});
    editor().redo();
    expectLyrics(track, {"a", "さくらさくら[s a]", "[k u]"});
}

TEST_F(Story, DividesAcrossTwoParts) {
    auto& track = addKnownTrackOf({{"a", "b"}, {"c", "d"}});
    editor().type(noteAt(track, 1), "さくら");
    expectLyrics(track, {"a", "さくら[s a]", "[k u]", "[r a]"});
    editor().undo();
    expectLyrics(track, {"a", "b", "c", "d"});
    editor().redo();
    expectLyrics(track, {"a", "さくら[s a]", "[k u]", "[r a]"});
}

TEST_F(Story, EditsTwoTracksAtOnce) {
    auto& first = addKnownTrack({"a", "b"});
    auto& second = addKnownTrack({"c", "d"});
    editor().edit({simulator::typingChange(noteAt(first, 0), "かき"),
                   simulator::typingChange(noteAt(second, 1), "hello")});
    EXPECT_EQ(editor().lastSteps().size(), 2u);
    expectLyrics(first, {"かき[k a]", "[k i]"});
    expectLyrics(second, {"c", "hello[hh ah]"});
    editor().undo();
    expectLyrics(first, {"a", "b"});
    expectLyrics(second, {"c", "d"});
    editor().redo();
    expectLyrics(first, {"かき[k a]", "[k i]"});
    expectLyrics(second, {"c", "hello[hh ah]"});
}

TEST_F(Story, AddsANoteBetweenTwoDivisionsAndUndoesItAll) {
    auto& track = addKnownTrack({"a", "b"});
    editor().type(noteAt(track, 0), "かき");
    editor().add(partOf(track), 1, makeNote("new"));
    expectLyrics(track, {"かき[k a]", "new", "[k i]"});
    editor().type(noteAt(track, 0), "さくら");
    expectLyrics(track, {"さくら[s a]", "[k u]", "[r a]"});

    editor().undo();
    expectLyrics(track, {"かき[k a]", "new", "[k i]"});
    editor().undo();
    expectLyrics(track, {"かき[k a]", "[k i]"});
    editor().undo();
    expectLyrics(track, {"a", "b"});
    while (editor().redo()) {
    }
    expectLyrics(track, {"さくら[s a]", "[k u]", "[r a]"});
}

TEST_F(Story, DeletesNotesBetweenTwoDivisionsAndUndoesItAll) {
    auto& track = addKnownTrack({"a", "b", "c", "d"});
    editor().type(noteAt(track, 0), "さくらさ");
    editor().edit({simulator::removal(partOf(track), noteAt(track, 1)),
                   simulator::removal(partOf(track), noteAt(track, 2))});
    expectLyrics(track, {"さくらさ[s a]", "[s a]"});
    editor().type(noteAt(track, 0), "かき");
    expectLyrics(track, {"かき[k a]", "[k i]"});

    editor().undo();
    expectLyrics(track, {"さくらさ[s a]", "[s a]"});
    editor().undo();
    expectLyrics(track, {"さくらさ[s a]", "[k u]", "[r a]", "[s a]"});
    editor().undo();
    expectLyrics(track, {"a", "b", "c", "d"});
    while (editor().redo()) {
    }
    expectLyrics(track, {"かき[k a]", "[k i]"});
}

TEST_F(Story, AddsANoteThatIsTypedIntoInTheSameEdit) {
    auto& track = addKnownTrack({"a"});
    const auto added = makeNote();
    editor().edit(
        {simulator::insertion(partOf(track), 0, added), simulator::typingChange(*added, "かき")});
    expectLyrics(track, {"かき[k a]", "[k i]"});
    EXPECT_EQ(editor().lastSteps().size(), 1u);
    editor().undo();
    EXPECT_EQ(lyricsOf(track), Lyrics{"a"});
    // Undoing a division leaves the count of notes alone, so the note is missed now.
    EXPECT_EQ(hook().size(), 1u);
    EXPECT_TRUE(hook().empty());
}

TEST_F(Story, RemovesATrackAndUndoesIt) {
    auto& track = addKnownTrack({"a", "b"});
    const Handle<Track> kept(&track);
    editor().type(noteAt(track, 0), "かき");
    editor().remove(project(), track);
    EXPECT_TRUE(editor().lastSteps().empty());
    editor().undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき[k a]", "[k i]"}));

    editor().notify();
    expectLyrics(track, {"かき[k a]", "[k i]"});
    editor().undo();
    expectLyrics(track, {"a", "b"});
    editor().type(noteAt(track, 0), "さし");
    expectLyrics(track, {"さし[s a]", "[sh i]"});
}

TEST_F(Story, UndoesADivisionInATrackThatIsOutOfTheProject) {
    auto& track = addKnownTrack({"a", "b"});
    const Handle<Track> kept(&track);
    editor().type(noteAt(track, 0), "かき");
    const auto step = editor().lastSteps().at(0);
    editor().remove(project(), track);
    step->undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"a", "b"}));
    editor().undo();
    EXPECT_TRUE(hook().empty());
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "b"}));
}

TEST_F(Story, UndoesItsHistoryAfterTheExtensionIsGone) {
    auto& track = addKnownTrack({"a", "b"});
    editor().type(noteAt(track, 0), "かき");
    editor().add(partOf(track), 2, makeNote("c"));
    editor().type(noteAt(track, 1), "さし");
    editor().terminate();

    while (editor().undo()) {
    }
    EXPECT_EQ(lyricsOf(track), (Lyrics{"a", "b"}));
    while (editor().redo()) {
    }
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき[k a]", "さし[s a]", "[sh i]"}));
    while (editor().undo()) {
    }
    EXPECT_EQ(lyricsOf(track), (Lyrics{"a", "b"}));
}

TEST_F(Story, MovesANoteToAnotherTrackAndBack) {
    auto& from = addKnownTrack({"a", "b", "c"});
    auto& to = addKnownTrack({"x"});
    editor().type(noteAt(from, 0), "かき");
    const Handle<Event> moved(&noteAt(from, 0));
    editor().edit(
        {simulator::removal(partOf(from), *moved), simulator::insertion(partOf(to), 1, moved)});
    EXPECT_EQ(lyricsOf(from), (Lyrics{"[k i]", "c"}));
    // The other track has never seen the note, and it is flagged.
    EXPECT_EQ(lyricsOf(to), (Lyrics{"x", "かき[k a]"}));
    editor().undo();
    EXPECT_EQ(lyricsOf(from), (Lyrics{"", "[k i]", "c"}));
    EXPECT_EQ(lyricsOf(to), Lyrics{"x"});
}

TEST_F(Story, WalksBackAndForthThroughALongHistory) {
    auto& track = addKnownTrackOf({{"a", "b", "c"}, {"d", "e"}});
    std::vector<Lyrics> states{lyricsOf(track)};
    const auto keepState = [&] { states.push_back(lyricsOf(track)); };
    editor().type(noteAt(track, 0), "さくらさ");
    keepState();
    editor().add(partOf(track), 1, makeNote("new"));
    keepState();
    editor().type(noteAt(track, 2), "abandon");
    keepState();
    editor().remove(partOf(track), noteAt(track, 3));
    keepState();
    editor().type(noteAt(track, 0), "");
    keepState();
    editor().type(noteAt(track, 1), "la[x,y]");
    keepState();

    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = states.size(); i-- > 1;) {
            expectLyrics(track, states[i]);
            EXPECT_TRUE(editor().undo());
        }
        for (const auto& lyrics : states) {
            expectLyrics(track, lyrics);
            editor().redo();
        }
    }
}

} // namespace
} // namespace wybeta::tests
