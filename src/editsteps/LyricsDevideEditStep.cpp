// SPDX-License-Identifier: GPL-3.0-or-later
#include "editsteps/LyricsDevideEditStep.h"

#include "host/AttributeValue.h"
#include "host/IProjectEvent.h"
#include "host/Query.h"
#include "text/Utf16.h"
#include "tracks/TrackTable.h"

#include <cstddef>
#include <utility>

namespace wybeta::editsteps {

using Steinberg::kResultOk;
using Steinberg::tresult;

namespace {

// A text that the host is given. It frees nothing, not even an object that the host puts in its
// place.
struct TextAttribute : host::AttributeValue {
    TextAttribute() = default;
    ~TextAttribute() { setOwner(false); }
    TextAttribute(const TextAttribute&) = delete;
    TextAttribute& operator=(const TextAttribute&) = delete;
};

} // namespace

LyricsDevideEditStep::LyricsDevideEditStep(host::IProjectNode* trackNode,
                                           tracks::LyricsDivision division)
    : EditStep(trackNode), division_(std::move(division)) {}

// A note may call the step while it is released, so the step has no notes by then.
LyricsDevideEditStep::~LyricsDevideEditStep() {
    const auto division = std::exchange(division_, {});
}

tresult PLUGIN_API LyricsDevideEditStep::execute() {
    const auto self = holdSelf();
    applyLyrics(division_.newLyrics);
    return kResultOk;
}

void PLUGIN_API LyricsDevideEditStep::undo() {
    applyToNotesAndTable(division_.oldLyrics);
}

void PLUGIN_API LyricsDevideEditStep::redo() {
    applyToNotesAndTable(division_.newLyrics);
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
    std::u16string utf16;
    for (std::size_t i = 0; i < division_.notes.size(); ++i) {
        text::utf16FromUtf8(texts[i], utf16);
        TextAttribute value;
        value.setString16(utf16.c_str());
        if (const auto note = host::query<host::IProjectNoteEvent>(division_.notes[i])) {
            note->setAttribute("lyrics", &value, 0, 0);
        }
    }
}

void LyricsDevideEditStep::applyToNotesAndTable(const std::vector<std::string>& texts) {
    const auto self = holdSelf();
    applyLyrics(texts);
    auto* const table = tracks::currentTrackTable();
    if (table != nullptr && !division_.notes.empty() && division_.notes.front()) {
        tracks::syncTrackTableLyrics(*table, division_.firstEvent, texts);
    }
}

} // namespace wybeta::editsteps
