// SPDX-License-Identifier: GPL-3.0-or-later
//
// The notes of a track in the simulated editor.
#pragma once

#include "simulator/Event.h"
#include "simulator/ProjectTree.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::tests {

using Lyrics = std::vector<std::string>;

// The first part of a track.
inline simulator::Part& partOf(const simulator::TreeNode& track) {
    return dynamic_cast<simulator::Part&>(*track.items().at(0));
}

// The events of all parts in order, without the gaps.
inline std::vector<simulator::Event*> eventsOf(const simulator::TreeNode& track) {
    std::vector<simulator::Event*> events;
    for (const auto& child : track.items()) {
        const auto* const part = dynamic_cast<const simulator::Part*>(child.get());
        if (part == nullptr) {
            continue;
        }
        for (const auto& item : part->items()) {
            if (item) {
                events.push_back(&dynamic_cast<simulator::Event&>(*item));
            }
        }
    }
    return events;
}

// The n-th event of a track, counted over all its parts.
inline simulator::Event& noteAt(const simulator::TreeNode& track, std::size_t index) {
    return *eventsOf(track).at(index);
}

inline Lyrics lyricsOf(const simulator::TreeNode& track) {
    Lyrics lyrics;
    for (const auto* const event : eventsOf(track)) {
        lyrics.push_back(event->lyric());
    }
    return lyrics;
}

// What a user does to a note, without the editor telling anyone.
inline void typeInto(simulator::Event& note, std::string_view lyric) {
    note.setLyric(lyric);
    note.flagged = true;
}

} // namespace wybeta::tests
