// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/SongEditing.h"

#include "simulator/Editor.h"
#include "tests/wysim/EditorFixture.h"
#include "tests/wysim/ScoreFixture.h"
#include "tests/wysim/SongFixture.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/Song.h"
#include "wysim/words/SongWords.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using wysim::session::SongEditing;
using wysim::song::BadInput;
using wysim::song::Song;
using wysim::song::SongNote;

using Lines = std::vector<std::string>;

class SongEditingTest : public EditorTest<> {
protected:
    // Quarter notes one after the other, with さくら typed into the first.
    static Song song() {
        Song song;
        song.tracks = {{"Singer", {}}};
        for (int i = 0; i < 4; ++i) {
            song.tracks[0].notes.push_back(
                {i * 2.0, 1, 60 + i, i == 0 ? "さくら" : "", i == 0, false});
        }
        return song;
    }

    static void edit(const std::function<void(SongEditing&)>& work) { edit(song(), work); }
    static void edit(const Song& song, const std::function<void(SongEditing&)>& work) {
        useEditor([&](simulator::Editor& editor) {
            SongEditing editing(editor, song);
            work(editing);
        });
    }

    static Lines lines(const SongEditing& editing) { return linesOf(editing.inEditor().song()); }

    // The sentence of an edit that has to fail, which must leave everything as it was.
    static std::string refusal(SongEditing& editing, const std::function<void()>& attempt) {
        const auto before = lines(editing);
        const bool couldUndo = editing.canUndo();
        try {
            attempt();
        } catch (const BadInput& error) {
            EXPECT_EQ(lines(editing), before);
            EXPECT_EQ(editing.canUndo(), couldUndo);
            return error.what();
        }
        return {};
    }
};

SongNote noteAt(double start, double length, int pitch) {
    SongNote note;
    note.start = start;
    note.length = length;
    note.pitch = pitch;
    return note;
}

const Lines kOpened = {"0 1 C4 さくら[s a]*", "2 1 C#4 [k u]", "4 1 D4 [r a]", "6 1 D#4 "};

TEST_F(SongEditingTest, OpensWithNothingToTakeBack) {
    edit([](SongEditing& editing) {
        EXPECT_EQ(lines(editing), kOpened);
        EXPECT_FALSE(editing.canUndo());
        EXPECT_FALSE(editing.canRedo());
        EXPECT_EQ(refusal(editing, [&] { editing.undo(); }),
                  "expected an edit to take back, found none");
        EXPECT_EQ(refusal(editing, [&] { editing.redo(); }),
                  "expected an undone edit to do again, found none");
    });
}

TEST_F(SongEditingTest, TypesIntoSeveralNotesInOneEdit) {
    edit([](SongEditing& editing) {
        editing.typeAll({{0, 0, "hello"}, {0, 3, "love"}});
        const Lines typed = {"0 1 C4 hello[hh ah]*", "2 1 C#4 [l ow]", "4 1 D4 [r a]",
                             "6 1 D#4 love[l ah v]*"};
        EXPECT_EQ(lines(editing), typed);
        editing.undo();
        EXPECT_EQ(lines(editing), kOpened);
        EXPECT_FALSE(editing.canUndo());
        editing.redo();
        EXPECT_EQ(lines(editing), typed);
        EXPECT_FALSE(editing.canRedo());
    });
}

TEST_F(SongEditingTest, TypesNothingWhenOneTextIsNoLine) {
    edit([](SongEditing& editing) {
        EXPECT_EQ(refusal(editing,
                          [&] {
                              editing.typeAll({{0, 0, "a"}, {0, 1, "\n"}});
                          }),
                  "expected a text of one line in UTF-8, found control characters or other bytes");
        editing.typeAll({});
        EXPECT_FALSE(editing.canUndo());
    });
}

TEST_F(SongEditingTest, MovesANoteWhereItStandsInOneEdit) {
    edit([](SongEditing& editing) {
        EXPECT_EQ(editing.move(0, 1, noteAt(1.5, 2, 72)), 1u);
        const Lines moved = {"0 1 C4 さくら[s a]*", "1.5 2 C5 [k u]", "4 1 D4 [r a]", "6 1 D#4 "};
        EXPECT_EQ(lines(editing), moved);
        editing.undo();
        EXPECT_EQ(lines(editing), kOpened);
        editing.redo();
        EXPECT_EQ(lines(editing), moved);
    });
}

