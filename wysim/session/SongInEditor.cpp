// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/SongInEditor.h"

#include "simulator/Track.h"
#include "wysim/words/SongWords.h"

#include <utility>

namespace wybeta::wysim::session {

namespace {

// Attributes of the editor's own, which the extension does not ask for.
constexpr auto kTypedLyric = "typed lyric";
constexpr auto kBeginsSyllable = "begins a syllable";

std::string syllableMark(bool beginsSyllable) {
    return beginsSyllable ? "yes" : "";
}

// Sets an attribute of the editor's own.
simulator::Change setting(simulator::Event& note, const char* attribute, const std::string& text) {
    const simulator::Handle<simulator::Event> event(&note);
    return {[event, attribute, text] { event->setText(attribute, text); },
            [event, attribute, old = note.text(attribute)] { event->setText(attribute, old); }};
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

simulator::Change typing(simulator::Event& note, const std::string& lyric) {
    const simulator::Handle<simulator::Event> event(&note);
    auto change = simulator::typingChange(note, lyric);
    return {[event, lyric, apply = std::move(change.apply)] {
                apply();
                event->setText(kTypedLyric, lyric);
            },
            [event, old = note.text(kTypedLyric), revert = std::move(change.revert)] {
                revert();
                event->setText(kTypedLyric, old);
            }};
}

simulator::Change clearing(simulator::Event& note) {
    const simulator::Handle<simulator::Event> event(&note);
    return {[event] {
                event->setLyric("");
                event->flagged = false;
                event->setText(kTypedLyric, "");
            },
            [event, lyric = note.lyric(), flagged = note.flagged, typed = note.text(kTypedLyric)] {
                event->setLyric(lyric);
                event->flagged = flagged;
                event->setText(kTypedLyric, typed);
            }};
}

simulator::Change dividing(simulator::Event& note, bool beginsSyllable) {
    return setting(note, kBeginsSyllable, syllableMark(beginsSyllable));
}

SongInEditor::SongInEditor(simulator::Editor& editor, const song::Song& song) {
    frame_.title = song.title;
    frame_.time = song.time;
    frame_.pickup = song.pickup;
    std::vector<simulator::Change> typing;
    for (const auto& track : song.tracks) {
        addTrack(editor, track, typing);
    }
    for (const auto& word : words::wordsOf(song)) {
        setTypedLyric(word.track - 1, word.note - 1, word.text);
    }
    // The extension divides only what is typed after it has seen the tracks.
    editor.notify();
    if (!typing.empty()) {
        editor.edit(std::move(typing));
    }
}

void SongInEditor::addTrack(simulator::Editor& editor, const song::SongTrack& track,
                            std::vector<simulator::Change>& typing) {
    frame_.tracks.push_back({track.name, {}});
    const auto part = simulator::makeHandle<simulator::Part>(editor.state());
    for (const auto& note : track.notes) {
        const auto event = makeNote(editor.state(), note);
        if (note.typed) {
            typing.push_back(simulator::typingChange(*event, note.lyric));
        } else {
            event->setLyric(note.lyric);
        }
        event->setText(kBeginsSyllable, syllableMark(note.beginsSyllable));
        marks_[event.get()] = note.marks;
        part->add(event);
    }
    parts_.push_back(part);
    const auto voice = simulator::makeVoiceTrack(editor.state());
    voice->add(part);
    editor.project().add(voice);
}

simulator::Event& SongInEditor::note(std::size_t track, std::size_t index) const {
    return dynamic_cast<simulator::Event&>(*parts_[track]->items().at(index));
}

song::SongNote SongInEditor::songNote(std::size_t track, std::size_t index) const {
    const auto& event = note(track, index);
    const auto marks = marks_.find(&event);
    return {event.startInPart,
            event.duration,
            event.pitch,
            event.lyric(),
            event.flagged,
            !event.text(kBeginsSyllable).empty(),
            marks == marks_.end() ? song::NoteMarks() : marks->second};
}

song::Song SongInEditor::typedSong() const {
    auto typed = song();
    for (std::size_t track = 0; track < countTracks(); ++track) {
        for (std::size_t index = 0; index < countNotes(track); ++index) {
            typed.tracks[track].notes[index].lyric = typedLyric(track, index);
        }
    }
    return typed;
}

std::string SongInEditor::typedLyric(std::size_t track, std::size_t index) const {
    return note(track, index).text(kTypedLyric);
}

void SongInEditor::setTypedLyric(std::size_t track, std::size_t index,
                                 const std::string& lyric) const {
    note(track, index).setText(kTypedLyric, lyric);
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
