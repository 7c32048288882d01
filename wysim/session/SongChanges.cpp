// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/SongChanges.h"

#include "wysim/words/Wording.h"

#include <unordered_map>

namespace wybeta::wysim::session {

namespace {

template <class Places>
auto byEvent(const Places& places) {
    std::unordered_map<const simulator::Event*, const typename Places::value_type*> index;
    for (const auto& place : places) {
        index.emplace(place.event.get(), &place);
    }
    return index;
}

} // namespace

SongChanges::SongChanges(const SongInEditor& song) : song_(song), before_(placesNow()) {}

std::vector<std::string> SongChanges::lines() const {
    const auto now = placesNow();
    const auto old = byEvent(before_);
    const auto present = byEvent(now);
    std::vector<std::string> lines;
    for (const auto& place : before_) {
        if (present.find(place.event.get()) == present.end()) {
            lines.push_back(nameOf(place) + " is gone: " + words::inDoubleQuotes(place.lyric));
        }
    }
    for (const auto& place : now) {
        const auto found = old.find(place.event.get());
        if (found == old.end()) {
            lines.push_back(nameOf(place) + " is new: " + words::inDoubleQuotes(place.lyric));
        } else if (found->second->lyric != place.lyric) {
            lines.push_back(nameOf(place) + ": " + words::inDoubleQuotes(found->second->lyric) +
                            " -> " + words::inDoubleQuotes(place.lyric));
        }
    }
    return lines;
}

SongChanges::Places SongChanges::placesNow() const {
    Places places;
    for (std::size_t track = 0; track < song_.countTracks(); ++track) {
        for (std::size_t index = 0; index < song_.countNotes(track); ++index) {
            simulator::Event& event = song_.note(track, index);
            places.push_back(
                {simulator::Handle<simulator::Event>(&event), track, index, event.lyric()});
        }
    }
    return places;
}

std::string SongChanges::nameOf(const Place& place) const {
    const auto note = "note " + std::to_string(place.index + 1);
    return song_.countTracks() == 1 ? note
                                    : "track " + std::to_string(place.track + 1) + ", " + note;
}

} // namespace wybeta::wysim::session
