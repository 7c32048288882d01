// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editsteps/EditStep.h"
#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "tracks/NoteListDiff.h"
#include "tracks/TrackTable.h"

namespace wybeta::editsteps {

// Keeps the track table in line with the host's history after the user added or deleted notes.
// Writes nothing to the host, and holds no note: their addresses are identities only.
class ChangeNoteEventCountEditStep final : public EditStep {
public:
    // `track` is the key under which the table knows the track; `kind` is what the user did.
    ChangeNoteEventCountEditStep(host::IProjectNode* trackNode, tracks::TrackKey track,
                                 tracks::NoteChanges changes, tracks::CountChange kind);

    // The walk that made the step has put the new list into the table already.
    Steinberg::tresult PLUGIN_API execute() override { return Steinberg::kResultOk; }
    void PLUGIN_API undo() override;
    void PLUGIN_API redo() override;
    Steinberg::tresult PLUGIN_API
    reportChangedObjects(host::IEditObjectCollector* /*collector*/) override {
        return Steinberg::kResultOk;
    }

private:
    void apply(tracks::CountChange kind);

    tracks::NoteChanges changes_;
    tracks::CountChange kind_;
    tracks::TrackKey track_;
};

} // namespace wybeta::editsteps
