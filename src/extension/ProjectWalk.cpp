// SPDX-License-Identifier: GPL-3.0-or-later
#include "extension/ProjectWalk.h"

#include "editsteps/ChangeNoteEventCountEditStep.h"
#include "editsteps/LyricsDevideEditStep.h"
#include "extension/OpenFolders.h"
#include "extension/TargetTrack.h"
#include "host/ChildCursor.h"
#include "host/IProjectEvent.h"
#include "host/Query.h"
#include "tracks/LyricPass.h"
#include "tracks/LyricsDivision.h"
#include "tracks/NoteListDiff.h"
#include "tracks/NoteReader.h"

#include <utility>

namespace wybeta::extension {

namespace {

using host::IProjectNode;
using Steinberg::IPtr;
using tracks::CountChange;
using tracks::NoteList;
using tracks::NoteRecord;

// A tree that never ends must not hang the editor. No project has so many folders and tracks.
constexpr int kMaxNodes = 1'048'576;

// Reads all events of a track that is seen for the first time. An event that is not a note gets a
// record as well, an empty one that repeats the event of the last note before it; the lyric pass
// skips such events, so that the next walk sees a change of count.
NoteList readAllEvents(host::IProjectNotificationArgument& argument, IProjectNode& track) {
    NoteList list;
    host::ChildCursor children(&track);
    while (const auto child = children.next()) {
        if (!child->isKind("part")) {
            continue;
        }
        const auto timeContext = Steinberg::owned(argument.timeContext(child));
        host::ChildCursor events(host::query<IProjectNode>(child));
        while (const auto event = events.next()) {
            NoteRecord record;
            record.event = list.records.empty() ? nullptr : list.records.back().event;
            tracks::readNoteEvent(static_cast<host::IPartEvent&>(*event), timeContext, record);
            list.records.push_back(std::move(record));
        }
    }
    return list;
}

// The step for lists of different length.
IPtr<host::IEditStep> makeCountStep(IProjectNode& node, tracks::TrackKey track,
                                    const NoteList& oldRecords, const NoteList& newRecords) {
    const bool hasGrown = newRecords.records.size() > oldRecords.records.size();
    auto changes = hasGrown ? tracks::diffNoteLists(newRecords, oldRecords)
                            : tracks::diffNoteLists(oldRecords, newRecords);
    return Steinberg::owned<host::IEditStep>(new editsteps::ChangeNoteEventCountEditStep(
        &node, track, std::move(changes), hasGrown ? CountChange::Insert : CountChange::Remove));
}

} // namespace

void ProjectWalk::run(IPtr<IProjectNode> node) {
    OpenFolders folders;
    folders.open(std::move(node));
    for (int nodes = 0; !folders.empty() && nodes < kMaxNodes; ++nodes) {
        const auto child = folders.innermost().next();
        if (!child) {
            folders.closeInnermost();
            continue;
        }
        const bool isFolder = child->isKind("folder");
        auto childNode = host::query<IProjectNode>(child);
        if (!childNode) {
            continue;
        }
        if (isFolder) {
            folders.open(std::move(childNode));
        } else if (const auto track = findTargetTrack(*childNode)) {
            visitTrack(*childNode, *track);
        }
    }
}

void ProjectWalk::visitTrack(IProjectNode& node, host::IProjectTrack& track) {
    visited_.push_back(&track);
    const auto entry = table_.find(&track);
    if (entry != table_.end()) {
        updateTrack(node, &track, entry->second);
        return;
    }
    auto records = std::make_shared<NoteList>(readAllEvents(argument_, node));
    table_[&track].notes = std::move(records);
}

void ProjectWalk::updateTrack(IProjectNode& node, tracks::TrackKey track,
                              tracks::TrackEntry& entry) {
    // Held for the whole update: the host may call back, and an inner walk replace the entry.
    auto oldRecords = entry.notes;
    auto newRecords = std::exchange(entry.spare, {});
    // A walk around this one may still read the spare list.
    if (newRecords.use_count() != 1) {
        newRecords = std::make_shared<NoteList>();
    }
    tracks::LyricsDivision division;
    const int result =
        tracks::convertTrackLyrics(argument_, node, *oldRecords, *newRecords, division);

    // Made first, so that a failed allocation leaves the table unchanged.
    IPtr<host::IEditStep> step;
    if (context_ != nullptr && result == 1) {
        step = Steinberg::owned(new editsteps::LyricsDevideEditStep(&node, std::move(division)));
    } else if (context_ != nullptr && newRecords->records.size() != oldRecords->records.size()) {
        step = makeCountStep(node, track, *oldRecords, *newRecords);
    }
    table_[track] = {std::move(newRecords), std::move(oldRecords)};
    if (step) {
        context_->addEditStep(step);
    }
}

} // namespace wybeta::extension
