// SPDX-License-Identifier: GPL-3.0-or-later
#include "editsteps/LyricsDevideEditStep.h"

#include "editsteps/TrackTableUpkeep.h"
#include "host/IProjectEvent.h"
#include "host/Query.h"

#include <utf8cpp/utf8.h>

#include <iterator>
#include <string>
#include <string_view>
#include <utility>

namespace wybeta::editsteps {

namespace {

using Steinberg::FVariant;
using Steinberg::kResultOk;
using Steinberg::tresult;

// A text as the host takes it. The text stays here: it must not be freed by the variant, even if
// the host marks it as the variant's own.
class TextAttribute {
public:
    // Takes the UTF-8 text up to its first zero byte.
    explicit TextAttribute(const std::string& utf8) {
        const std::string_view text = utf8.c_str();
        utf8::utf8to16(text.begin(), text.end(), std::back_inserter(text_));
        value_.setString16(text_.c_str());
    }
    ~TextAttribute() { value_.setOwner(false); }
    TextAttribute(const TextAttribute&) = delete;
    TextAttribute& operator=(const TextAttribute&) = delete;

    FVariant* value() { return &value_; }

private:
    std::u16string text_;
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
        if (collector != nullptr && host::query<host::IProjectNoteEvent>(note)) {
            collector->addObject(note);
        }
    }
    return kResultOk;
}

void LyricsDevideEditStep::applyLyrics(const std::vector<std::string>& texts) const {
    for (std::size_t i = 0; i < division_.notes.size(); ++i) {
        TextAttribute text(texts[i]);
        if (const auto note = host::query<host::IProjectNoteEvent>(division_.notes[i])) {
            note->setAttribute("lyrics", text.value(), 0, 0);
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
