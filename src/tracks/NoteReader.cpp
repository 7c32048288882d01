// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/NoteReader.h"

#include "host/Query.h"
#include "text/Utf16.h"

#include "pluginterfaces/base/fvariant.h"

#include <string>

namespace wybeta::host {

namespace {

using Steinberg::FVariant;

// Receives an attribute from the host. The strings in it are the host's, from the host's heap, and
// are never freed here, whatever the owner bit says.
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

void readText(IProjectNoteEvent& note, Steinberg::FIDString key, std::string& text) {
    ReceivedAttribute attribute;
    const bool isThere = note.getAttribute(key, attribute.receiver()) == Steinberg::kResultOk;
    utf8FromUtf16(isThere ? attribute.utf16() : nullptr, text);
}

} // namespace

bool readNoteEvent(IPartEvent& event, Steinberg::FUnknown* timeContext, NoteRecord& record) {
    const auto projectEvent = query<IProjectEvent>(&event);
    const auto note = query<IProjectNoteEvent>(&event);
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

} // namespace wybeta::host
