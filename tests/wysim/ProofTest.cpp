// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Proof.h"

#include "simulator/Editor.h"
#include "tests/wysim/EditorFixture.h"
#include "wysim/words/LyricReader.h"

#include <gtest/gtest.h>

#include <string>

namespace wybeta::tests {

namespace {

using wysim::session::ModuleDisagrees;
using wysim::session::Proof;
using wysim::words::LyricReader;
using wysim::words::Syllables;

class ProofTest : public EditorTest<> {};

TEST_F(ProofTest, GivesWhatTheModuleSings) {
    useEditor([](simulator::Editor& editor) {
        Proof proof(editor);
        EXPECT_EQ(proof.sung("lo-ve さ", {"l ah", "- v", "s a"}),
                  (Syllables{"l ah", "- v", "s a"}));
        EXPECT_EQ(proof.sung("xyzzy", {}), Syllables{});
    });
}

TEST_F(ProofTest, TypesEachLyricOnce) {
    useEditor([](simulator::Editor& editor) {
        Proof proof(editor);
        for (const auto* const lyric : {"love", "go", "love"}) {
            proof.sung(lyric, LyricReader().syllablesOf(lyric));
        }
        EXPECT_EQ(proof.typedLyrics(), 2u);
    });
}

TEST_F(ProofTest, NamesBothWhenTheModuleSingsSomethingElse) {
    useEditor([](simulator::Editor& editor) {
        Proof proof(editor);
        for (int times = 0; times < 2; ++times) {
            try {
                proof.sung("hello", {"hh ah"});
                FAIL();
            } catch (const ModuleDisagrees& error) {
                EXPECT_EQ(std::string(error.what()),
                          "internal error: expected the module to sing \"hello\" as [hh ah], found "
                          "[hh ah] [l ow]; the module may be of another version");
            }
        }
        EXPECT_THROW(proof.prover()("love", {}), ModuleDisagrees);
    });
}

} // namespace

} // namespace wybeta::tests
