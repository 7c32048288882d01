// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/SongInEditor.h"

#include "simulator/Track.h"

#include <utility>

namespace wybeta::wysim::session {

namespace {

simulator::Handle<simulator::Part> makePart(const simulator::SharedState& state,
                                            const song::SongTrack& track,
                                            std::vector<simulator::Change>& typing) {
    auto part = simulator::makeHandle<simulator::Part>(state);
    for (const auto& note : track.notes) {
        const auto event = makeNote(state, note);
        if (note.typed) {
            typing.push_back(simulator::typingChange(*event, note.lyric));
        } else {
            event->setLyric(note.lyric);
        }
        part->add(event);
    }
    return part;
}

} // namespace

simulator::Handle<simulator::Event> makeNote(const simulator::SharedState& state,
                                             const song::SongNote& note) {
    auto event = simulator::makeHandle<simulator::Event>(state);
    event->startInPart = note.start;
    event->duration = note.length;
    event->pitch = note.pitch;
    return event;
}

SongInEditor::SongInEditor(simulator::Editor& editor, const song::Song& song) {
    frame_.title = song.title;
    frame_.time = song.time;
    frame_.pickup = song.pickup;
    std::vector<simulator::Change> typing;
    for (const auto& songTrack : song.tracks) {
        frame_.tracks.push_back({songTrack.name, {}});
        parts_.push_back(makePart(editor.state(), songTrack, typing));
        const auto track = simulator::makeVoiceTrack(editor.state());
        track->add(parts_.back());
        editor.project().add(track);
    }
    // The extension divides only what is typed after it has seen the tracks.
    editor.notify();
    if (!typing.empty()) {
        editor.edit(std::move(typing));
    }
}

simulator::Event& SongInEditor::note(std::size_t track, std::size_t index) const {
    return dynamic_cast<simulator::Event&>(*parts_[track]->items().at(index));
}

song::SongNote SongInEditor::songNote(std::size_t track, std::size_t index) const {
    const auto& event = note(track, index);
    return {event.startInPart, event.duration, event.pitch, event.lyric(), event.flagged};
}

song::Song SongInEditor::song() const {
    song::Song song = frame_;
    for (std::size_t track = 0; track < countTracks(); ++track) {
        for (std::size_t index = 0; index < countNotes(track); ++index) {
            song.tracks[track].notes.push_back(songNote(track, index));
        }
    }
    return song;
}

} // namespace wybeta::wysim::session