TEST_F(SongEditingTest, MovesANoteInFrontOfAndBehindOthers) {
    edit([](SongEditing& editing) {
        EXPECT_EQ(editing.move(0, 0, noteAt(5, 1, 60)), 2u);
        const Lines behind = {"2 1 C#4 [k u]", "4 1 D4 [r a]", "5 1 C4 さくら[s a]*", "6 1 D#4 "};
        EXPECT_EQ(lines(editing), behind);
        EXPECT_EQ(editing.move(0, 3, noteAt(0, 2, 40)), 0u);
        EXPECT_EQ(lines(editing),
                  (Lines{"0 2 E2 ", "2 1 C#4 [k u]", "4 1 D4 [r a]", "5 1 C4 さくら[s a]*"}));
        editing.undo();
        EXPECT_EQ(lines(editing), behind);
        editing.undo();
        EXPECT_EQ(lines(editing), kOpened);
        editing.redo();
        EXPECT_EQ(lines(editing), behind);
    });
}

TEST_F(SongEditingTest, DividesOverTheNotesAsTheyStandAfterAMove) {
    edit([](SongEditing& editing) {
        editing.move(0, 0, noteAt(5, 1, 60));
        editing.type(0, 2, "hello");
        EXPECT_EQ(lines(editing), (Lines{"2 1 C#4 [k u]", "4 1 D4 [r a]", "5 1 C4 hello[hh ah]*",
                                         "6 1 D#4 [l ow]"}));
        editing.undo();
        editing.undo();
        EXPECT_EQ(lines(editing), kOpened);
    });
}

TEST_F(SongEditingTest, MovesANoteOverItsOwnTime) {
    edit([](SongEditing& editing) {
        EXPECT_EQ(editing.move(0, 1, noteAt(2.5, 1, 61)), 1u);
        EXPECT_EQ(lines(editing)[1], "2.5 1 C#4 [k u]");
    });
}

TEST_F(SongEditingTest, MakesNoEditOfAMoveToTheSamePlace) {
    edit([](SongEditing& editing) {
        EXPECT_EQ(editing.move(0, 1, noteAt(2, 1, 61)), 1u);
        EXPECT_FALSE(editing.canUndo());
    });
}

TEST_F(SongEditingTest, MovesNoNoteOntoAnother) {
    edit([](SongEditing& editing) {
        const auto refused = [&](std::size_t note, const SongNote& place) {
            return refusal(editing, [&] { editing.move(0, note, place); });
        };
        const std::string sentence =
            "expected a time at which no other note sounds, found one at which note ";
        EXPECT_EQ(refused(0, noteAt(0, 2.5, 60)), sentence + "2 does");
        EXPECT_EQ(refused(3, noteAt(0.5, 1, 60)), sentence + "1 does");
        EXPECT_EQ(refused(0, noteAt(6.5, 1, 60)), sentence + "4 does");
        EXPECT_EQ(refused(3, noteAt(4, 1, 60)), sentence + "3 does");
        EXPECT_EQ(refused(0, noteAt(0, 1, 128)), "expected a pitch from 0 to 127, found 128");
        EXPECT_EQ(refused(0, noteAt(-1, 1, 60)),
                  "expected a start from 0 to 1000000 quarter notes, found -1");
        EXPECT_EQ(refused(0, noteAt(0, 0, 60)),
                  "expected a length above 0 and up to 1000000 quarter notes, found 0");
    });
}

TEST_F(SongEditingTest, KeepsWhatWasTypedBesideWhatTheNotesCarry) {
    edit([](SongEditing& editing) {
        editing.type(0, 1, "la[l a,l i]lu");
        const auto typed = [&] {
            return Lines{editing.inEditor().typedLyric(0, 0), editing.inEditor().typedLyric(0, 1),
                         editing.inEditor().typedLyric(0, 2)};
        };
        EXPECT_EQ(typed(), (Lines{"さくら", "la[l a,l i]lu", ""}));
        EXPECT_EQ(editing.inEditor().song().tracks[0].notes[1].lyric, "la[l a]");
        EXPECT_EQ(editing.inEditor().typedSong().tracks[0].notes[1].lyric, "la[l a,l i]lu");
        editing.undo();
        EXPECT_EQ(typed(), (Lines{"さくら", "", ""}));
        editing.redo();
        EXPECT_EQ(typed(), (Lines{"さくら", "la[l a,l i]lu", ""}));
    });
}

