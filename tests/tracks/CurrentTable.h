// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "extension/WyBetaExtension.h"
#include "simulator/HostObject.h"
#include "tests/SimulatedHost.h"
#include "tracks/NoteRecord.h"
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

    static TrackTable& table() { return *currentTrackTable(); }

    static host::NoteRecords& put(TrackKey track, host::NoteRecords records) {
        auto& entry = table()[track];
        entry = std::make_shared<host::NoteRecords>(std::move(records));
        return *entry;
    }

    const simulator::SharedState state = std::make_shared<simulator::HostState>();
    const SimulatedHost host{state};
    const Steinberg::IPtr<WyBetaExtension> extension = Steinberg::owned(new WyBetaExtension);
};

} // namespace wybeta::tests
