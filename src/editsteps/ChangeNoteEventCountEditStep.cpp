// SPDX-License-Identifier: GPL-3.0-or-later
#include "editsteps/ChangeNoteEventCountEditStep.h"

#include <utility>

namespace wybeta::editsteps {

using Steinberg::kResultOk;
using Steinberg::tresult;

ChangeNoteEventCountEditStep::ChangeNoteEventCountEditStep(host::IProjectNode* trackNode,
                                                           tracks::TrackKey track,
                                                           tracks::NoteChanges changes, Cause cause)
    : EditStep(trackNode), changes_(std::move(changes)), cause_(cause), track_(track) {}

// The walk that made the step has put the new list into the table already.
tresult PLUGIN_API ChangeNoteEventCountEditStep::execute() {
    return kResultOk;
}

void PLUGIN_API ChangeNoteEventCountEditStep::undo() {
    apply(cause_ == Cause::NotesRemoved ? tracks::CountChange::Insert
                                        : tracks::CountChange::Remove);
}

void PLUGIN_API ChangeNoteEventCountEditStep::redo() {
    apply(cause_ == Cause::NotesRemoved ? tracks::CountChange::Remove
                                        : tracks::CountChange::Insert);
}

tresult PLUGIN_API
ChangeNoteEventCountEditStep::reportChangedObjects(host::IEditObjectCollector* /*collector*/) {
    return kResultOk;
}

void ChangeNoteEventCountEditStep::apply(tracks::CountChange kind) {
    if (!changes_.empty()) {
        const auto self = holdSelf();
        tracks::applyNoteCountChange(trackNode(), track_, changes_, kind);
    }
}

} // namespace wybeta::editsteps
