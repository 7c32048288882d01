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

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace wybeta::tracks {

namespace {

// The texts of one typed lyric that its notes have not taken yet.
class PendingTexts {
public:
    void start(lyrics::NoteLyricList texts) {
        texts_ = std::move(texts);
        next_ = 0;
    }
    void drop() { next_ = texts_.size(); }
    bool empty() const { return next_ == texts_.size(); }
    std::string takeNext() { return std::move(texts_[next_++]); }

private:
    lyrics::NoteLyricList texts_;
    std::size_t next_ = 0;
};

// One pass over the notes of a track. Pending texts go on from part to part.
class LyricPass {
public:
    LyricPass(const NoteList& oldRecords, NoteList& newRecords, LyricsDivision& division)
        : records_(newRecords, oldRecords), division_(division) {}

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

    // Returns whether a lyric was divided.
    bool finish() {
        records_.finish();
        return hasDivided_;
    }

private:
    // A flagged note ends the division before it, and starts its own when its lyric was typed.
    void readFlagged(host::IPartEvent& event, NoteRecord& record) {
        pending_.drop();
        // A note that the table does not know counts as one with an empty lyric.
        const auto* const old = records_.findPrevious();
        const std::string_view oldLyric = old != nullptr ? old->lyrics : std::string_view();
        if (record.lyrics == oldLyric) {
            return;
        }
        hasDivided_ = true;
        lyrics::NoteLyricList texts;
        lyrics::convertLyric(record.lyrics, texts, dictionary::pronunciationDictionary());
        pending_.start(std::move(texts));
        takeNextText(event, record, oldLyric);
    }

    void takeNextText(host::IPartEvent& event, NoteRecord& record, std::string_view oldLyric) {
        std::string newLyric = pending_.takeNext();
        if (division_.notes.empty()) {
            division_.firstEvent = &event;
        }
        division_.oldLyrics.emplace_back(oldLyric);
        division_.newLyrics.push_back(newLyric);
        division_.notes.push_back(host::query<host::IProjectNode>(&event));
        record.lyrics = std::move(newLyric);
    }

    NoteListWriter records_;
    LyricsDivision& division_;
    PendingTexts pending_;
    bool hasDivided_ = false;
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
    LyricPass pass(oldRecords, newRecords, division);
    host::ChildCursor children(&track);
    // A child that is not a part ends the pass, where the first reading of a track goes on.
    while (const auto child = children.next()) {
        if (!child->isKind("part") || !readPart(argument, *child, pass)) {
            break;
        }
    }
    return pass.finish() ? 1 : 0;
}

} // namespace wybeta::tracks
