// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/ExtensionInstance.h"
#include "tests/faults/Subject.h"
#include "tracks/TrackTable.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

#include <memory>
#include <optional>

namespace wybeta::tests {

namespace {

class LinkedSubject : public Subject {
public:
    const simulator::ExtensionInstance& extension() const override { return extension_; }

    bool showsTable() const override { return true; }

    std::optional<SeenTracks> table() const override {
        const auto* const table = tracks::currentTrackTable();
        if (table == nullptr) {
            return std::nullopt;
        }
        SeenTracks tracks;
        for (const auto& [track, entry] : *table) {
            auto& notes = tracks[track];
            for (const auto& record : entry.notes->records) {
                notes.push_back({record.event, record.start, record.length, record.value,
                                 record.lyrics, record.phoneme});
            }
        }
        return tracks;
    }

private:
    const simulator::ExtensionInstance extension_{*Steinberg::owned(GetPluginFactory())};
};

} // namespace

std::unique_ptr<Subject> makeSubject() {
    return std::make_unique<LinkedSubject>();
}

} // namespace wybeta::tests
