// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/ChildCursor.h"
#include "host/IProjectNode.h"

#include "pluginterfaces/base/smartpointer.h"

#include <unordered_set>
#include <utility>
#include <vector>

namespace wybeta::extension {

// The folders that a walk is in, from the outermost to the innermost. Kept on the heap, since
// folders nest deeper than a call stack would allow.
class OpenFolders {
public:
    bool empty() const { return folders_.empty(); }

    // Enters a folder, unless it is open already: a folder may contain itself.
    void open(Steinberg::IPtr<host::IProjectNode> folder) {
        if (addresses_.insert(folder).second) {
            folders_.emplace_back(std::move(folder));
        }
    }

    host::ChildCursor& innermost() { return folders_.back(); }

    void closeInnermost() {
        addresses_.erase(folders_.back().node());
        folders_.pop_back();
    }

private:
    std::vector<host::ChildCursor> folders_;
    std::unordered_set<const host::IProjectNode*> addresses_;
};

} // namespace wybeta::extension
