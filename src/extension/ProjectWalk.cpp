// SPDX-License-Identifier: GPL-3.0-or-later
#include "extension/ProjectWalk.h"

#include "editsteps/ChangeNoteEventCountEditStep.h"
#include "editsteps/LyricsDevideEditStep.h"
#include "extension/TargetTrack.h"
#include "host/ChildCursor.h"
#include "host/IProjectEvent.h"
#include "host/Query.h"
#include "tracks/LyricPass.h"
#include "tracks/LyricsDivision.h"
#include "tracks/NoteListDiff.h"
#include "tracks/NoteReader.h"

#include <memory>
#include <utility>

namespace wybeta {

namespace {

using editsteps::ChangeNoteEventCountEditStep;
using editsteps::LyricsDevideEditStep;
using host::IProjectNode;
using host::NoteRecord;
using host::NoteRecords;
using Steinberg::IPtr;

// Clears everything but the event.
void clearForNextEvent(NoteRecord& record) {
    const void* const event = record.event;
    record = {};
    record.event = event;
}

// Reads all events of a track that is seen for the first time. An event that is not a note gets a
// record as well, an empty one that repeats the event of the last note before it; the lyric pass
// passes such events over, so that the next walk sees a change of count.
NoteRecords readAllEvents(host::IProjectNotificationArgument& argument, IProjectNode& track) {
    NoteRecords records;
    NoteRecord record;
    host::Children children(&track);
    while (const auto child = children.next()) {
        if (!child->isKind("part")) {
            continue;
        }
        const auto timeContext = Steinberg::owned(argument.timeContext(child));
        host::Children events(host::query<IProjectNode>(child));
        while (const auto event = events.next()) {
            clearForNextEvent(record);
            host::readNoteEvent(static_cast<host::IPartEvent&>(*event), timeContext, record);
            records.push_back(record);
        }
    }
    return records;
}

// The step for lists of different length.
IPtr<host::IEditStep> makeCountStep(IProjectNode& node, TrackKey track,
                                    const NoteRecords& oldRecords, const NoteRecords& newRecords) {
    using Cause = ChangeNoteEventCountEditStep::Cause;
    const bool hasGrown = newRecords.size() > oldRecords.size();
    auto changes = hasGrown ? editsteps::diffNoteLists(newRecords, oldRecords)
                            : editsteps::diffNoteLists(oldRecords, newRecords);
    return Steinberg::owned<host::IEditStep>(new ChangeNoteEventCountEditStep(
        &node, track, std::move(changes), hasGrown ? Cause::NotesAdded : Cause::NotesRemoved));
}

} // namespace

// The folders that are open are kept in a list and not on the stack: they nest to any depth.
void ProjectWalk::run(IPtr<IProjectNode> node) {
    std::vector<host::Children> open;
    open.emplace_back(std::move(node));
    while (!open.empty()) {
        const auto child = open.back().next();
        if (!child) {
            open.pop_back();
            continue;
        }
        const bool isFolder = child->isKind("folder");
        auto childNode = host::query<IProjectNode>(child);
        if (!childNode) {
            continue;
        }
        if (isFolder) {
            open.emplace_back(std::move(childNode));
        } else if (const auto track = findTargetTrack(*childNode)) {
            visitTrack(*childNode, *track);
        }
    }
}

void ProjectWalk::visitTrack(IProjectNode& node, host::IProjectTrack& track) {
    visited_.push_back(&track);
    const auto entry = table_.find(&track);
    if (entry == table_.end()) {
        auto records = std::make_shared<NoteRecords>(readAllEvents(argument_, node));
        table_.insert_or_assign(&track, std::move(records));
        return;
    }
    // Held for the whole update: the host may call back, and an inner walk replace the entry.
    auto oldRecords = entry->second;
    updateTrack(node, &track, *oldRecords);
    if (oldRecords.use_count() == 1) {
        retired_.insert_or_assign(&track, std::move(oldRecords));
    }
}

// A list to write the new records into: the one that the last walk retired, if no inner walk has
// it.
SharedNoteRecords ProjectWalk::takeRetired(TrackKey track) {
    auto& retired = retired_[track];
    return retired ? std::exchange(retired, {}) : std::make_shared<NoteRecords>();
}

void ProjectWalk::updateTrack(IProjectNode& node, TrackKey track, const NoteRecords& oldRecords) {
    auto newRecords = takeRetired(track);
    lyrics::LyricsDivision division;
    const int result =
        lyrics::convertTrackLyrics(argument_, node, oldRecords, *newRecords, division);

    // Made first, so that a failed allocation leaves the table as it was.
    IPtr<host::IEditStep> step;
    if (context_ != nullptr && result == 1) {
        step = Steinberg::owned(new LyricsDevideEditStep(&node, std::move(division)));
    } else if (context_ != nullptr && newRecords->size() != oldRecords.size()) {
        step = makeCountStep(node, track, oldRecords, *newRecords);
    }
    table_.insert_or_assign(track, std::move(newRecords));
    if (step) {
        context_->addEditStep(step);
    }
}

} // namespace wybeta
