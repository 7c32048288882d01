// SPDX-License-Identifier: GPL-3.0-or-later
//
// Folders nest to any depth.
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "tests/SmallStackThread.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>

namespace wybeta::tests {
namespace {

using Depth = SessionTest;

constexpr std::size_t kStackBytes = std::size_t{1024} * 1024;
constexpr int kFolders = 100'000;

TEST_F(Depth, OfAHundredThousandFoldersWalksOnAStackOfOneMebibyte) {
    const auto track = makeTrack({{"", ""}});
    Handle<TreeItem> item = track;
    for (int i = 0; i < kFolders; ++i) {
        const auto folder = makeHandle<Folder>(state());
        folder->add(item);
        item = folder;
    }
    project().add(std::move(item));

    runOnStack(kStackBytes, [this, &track] {
        editor().notify();
        editor().type(noteAt(*track, 0), "かき");
    });
    EXPECT_EQ(lyricsOf(*track), (Lyrics{"かき[k a]", "[k i]"}));
}

} // namespace
} // namespace wybeta::tests
