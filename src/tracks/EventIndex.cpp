// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/EventIndex.h"

namespace wybeta::lyrics {

namespace {

// At most half of the slots are taken, so that a search soon meets an empty one.
std::size_t slotCount(std::size_t records) {
    std::size_t count = 16;
    while (count < records * 2) {
        count *= 2;
    }
    return count;
}

// Spreads addresses, whose low bits are alike, over 64 bits.
std::uint64_t spread(const void* event) {
    const std::uint64_t hash = reinterpret_cast<std::uintptr_t>(event) * 0x9E3779B97F4A7C15u;
    return hash ^ (hash >> 32);
}

} // namespace

void EventIndex::follow(const void* event) {
    if (followed_ < records_.size() && records_[followed_].event == event) {
        last_ = &records_[followed_++];
    } else {
        last_ = nullptr;
        isInOrder_ = false;
    }
}

const host::NoteRecord* EventIndex::find(const void* event) {
    if (areDistinct_ && last_ != nullptr && last_->event == event) {
        return last_;
    }
    if (slots_.empty()) {
        build();
    }
    const auto position = slots_[slotOf(event)];
    return position != 0 ? &records_[position - 1] : nullptr;
}

void EventIndex::build() {
    slots_.resize(slotCount(records_.size()));
    areDistinct_ = true;
    for (std::size_t i = 0; i < records_.size(); ++i) {
        auto& slot = slots_[slotOf(records_[i].event)];
        if (slot == 0) {
            slot = static_cast<std::uint32_t>(i + 1);
        } else {
            areDistinct_ = false;
        }
    }
}

// The slot that holds the event, or the empty one where it would be put.
std::size_t EventIndex::slotOf(const void* event) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = spread(event) & mask;
    while (slots_[slot] != 0 && records_[slots_[slot] - 1].event != event) {
        slot = (slot + 1) & mask;
    }
    return slot;
}

} // namespace wybeta::lyrics
