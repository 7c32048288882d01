// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ChildCursor.h"

#include <utility>

namespace wybeta::host {

namespace {

// An iterator that never comes to its end must not hang the editor. No host has so many nulls in a
// row, and no part so many notes.
constexpr int kMaxNullsInARow = 65'536;
constexpr std::size_t kMaxChildren = 4'194'304;

} // namespace

ChildCursor::ChildCursor(Steinberg::IPtr<IProjectNode> node)
    : node_(std::move(node)), iterator_(Steinberg::owned(node_ ? node_->children() : nullptr)),
      childrenLeft_(iterator_ ? kMaxChildren : 0) {}

Steinberg::IPtr<IProjectItem> ChildCursor::next() {
    for (int nulls = 0; childrenLeft_ != 0 && nulls < kMaxNullsInARow && !iterator_->atEnd();
         ++nulls) {
        if (auto* const child = iterator_->next()) {
            --childrenLeft_;
            return Steinberg::shared(child);
        }
    }
    return {};
}

} // namespace wybeta::host
