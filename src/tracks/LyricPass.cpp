// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/LyricPass.h"

#include "dictionary/PronunciationDictionary.h"
#include "host/ChildCursor.h"
#include "host/IProjectEvent.h"
#include "host/Query.h"
#include "lyrics/LyricConversion.h"
#include "tracks/NoteListWriter.h"
#include "tracks/NoteReader.h"

#include "pluginterfaces/base/smartpointer.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace wybeta::tracks {

namespace {

// One pass over the notes of a track. Pending texts go on from part to part.
class LyricPass {
public:
    LyricPass(NoteListWriter& records, LyricsDivision& division)
        : records_(records), division_(division) {}

    void readEvent(host::IPartEvent& event, Steinberg::FUnknown* timeContext) {
        NoteRecord& record = records_.next();
        if (!readNoteEvent(event, timeContext, record)) {
            return;
        }
        records_.keep();
        if (event.isFlagged()) {
            readFlagged(event, record);
        } else if (!pending_.empty()) {
            takeNextText(event, record, record.lyrics);
        }
    }

private:
    // A flagged note ends the division before it, and starts its own when its lyric was typed.
    void readFlagged(host::IPartEvent& event, NoteRecord& record) {
        pending_.clear();
        // A note that the table does not know counts as one with an empty lyric.
        const auto* const old = records_.findPrevious();
        const std::string_view oldLyric = old != nullptr ? old->lyrics : std::string_view();
        if (record.lyrics == oldLyric) {
            return;
        }
        lyrics::convertLyric(record.lyrics, pending_, dictionary::pronunciationDictionary());
        std::reverse(pending_.begin(), pending_.end());
        takeNextText(event, record, oldLyric);
    }

    void takeNextText(host::IPartEvent& event, NoteRecord& record, std::string_view oldLyric) {
        if (division_.notes.empty()) {
            division_.firstEvent = &event;
        }
        division_.oldLyrics.emplace_back(oldLyric);
        division_.newLyrics.push_back(pending_.back());
        division_.notes.push_back(host::query<host::IProjectNode>(&event));
        record.lyrics = std::move(pending_.back());
        pending_.pop_back();
    }

    NoteListWriter& records_;
    LyricsDivision& division_;
    // The texts of one typed lyric that its notes have not taken yet, the next one last.
    lyrics::NoteLyricList pending_;
};

// Returns false when the part offers no iterator over its events.
bool readPart(host::IProjectNotificationArgument& argument, host::IProjectItem& part,
              LyricPass& pass) {
    host::ChildCursor events(host::query<host::IProjectNode>(&part));
    if (!events.hasIterator()) {
        return false;
    }
    const auto timeContext = Steinberg::owned(argument.timeContext(&part));
    while (const auto event = events.next()) {
        pass.readEvent(static_cast<host::IPartEvent&>(*event), timeContext);
    }
    return true;
}

} // namespace

int convertTrackLyrics(host::IProjectNotificationArgument& argument, host::IProjectNode& track,
                       const NoteList& oldRecords, NoteList& newRecords, LyricsDivision& division) {
    NoteListWriter records(newRecords, oldRecords);
    LyricPass pass(records, division);
    host::ChildCursor children(&track);
    // A child that is not a part ends the pass, where the first reading of a track goes on.
    while (const auto child = children.next()) {
        if (!child->isKind("part") || !readPart(argument, *child, pass)) {
            break;
        }
    }
    records.finish();
    return division.notes.empty() ? 0 : 1;
}

} // namespace wybeta::tracks
