// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/SongEditing.h"

#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "wysim/song/BadInput.h"

#include <utility>

namespace wybeta::wysim::session {

namespace {

using simulator::Change;
using simulator::Event;
using simulator::Handle;

// Where a note goes among the notes of a track other than `except`. Throws BadInput when one of
// them sounds at its time.
std::size_t placeFor(const song::SongNote& note, const SongInEditor& song, std::size_t track,
                     const Event* except = nullptr) {
    std::size_t place = 0;
    for (std::size_t i = 0; i < song.countNotes(track); ++i) {
        const auto& event = song.note(track, i);
        if (&event == except) {
            continue;
        }
        song::SongNote other;
        other.start = event.startInPart;
        other.length = event.duration;
        const bool isFirst = other.start < note.start;
        if (isFirst ? overlap(other, note) : overlap(note, other)) {
            throw song::BadInput::expectedFound("a time at which no other note sounds",
                                                "one at which note " + std::to_string(i + 1) +
                                                    " does");
        }
        place += isFirst ? 1 : 0;
    }
    return place;
}

Change placing(Event& note, const song::SongNote& place) {
    const Handle<Event> event(&note);
    const auto change = [event](double start, double length, int pitch) {
        return [event, start, length, pitch] {
            event->startInPart = start;
            event->duration = length;
            event->pitch = pitch;
        };
    };
    return {change(place.start, place.length, place.pitch),
            change(note.startInPart, note.duration, note.pitch)};
}

bool isThere(const Event& note, const song::SongNote& place) {
    return note.startInPart == place.start && note.duration == place.length &&
           note.pitch == place.pitch;
}

} // namespace

void SongEditing::type(std::size_t track, std::size_t note, const std::string& lyric) {
    typeAll({{track, note, lyric}});
}

void SongEditing::typeAll(const std::vector<TypedLyric>& lyrics) {
    std::vector<Change> changes;
    for (const auto& [track, note, text] : lyrics) {
        song::checkText(text);
        changes.push_back(typing(song_.note(track, note), text));
    }
    if (!changes.empty()) {
        edit(std::move(changes));
    }
}

void SongEditing::replaceLyrics(std::size_t track, const std::vector<LaidLyric>& lyrics) {
    std::vector<bool> begins(song_.countNotes(track));
    for (const auto& [note, text, notesOfSyllables] : lyrics) {
        song::checkText(text);
        auto place = note;
        for (const auto notes : notesOfSyllables) {
            begins[place] = true;
            place += notes;
        }
    }
    std::vector<Change> changes;
    for (std::size_t i = 0; i < begins.size(); ++i) {
        changes.push_back(clearing(song_.note(track, i)));
        changes.push_back(dividing(song_.note(track, i), begins[i]));
    }
    for (const auto& lyric : lyrics) {
        changes.push_back(typing(song_.note(track, lyric.note), lyric.text));
    }
    edit(std::move(changes));
}

std::size_t SongEditing::add(std::size_t track, const song::SongNote& note) {
    song::checkNote(note);
    const auto index = placeFor(note, song_, track);
    const auto event = makeNote(editor_.state(), note);
    std::vector<Change> changes = {simulator::insertion(song_.part(track), index, event)};
    if (!note.lyric.empty()) {
        changes.push_back(typing(*event, note.lyric));
    }
    edit(std::move(changes));
    return index;
}

std::size_t SongEditing::move(std::size_t track, std::size_t note, const song::SongNote& place) {
    song::checkNote(place);
    auto& event = song_.note(track, note);
    const auto index = placeFor(place, song_, track, &event);
    if (isThere(event, place)) {
        return note;
    }
    std::vector<Change> changes = {placing(event, place)};
    if (index != note) {
        changes.push_back(simulator::removal(song_.part(track), event));
        changes.push_back(
            simulator::insertion(song_.part(track), index, simulator::Handle<Event>(&event)));
    }
    edit(std::move(changes));
    return index;
}

void SongEditing::remove(std::size_t track, std::size_t note) {
    edit({simulator::removal(song_.part(track), song_.note(track, note))});
}

void SongEditing::undo() {
    if (!canUndo()) {
        throw song::BadInput::expectedFound("an edit to take back", "none");
    }
    editor_.undo();
    --edits_;
}

void SongEditing::redo() {
    if (!editor_.redo()) {
        throw song::BadInput::expectedFound("an undone edit to do again", "none");
    }
    ++edits_;
}

void SongEditing::edit(std::vector<Change> changes) {
    editor_.edit(std::move(changes));
    ++edits_;
}

} // namespace wybeta::wysim::session
