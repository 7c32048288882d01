// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/ScratchTrack.h"

#include "simulator/Editor.h"
#include "tests/wysim/EditorFixture.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace wybeta::tests {

namespace {

using wysim::session::ScratchTrack;
using wysim::session::Syllables;

class ScratchTrackTest : public EditorTest<> {};

TEST_F(ScratchTrackTest, GivesThePhonemesOfEachSyllable) {
    useEditor([](simulator::Editor& editor) {
        ScratchTrack scratch(editor);
        EXPECT_EQ(scratch.divide("light- さ"), (Syllables{"l ay", "- t", "s a"}));
        EXPECT_EQ(scratch.divide("a[b[c, d]"), (Syllables{"c", "d"}));
        EXPECT_EQ(scratch.divide("la[]"), Syllables{""});
    });
}

TEST_F(ScratchTrackTest, GivesNothingForWhatIsNotSung) {
    useEditor([](simulator::Editor& editor) {
        ScratchTrack scratch(editor);
        for (const auto* const lyric : {"", " ", "xyzzy", "桜", "[", "]", "]["}) {
            EXPECT_EQ(scratch.divide(lyric), Syllables{}) << lyric;
        }
    });
}

TEST_F(ScratchTrackTest, KeepsNothingOfALyricForTheNext) {
    useEditor([](simulator::Editor& editor) {
        ScratchTrack scratch(editor);
        scratch.divide("さくら");
        EXPECT_EQ(scratch.divide("love"), Syllables{"l ah v"});
        EXPECT_EQ(scratch.divide("love"), Syllables{"l ah v"});
        EXPECT_FALSE(editor.canUndo());
    });
}

TEST_F(ScratchTrackTest, GrowsWithTheLyric) {
    useEditor([](simulator::Editor& editor) {
        ScratchTrack scratch(editor);
        std::string lyric;
        for (int i = 0; i < 64; ++i) {
            lyric += "か";
            if (i >= 62) {
                EXPECT_EQ(scratch.divide(lyric).size(), static_cast<std::size_t>(i) + 1);
            }
        }
        EXPECT_EQ(scratch.divide(lyric + lyric + lyric).size(), 192u);
    });
}

} // namespace

} // namespace wybeta::tests
