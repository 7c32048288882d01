// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/SongChanges.h"

#include "wysim/words/Wording.h"

#include <unordered_map>

namespace wybeta::wysim::session {

namespace {

auto byEvent(const std::vector<PlacedNote>& notes) {
    std::unordered_map<const simulator::Event*, const PlacedNote*> index;
    for (const auto& note : notes) {
        index.emplace(note.event.get(), &note);
    }
    return index;
}

std::string nameOf(const PlacedNote& placed, const SongInEditor& song) {
    const auto note = "note " + std::to_string(placed.index + 1);
    return song.countTracks() == 1 ? note
                                   : "track " + std::to_string(placed.track + 1) + ", " + note;
}

} // namespace

std::vector<PlacedNote> placedNotes(const SongInEditor& song) {
    std::vector<PlacedNote> notes;
    for (std::size_t track = 0; track < song.countTracks(); ++track) {
        for (std::size_t index = 0; index < song.countNotes(track); ++index) {
            simulator::Event& event = song.note(track, index);
            notes.push_back(
                {simulator::Handle<simulator::Event>(&event), track, index, event.lyric()});
        }
    }
    return notes;
}

std::vector<std::string> changesSince(const std::vector<PlacedNote>& before,
                                      const SongInEditor& song) {
    const auto now = placedNotes(song);
    const auto old = byEvent(before);
    const auto present = byEvent(now);
    std::vector<std::string> lines;
    for (const auto& note : before) {
        if (present.count(note.event.get()) == 0) {
            lines.push_back(nameOf(note, song) + " is gone: " + words::inDoubleQuotes(note.lyric));
        }
    }
    for (const auto& note : now) {
        const auto found = old.find(note.event.get());
        if (found == old.end()) {
            lines.push_back(nameOf(note, song) + " is new: " + words::inDoubleQuotes(note.lyric));
        } else if (found->second->lyric != note.lyric) {
            lines.push_back(nameOf(note, song) + ": " +
                            words::inDoubleQuotes(found->second->lyric) + " -> " +
                            words::inDoubleQuotes(note.lyric));
        }
    }
    return lines;
}

} // namespace wybeta::wysim::session
