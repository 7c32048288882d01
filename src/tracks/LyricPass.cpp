// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/LyricPass.h"

#include "dictionary/PronunciationDictionary.h"
#include "host/ChildCursor.h"
#include "host/IProjectEvent.h"
#include "host/Query.h"
#include "lyrics/LyricConversion.h"
#include "tracks/EventIndex.h"
#include "tracks/NoteReader.h"

#include "pluginterfaces/base/smartpointer.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace wybeta::lyrics {

namespace {

using host::NoteRecord;
using host::NoteRecords;
using Steinberg::IPtr;

// The texts of one typed lyric, handed out note by note.
class Spreading {
public:
    void start(NoteLyricList noteLyrics) {
        noteLyrics_ = std::move(noteLyrics);
        next_ = 0;
    }
    void finish() { next_ = noteLyrics_.size(); }
    bool isOn() const { return next_ < noteLyrics_.size(); }
    std::string takeNext() { return std::move(noteLyrics_[next_++]); }

private:
    NoteLyricList noteLyrics_;
    std::size_t next_ = 0;
};

// Writes a list of records over another one, so that the memory of the records and of their texts
// is used again.
class RecordsWriter {
public:
    explicit RecordsWriter(NoteRecords& records) : records_(records) {}

    // The place of the next record, with what it held before.
    NoteRecord& next() {
        if (count_ == records_.size()) {
            records_.emplace_back();
        }
        return records_[count_];
    }
    // Takes the record in the next place into the list.
    void keep() { ++count_; }
    // Drops what is left of the old list.
    void finish(bool areDistinct) {
        records_.resize(count_);
        records_.areDistinct = areDistinct;
    }

private:
    NoteRecords& records_;
    std::size_t count_ = 0;
};

// One pass over the notes of a track. The spreading goes on from part to part.
class LyricPass {
public:
    LyricPass(const NoteRecords& oldRecords, NoteRecords& newRecords, LyricsDivision& division)
        : oldRecords_(oldRecords), newRecords_(newRecords), division_(division) {}

    void readEvent(host::IPartEvent& event, Steinberg::FUnknown* timeContext) {
        NoteRecord& record = newRecords_.next();
        if (!host::readNoteEvent(event, timeContext, record)) {
            return;
        }
        newRecords_.keep();
        oldRecords_.follow(&event);
        if (event.isFlagged()) {
            readFlagged(event, record);
        } else if (spreading_.isOn()) {
            divideOnto(event, record, record.lyrics);
        }
    }

    // Returns whether a lyric was divided.
    bool finish() {
        newRecords_.finish(oldRecords_.hasFollowedDistinct());
        return hasDivided_;
    }

private:
    // A flagged note ends the spreading, and starts one of its own when its lyric was typed.
    void readFlagged(host::IPartEvent& event, NoteRecord& record) {
        spreading_.finish();
        // A note that the table does not know counts as one that was empty.
        const auto* const old = oldRecords_.find(&event);
        const std::string_view oldLyric = old != nullptr ? old->lyrics : std::string_view();
        if (record.lyrics == oldLyric) {
            return;
        }
        hasDivided_ = true;
        NoteLyricList noteLyrics;
        convertLyric(record.lyrics, noteLyrics, dictionary::pronunciationDictionary());
        spreading_.start(std::move(noteLyrics));
        divideOnto(event, record, oldLyric);
    }

    // The note just read takes the next text.
    void divideOnto(host::IPartEvent& event, NoteRecord& record, std::string_view oldLyric) {
        std::string newLyric = spreading_.takeNext();
        if (division_.notes.empty()) {
            division_.firstEvent = &event;
        }
        division_.oldLyrics.emplace_back(oldLyric);
        division_.newLyrics.push_back(newLyric);
        division_.notes.push_back(host::query<host::IProjectNode>(&event));
        record.lyrics = std::move(newLyric);
    }

    EventIndex oldRecords_;
    RecordsWriter newRecords_;
    LyricsDivision& division_;
    Spreading spreading_;
    bool hasDivided_ = false;
};

// Returns false when the part offers no events to go through.
bool readPart(host::IProjectNotificationArgument& argument, host::IProjectItem& part,
              LyricPass& pass) {
    host::Children events(host::query<host::IProjectNode>(&part));
    if (!events.exist()) {
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
                       const NoteRecords& oldRecords, NoteRecords& newRecords,
                       LyricsDivision& division) {
    newRecords.reserve(oldRecords.size());
    LyricPass pass(oldRecords, newRecords, division);
    host::Children children(&track);
    // A child that is not a part ends the pass, where the first reading of a track goes on.
    while (const auto child = children.next()) {
        if (!child->isKind("part") || !readPart(argument, *child, pass)) {
            break;
        }
    }
    return pass.finish() ? 1 : 0;
}

} // namespace wybeta::lyrics
