// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/SongInEditor.h"

#include "simulator/Track.h"

#include <utility>

namespace wybeta::simulator {

namespace {

Handle<Part> makePart(const SharedState& state, const SongTrack& track,
                      std::vector<Change>& typing) {
    auto part = make<Part>(state);
    for (const auto& note : track.notes) {
        const auto event = makeNote(state, note);
        if (note.typed) {
            typing.push_back(typingChange(*event, note.lyric));
        } else {
            event->setLyric(note.lyric);
        }
        part->add(event);
    }
    return part;
}

} // namespace

Handle<Event> makeNote(const SharedState& state, const SongNote& note) {
    auto event = make<Event>(state);
    event->startInPart = note.start;
    event->duration = note.length;
    event->number = note.pitch;
    return event;
}

OpenSong::OpenSong(Editor& editor, const Song& song) {
    frame_.title = song.title;
    frame_.time = song.time;
    frame_.pickup = song.pickup;
    std::vector<Change> typing;
    for (const auto& songTrack : song.tracks) {
        frame_.tracks.push_back({songTrack.name, {}});
        parts_.push_back(makePart(editor.state(), songTrack, typing));
        const auto track = makeVoiceTrack(editor.state());
        track->add(parts_.back());
        editor.project().add(track);
    }
    // The extension divides only what is typed after it has seen the tracks.
    editor.notify();
    if (!typing.empty()) {
        editor.edit(std::move(typing));
    }
}

Event& OpenSong::note(std::size_t track, std::size_t index) const {
    return dynamic_cast<Event&>(*parts_[track]->items().at(index));
}

SongNote OpenSong::songNote(std::size_t track, std::size_t index) const {
    const auto& event = note(track, index);
    return {event.startInPart, event.duration, event.number, event.lyric(), event.flagged};
}

Song OpenSong::song() const {
    Song song = frame_;
    for (std::size_t track = 0; track < countTracks(); ++track) {
        for (std::size_t index = 0; index < countNotes(track); ++index) {
            song.tracks[track].notes.push_back(songNote(track, index));
        }
    }
    return song;
}

} // namespace wybeta::simulator
