// SPDX-License-Identifier: GPL-3.0-or-later
#include "editsteps/LyricsDevideEditStep.h"

#include "host/IProjectEvent.h"
#include "host/Query.h"
#include "tracks/TrackTable.h"
#include "tracks/TrackTableUpkeep.h"

#include "pluginterfaces/base/fvariant.h"

#include <utf8cpp/utf8.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <utility>

namespace wybeta::editsteps {

namespace {

using Steinberg::FVariant;
using Steinberg::kResultOk;
using Steinberg::tresult;

bool isAscii(char byte) {
    return byte != 0 && static_cast<unsigned char>(byte) < 0x80;
}

// Texts as the host takes them, one after the other in the same memory. The memory stays here: it
// must not be freed by the variant, even if the host marks it as the variant's own.
class TextAttribute {
public:
    TextAttribute() = default;
    ~TextAttribute() { value_.setOwner(false); }
    TextAttribute(const TextAttribute&) = delete;
    TextAttribute& operator=(const TextAttribute&) = delete;

    // Takes the UTF-8 text up to its first zero byte.
    FVariant* set(const std::string& utf8) {
        if (utf16_.size() <= utf8.size()) {
            utf16_.resize(utf8.size() + 1);
        }
        // Phonemes are ASCII, which needs no decoding.
        auto utf16 = utf16_.begin();
        const char* rest = utf8.c_str();
        while (isAscii(*rest)) {
            *utf16++ = static_cast<unsigned char>(*rest++);
        }
        *utf8::utf8to16(rest, rest + std::strlen(rest), utf16) = 0;
        value_.setOwner(false);
        value_.setString16(utf16_.data());
        return &value_;
    }

private:
    std::vector<char16_t> utf16_;
    FVariant value_;
};

} // namespace

LyricsDevideEditStep::LyricsDevideEditStep(host::IProjectNode* trackNode,
                                           lyrics::LyricsDivision division)
    : EditStep(trackNode), division_(std::move(division)) {}

tresult PLUGIN_API LyricsDevideEditStep::execute() {
    const auto self = holdSelf();
    applyLyrics(division_.newLyrics);
    return kResultOk;
}

void PLUGIN_API LyricsDevideEditStep::undo() {
    const auto self = holdSelf();
    applyLyrics(division_.oldLyrics);
    syncTable(division_.oldLyrics);
}

void PLUGIN_API LyricsDevideEditStep::redo() {
    const auto self = holdSelf();
    applyLyrics(division_.newLyrics);
    syncTable(division_.newLyrics);
}

tresult PLUGIN_API
LyricsDevideEditStep::reportChangedObjects(host::IEditObjectCollector* collector) {
    const auto self = holdSelf();
    for (const auto& note : division_.notes) {
        if (collector != nullptr && note != nullptr) {
            collector->addObject(note);
        }
    }
    return kResultOk;
}

void LyricsDevideEditStep::applyLyrics(const std::vector<std::string>& texts) const {
    TextAttribute text;
    for (std::size_t i = 0; i < division_.notes.size(); ++i) {
        FVariant* const value = text.set(texts[i]);
        if (const auto note = host::query<host::IProjectNoteEvent>(division_.notes[i])) {
            note->setAttribute("lyrics", value, 0, 0);
        }
    }
}

void LyricsDevideEditStep::syncTable(const std::vector<std::string>& texts) const {
    TrackTable* const table = currentTrackTable();
    if (table != nullptr && !division_.notes.empty() && division_.notes.front()) {
        syncTrackTableLyrics(*table, division_.firstEvent, texts);
    }
}

} // namespace wybeta::editsteps