TEST_F(SongEditingTest, TakesADivisionOfTheOpenedSongAsOneTypedBracket) {
    auto divided = song();
    divided.tracks[0].notes[0].lyric = "さくら[s a]";
    divided.tracks[0].notes[1].lyric = "[k u]";
    edit(divided, [](SongEditing& editing) {
        EXPECT_EQ(editing.inEditor().typedLyric(0, 0), "さくら[s a,k u]");
    });
}

TEST_F(SongEditingTest, KeepsWhereTheScoreBeginsSyllables) {
    const auto score = songFrom(scoreOfSyllables("Glo- _ _ ri- a"));
    edit(score, [](SongEditing& editing) {
        const auto syllables = [&] {
            return wysim::words::wordsOf(editing.inEditor().typedSong())[0].notesOfSyllables;
        };
        EXPECT_EQ(syllables(), (std::vector<std::size_t>{3, 1, 1}));
        editing.type(0, 0, "Gloria");
        editing.remove(0, 1);
        EXPECT_EQ(syllables(), (std::vector<std::size_t>{2, 1, 1}));
    });
}

class MarksInEditing : public SongEditingTest {
protected:
    // The song of the suite with marks at its second, third and fourth note.
    static void editMarked(const std::function<void(SongEditing&)>& work) {
        auto marked = song();
        auto& notes = marked.tracks[0].notes;
        notes[1].marks.isSlurred = true;
        notes[2].marks.isBeamed = true;
        notes[3].marks.endsPhrase = true;
        edit(marked, work);
    }

    static std::string marks(const SongEditing& editing) {
        const auto& inEditor = editing.inEditor();
        EXPECT_EQ(marksOf(inEditor.typedSong()), marksOf(inEditor.song()));
        return marksOf(inEditor.song());
    }
};

constexpr auto kMarksAsOpened = "C4 ~C#4 =D4 D#4,";

TEST_F(MarksInEditing, AreThoseOfTheOpenedSong) {
    editMarked([](SongEditing& editing) { EXPECT_EQ(marks(editing), kMarksAsOpened); });
}

TEST_F(MarksInEditing, StayWhenALyricIsTyped) {
    editMarked([](SongEditing& editing) {
        editing.type(0, 1, "hello");
        EXPECT_EQ(marks(editing), kMarksAsOpened);
        editing.undo();
        EXPECT_EQ(marks(editing), kMarksAsOpened);
        editing.redo();
        EXPECT_EQ(marks(editing), kMarksAsOpened);
    });
}

TEST_F(MarksInEditing, GoWithANoteThatIsMoved) {
    editMarked([](SongEditing& editing) {
        editing.move(0, 1, noteAt(8, 1, 72));
        EXPECT_EQ(marks(editing), "C4 =D4 D#4, ~C5");
        editing.undo();
        EXPECT_EQ(marks(editing), kMarksAsOpened);
        editing.redo();
        EXPECT_EQ(marks(editing), "C4 =D4 D#4, ~C5");
    });
}

TEST_F(MarksInEditing, ComeBackWithANoteThatWasDeleted) {
    editMarked([](SongEditing& editing) {
        editing.remove(0, 3);
        editing.remove(0, 1);
        EXPECT_EQ(marks(editing), "C4 =D4");
        editing.undo();
        editing.undo();
        EXPECT_EQ(marks(editing), kMarksAsOpened);
        editing.redo();
        EXPECT_EQ(marks(editing), "C4 ~C#4 =D4");
    });
}

TEST_F(MarksInEditing, AreNotThereOfANoteThatIsAdded) {
    editMarked([](SongEditing& editing) {
        auto note = noteAt(3, 1, 72);
        note.marks = {true, true, true};
        editing.add(0, note);
        EXPECT_EQ(marks(editing), "C4 ~C#4 C5 =D4 D#4,");
    });
}

} // namespace

} // namespace wybeta::tests
