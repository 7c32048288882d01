// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "host/IProjectTrack.h"
#include "tracks/TrackTable.h"

#include "pluginterfaces/base/smartpointer.h"

#include <vector>

namespace wybeta::extension {

// One walk over the project: brings the track table up to date with every target track that it
// meets and, within an edit, hands the resulting edit steps to the host.
class ProjectWalk {
public:
    // `argument` is what the host passed to start the walk; with a null `context` no steps are
    // made. All must outlive the walk. The table may change during the walk when the host calls
    // back.
    ProjectWalk(tracks::TrackTable& table, host::IProjectNotificationArgument& argument,
                host::IProjectEditContext* context)
        : table_(table), argument_(argument), context_(context) {}

    // Walks depth first through the folders under the node, children in order. A folder that is
    // open already is not entered again.
    void run(Steinberg::IPtr<host::IProjectNode> node);

    // The target tracks that were met, in order.
    const std::vector<tracks::TrackKey>& visited() const { return visited_; }

private:
    void visitTrack(host::IProjectNode& node, host::IProjectTrack& track);
    void updateTrack(host::IProjectNode& node, tracks::TrackKey track, tracks::TrackEntry& entry);

    tracks::TrackTable& table_;
    host::IProjectNotificationArgument& argument_;
    host::IProjectEditContext* context_;
    std::vector<tracks::TrackKey> visited_;
};

} // namespace wybeta::extension
