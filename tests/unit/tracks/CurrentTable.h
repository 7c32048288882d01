// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "extension/WyBetaExtension.h"
#include "simulator/HostObject.h"
#include "tests/SimulatedHost.h"
#include "tracks/NoteList.h"
#include "tracks/TrackTable.h"

#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace wybeta::tests {

// Has a current extension, whose track table a test fills as it likes.
class CurrentTable : public testing::Test {
protected:
    CurrentTable() { extension->initialize(host.context()); }

    void TearDown() override {
        terminate();
        EXPECT_TRUE(state->ledger.isBalanced()) << state->ledger.report();
    }

    void terminate() { extension->terminate(); }

    static tracks::TrackTable& table() { return *tracks::currentTrackTable(); }

    static tracks::NoteList& put(tracks::TrackKey track, tracks::NoteList records) {
        auto& entry = table()[track];
        entry.notes = std::make_shared<tracks::NoteList>(std::move(records));
        return *entry.notes;
    }

    const simulator::SharedState state = std::make_shared<simulator::HostState>();
    const SimulatedHost host{state};
    const Steinberg::IPtr<extension::WyBetaExtension> extension =
        Steinberg::owned(new wybeta::extension::WyBetaExtension);
};

} // namespace wybeta::tests
