// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNode.h"

#include "pluginterfaces/base/smartpointer.h"

#include <cstddef>

namespace wybeta::host {

// Goes through the children of a node once, skipping the places where the iterator yields null.
// Holds the node and its iterator.
class ChildCursor {
public:
    // A null node has no children.
    explicit ChildCursor(Steinberg::IPtr<IProjectNode> node);

    const IProjectNode* node() const { return node_; }

    // Whether the host offered an iterator, even an empty one.
    bool hasIterator() const { return iterator_.get() != nullptr; }

    // The next child, null at the end. The reference keeps it alive if the host drops it meanwhile.
    // An iterator that never comes to its end is left after some millions of children.
    Steinberg::IPtr<IProjectItem> next();

private:
    Steinberg::IPtr<IProjectNode> node_;
    Steinberg::IPtr<IProjectNodeIterator> iterator_;
    std::size_t childrenLeft_;
};

} // namespace wybeta::host
