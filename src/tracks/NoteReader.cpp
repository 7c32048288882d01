// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/NoteReader.h"

#include "host/AttributeValue.h"
#include "host/Query.h"
#include "text/Utf16.h"

#include <string>

namespace wybeta::tracks {

namespace {

void readText(host::IProjectNoteEvent& note, Steinberg::FIDString key, std::string& text) {
    host::AttributeValue value;
    const bool isThere = note.getAttribute(key, &value) == Steinberg::kResultOk;
    text::utf8FromUtf16(isThere ? value.getString16() : nullptr, text);
}

} // namespace

bool readNoteEvent(host::IPartEvent& event, Steinberg::FUnknown* timeContext, NoteRecord& record) {
    const auto projectEvent = host::query<host::IProjectEvent>(&event);
    const auto note = host::query<host::IProjectNoteEvent>(&event);
    if (!note) {
        return false;
    }
    record.start = event.start(timeContext);
    record.length = event.length(timeContext);
    record.value = projectEvent ? projectEvent->value() : 0;
    readText(*note, "lyrics", record.lyrics);
    readText(*note, "phoneme", record.phoneme);
    record.event = &event;
    return true;
}

} // namespace wybeta::tracks
