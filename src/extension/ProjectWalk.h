// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "host/IProjectTrack.h"
#include "tracks/NoteRecord.h"
#include "tracks/TrackTable.h"

#include "pluginterfaces/base/smartpointer.h"

#include <vector>

namespace wybeta {

// One walk over the project: brings the track table up to date with every target track that it
// meets and, within an edit, hands the edit steps that follow to the host.
class ProjectWalk {
public:
    // `retired` keeps the lists that the walk replaces, for the next walk to write over: a walk
    // then allocates nothing for notes that it has seen before. `argument` is what the host passed
    // to start the walk; null `context`: no steps are made. All have to outlive the walk. Both
    // tables may be changed by the host calling back meanwhile.
    ProjectWalk(TrackTable& table, TrackTable& retired,
                host::IProjectNotificationArgument& argument, host::IProjectEditContext* context)
        : table_(table), retired_(retired), argument_(argument), context_(context) {}

    // Walks depth first through the folders under the node, children in order.
    void run(Steinberg::IPtr<host::IProjectNode> node);

    // The target tracks that were met, in order.
    const std::vector<TrackKey>& visited() const { return visited_; }

private:
    void visitTrack(host::IProjectNode& node, host::IProjectTrack& track);
    void updateTrack(host::IProjectNode& node, TrackKey track, const host::NoteRecords& oldRecords);

    SharedNoteRecords takeRetired(TrackKey track);

    TrackTable& table_;
    TrackTable& retired_;
    host::IProjectNotificationArgument& argument_;
    host::IProjectEditContext* context_;
    std::vector<TrackKey> visited_;
};

} // namespace wybeta
