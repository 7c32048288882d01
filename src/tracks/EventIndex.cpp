// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/EventIndex.h"

namespace wybeta::tracks {

void EventIndex::advance(const void* event) {
    if (next_ < list_.size() && list_[next_].event == event) {
        current_ = &list_[next_++];
    } else {
        current_ = nullptr;
        isInOrder_ = false;
    }
}

const NoteRecord* EventIndex::find(const void* event) {
    if (isListDistinct_ && current_ != nullptr && current_->event == event) {
        return current_;
    }
    if (firstRecords_.empty()) {
        build();
    }
    const auto found = firstRecords_.find(event);
    return found != firstRecords_.end() ? found->second : nullptr;
}

void EventIndex::build() {
    firstRecords_.reserve(list_.size());
    for (const auto& record : list_) {
        firstRecords_.emplace(record.event, &record);
    }
    isListDistinct_ = firstRecords_.size() == list_.size();
}

} // namespace wybeta::tracks
