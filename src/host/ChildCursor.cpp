// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ChildCursor.h"

#include <utility>

namespace wybeta::host {

namespace {

// An iterator that never says that it is at its end must not hang the editor. No host has this many
// gaps in a row.
constexpr int kMostGapsInARow = 65'536;

} // namespace

Children::Children(Steinberg::IPtr<IProjectNode> node)
    : node_(std::move(node)), iterator_(Steinberg::owned(node_ ? node_->children() : nullptr)) {}

Steinberg::IPtr<IProjectItem> Children::next() {
    for (int gaps = 0; iterator_ && gaps < kMostGapsInARow && !iterator_->atEnd(); ++gaps) {
        if (auto* const child = iterator_->next()) {
            return Steinberg::shared(child);
        }
    }
    return {};
}

} // namespace wybeta::host
