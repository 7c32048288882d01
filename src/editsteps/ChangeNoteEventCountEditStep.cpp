// SPDX-License-Identifier: GPL-3.0-or-later
#include "editsteps/ChangeNoteEventCountEditStep.h"

#include <utility>

namespace wybeta::editsteps {

using tracks::CountChange;

ChangeNoteEventCountEditStep::ChangeNoteEventCountEditStep(host::IProjectNode* trackNode,
                                                           tracks::TrackKey track,
                                                           tracks::NoteChanges changes,
                                                           CountChange kind)
    : EditStep(trackNode), changes_(std::move(changes)), kind_(kind), track_(track) {}

void PLUGIN_API ChangeNoteEventCountEditStep::undo() {
    apply(kind_ == CountChange::Insert ? CountChange::Remove : CountChange::Insert);
}

void PLUGIN_API ChangeNoteEventCountEditStep::redo() {
    apply(kind_);
}

void ChangeNoteEventCountEditStep::apply(CountChange kind) {
    if (!changes_.empty()) {
        const auto self = holdSelf();
        tracks::applyNoteCountChange(trackNode(), track_, changes_, kind);
    }
}

} // namespace wybeta::editsteps
