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
        const auto* const address = folder.get();
        if (addresses_.insert(address).second) {
            folders_.push_back({address, host::ChildCursor(std::move(folder))});
        }
    }

    host::ChildCursor& innermost() { return folders_.back().children; }

    void closeInnermost() {
        addresses_.erase(folders_.back().address);
        folders_.pop_back();
    }

private:
    struct Folder {
        const host::IProjectNode* address;
        host::ChildCursor children;
    };

    std::vector<Folder> folders_;
    std::unordered_set<const host::IProjectNode*> addresses_;
};

} // namespace wybeta::extension
