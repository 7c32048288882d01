// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/NoteReader.h"

#include "host/Query.h"
#include "text/Utf16.h"

#include "pluginterfaces/base/fvariant.h"

#include <string>

namespace wybeta::tracks {

namespace {

using Steinberg::FVariant;

// Receives an attribute from the host. A string in it is never freed here, even if the host marks
// it as its receiver's own: the host allocated it on another heap.
class ReceivedAttribute {
public:
    ReceivedAttribute() = default;
    ReceivedAttribute(const ReceivedAttribute&) = delete;
    ReceivedAttribute& operator=(const ReceivedAttribute&) = delete;

    ~ReceivedAttribute() {
        if (value_.isString()) {
            value_.setOwner(false);
        }
    }

    FVariant* receiver() { return &value_; }

    // Null when the attribute is not a UTF-16 string.
    const char16_t* utf16() const { return value_.getString16(); }

private:
    FVariant value_;
};

void readText(host::IProjectNoteEvent& note, Steinberg::FIDString key, std::string& text) {
    ReceivedAttribute attribute;
    const bool isThere = note.getAttribute(key, attribute.receiver()) == Steinberg::kResultOk;
    text::utf8FromUtf16(isThere ? attribute.utf16() : nullptr, text);
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
