// SPDX-License-Identifier: GPL-3.0-or-later
#include "editsteps/LyricsDevideEditStep.h"
#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "simulator/CallInterceptor.h"
#include "simulator/EditContext.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/Track.h"
#include "tests/CallsOnRelease.h"
#include "tests/unit/tracks/CurrentTable.h"
#include "tracks/LyricsDivision.h"
#include "tracks/NoteList.h"

#include "pluginterfaces/base/fvariant.h"
#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>
#include <utf8cpp/utf8.h>

#include <string>
#include <utility>
#include <vector>

namespace wybeta::tests {
namespace {

using simulator::Event;
using simulator::Handle;
using simulator::makeHandle;
using Steinberg::IPtr;
using namespace std::string_literals;

using Lyrics = std::vector<std::string>;

// Keeps the variant for its own, as a host may that moves strings in and out of variants.
class KeepingNote : public Event {
public:
    using Event::Event;

    Steinberg::tresult PLUGIN_API setAttribute(Steinberg::FIDString key, Steinberg::FVariant* value,
                                               Steinberg::TPtrInt reserved1,
                                               Steinberg::TPtrInt reserved2) override {
        const auto result = Event::setAttribute(key, value, reserved1, reserved2);
        value->setOwner(true);
        return result;
    }
};

// Counts how often it is released.
class Released : public Steinberg::FUnknown {
public:
    virtual ~Released() = default;
    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID, void**) override {
        return Steinberg::kNoInterface;
    }
    Steinberg::uint32 PLUGIN_API addRef() override { return 1; }
    Steinberg::uint32 PLUGIN_API release() override { return static_cast<unsigned>(++times); }

    int times = 0;
};

// Puts an object of its own in place of the text.
class ReplacingNote : public Event {
public:
    using Event::Event;

    Steinberg::tresult PLUGIN_API setAttribute(Steinberg::FIDString, Steinberg::FVariant* value,
                                               Steinberg::TPtrInt, Steinberg::TPtrInt) override {
        value->setObject(object);
        value->setOwner(true);
        return Steinberg::kResultOk;
    }

    Released* object = nullptr;
};

class LyricsDevideEditStep : public CurrentTable {
protected:
    // A step over notes that carry the old texts.
    IPtr<host::IEditStep> makeStep(Lyrics newLyrics, Lyrics oldLyrics) {
        for (const auto& lyric : oldLyrics) {
            notes.push_back(makeHandle<Event>(state));
            notes.back()->setLyric(utf8::is_valid(lyric) ? lyric : "");
        }
        return makeStepOfNotes(std::move(newLyrics), std::move(oldLyrics));
    }

    // The same over the notes that there are; null in the list is a null note.
    IPtr<host::IEditStep> makeStepOfNotes(Lyrics newLyrics, Lyrics oldLyrics) {
        tracks::LyricsDivision division;
        tracks::NoteList records;
        for (const auto& note : notes) {
            auto* const node = note ? note->node() : nullptr;
            division.notes.push_back(Steinberg::shared(node));
            tracks::NoteRecord record;
            record.lyrics = "recorded";
            record.event = note ? note->ownInterface() : nullptr;
            records.records.push_back(record);
        }
        division.firstEvent = records.records.empty() ? nullptr : records.records[0].event;
        division.newLyrics = std::move(newLyrics);
        division.oldLyrics = std::move(oldLyrics);
        put(track.get(), std::move(records));
        return Steinberg::owned(
            new editsteps::LyricsDevideEditStep(track.get(), std::move(division)));
    }

    Lyrics written() const {
        Lyrics lyrics;
        for (const auto& note : notes) {
            lyrics.push_back(note ? note->lyric() : "null");
        }
        return lyrics;
    }

    Lyrics recorded() const {
        Lyrics lyrics;
        for (const auto& record : table().at(track.get()).notes->records) {
            lyrics.push_back(record.lyrics);
        }
        return lyrics;
    }

    const Handle<simulator::Track> track = makeHandle<simulator::Track>(state);
    std::vector<Handle<Event>> notes;
};

TEST_F(LyricsDevideEditStep, WritesTheNewTextsTheOldOnesAndTheNewOnesAgain) {
    const auto step = makeStep({"A", "B", "C"}, {"ABC", "X", "Y"});
    EXPECT_EQ(step->execute(), 0);
    EXPECT_EQ(written(), (Lyrics{"A", "B", "C"}));
    EXPECT_EQ(recorded(), Lyrics(3, "recorded"));
    step->undo();
    EXPECT_EQ(written(), (Lyrics{"ABC", "X", "Y"}));
    EXPECT_EQ(recorded(), (Lyrics{"ABC", "X", "Y"}));
    step->redo();
    EXPECT_EQ(written(), (Lyrics{"A", "B", "C"}));
    EXPECT_EQ(recorded(), (Lyrics{"A", "B", "C"}));
}

TEST_F(LyricsDevideEditStep, ReadsATextUpToItsFirstZero) {
    const auto step = makeStep({"la\0li"s, "\0lu"s, "le\0\xFF"s}, {"", "x", ""});
    step->execute();
    EXPECT_EQ(written(), (Lyrics{"la", "", "le"}));
}

TEST_F(LyricsDevideEditStep, WritesALongTextWhole) {
    const std::string text(100'000, 'a');
    makeStep({text}, {""})->execute();
    EXPECT_EQ(written(), Lyrics{text});
}

TEST_F(LyricsDevideEditStep, RaisesForTextThatIsNotUtf8OnceTheNotesBeforeAreWritten) {
    for (const char* const bad : {"\xFF", "\xE3\x81", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80"}) {
        notes.clear();
        const auto step = makeStep({"A", bad, "C"}, {"X", "Y", "Z"});
        EXPECT_THROW(step->execute(), utf8::exception);
        EXPECT_EQ(written(), (Lyrics{"A", "Y", "Z"}));
        EXPECT_THROW(step->redo(), utf8::exception);
        EXPECT_EQ(recorded(), Lyrics(3, "recorded"));
        step->undo();
        EXPECT_EQ(written(), (Lyrics{"X", "Y", "Z"}));
    }
}

TEST_F(LyricsDevideEditStep, RaisesOnUndoForAnOldTextThatIsNotUtf8) {
    const auto step = makeStep({"A", "B"}, {"X", "\xFF"});
    step->execute();
    EXPECT_THROW(step->undo(), utf8::exception);
    EXPECT_EQ(written(), (Lyrics{"X", "B"}));
}

TEST_F(LyricsDevideEditStep, RaisesForTextThatIsNotUtf8EvenWhenItsNoteIsNull) {
    notes = {makeHandle<Event>(state), {}, makeHandle<Event>(state)};
    const auto step = makeStepOfNotes({"A", "\xFF", "C"}, {"", "", ""});
    EXPECT_THROW(step->execute(), utf8::exception);
    EXPECT_EQ(written(), (Lyrics{"A", "null", ""}));
}

TEST_F(LyricsDevideEditStep, PassesOverNullNotes) {
    notes = {makeHandle<Event>(state), {}, makeHandle<Event>(state)};
    const auto step = makeStepOfNotes({"A", "B", "C"}, {"X", "Y", "Z"});
    step->execute();
    EXPECT_EQ(written(), (Lyrics{"A", "null", "C"}));
    step->undo();
    EXPECT_EQ(written(), (Lyrics{"X", "null", "Z"}));
    EXPECT_EQ(recorded(), (Lyrics{"X", "Y", "Z"}));

    const auto collector = makeHandle<simulator::ObjectCollector>(state);
    EXPECT_EQ(step->reportChangedObjects(collector.get()), 0);
    EXPECT_EQ(collector->objects(),
              (std::vector<host::IProjectNode*>{notes[0]->node(), notes[2]->node()}));
}

TEST_F(LyricsDevideEditStep, LeavesTheTableAloneWhenItsFirstNoteIsNull) {
    notes = {{}, makeHandle<Event>(state)};
    const auto step = makeStepOfNotes({"A", "B"}, {"X", "Y"});
    step->undo();
    EXPECT_EQ(written(), (Lyrics{"null", "Y"}));
    EXPECT_EQ(recorded(), Lyrics(2, "recorded"));
}

TEST_F(LyricsDevideEditStep, DoesNothingWithoutNotes) {
    const auto step = makeStepOfNotes({}, {});
    const auto calls = state->calls.count();
    EXPECT_EQ(step->execute(), 0);
    step->undo();
    step->redo();
    EXPECT_EQ(step->reportChangedObjects(nullptr), 0);
    EXPECT_EQ(state->calls.count(), calls);
}

TEST_F(LyricsDevideEditStep, DoesNotUseItsTrackNode) {
    notes = {makeHandle<Event>(state)};
    tracks::LyricsDivision division;
    division.notes.push_back(Steinberg::shared(notes[0]->node()));
    division.newLyrics = {"A"};
    division.oldLyrics = {"X"};
    const auto step =
        Steinberg::owned(new editsteps::LyricsDevideEditStep(nullptr, std::move(division)));
    step->execute();
    EXPECT_EQ(written(), Lyrics{"A"});
    step->undo();
    EXPECT_EQ(written(), Lyrics{"X"});
}

TEST_F(LyricsDevideEditStep, ReleasesNothingThatTheHostPutsInPlaceOfAText) {
    Released object;
    const auto note = makeHandle<ReplacingNote>(state);
    note->object = &object;
    notes = {note};
    const auto step = makeStepOfNotes({"new"}, {"old"});
    step->execute();
    step->undo();
    EXPECT_EQ(object.times, 0);
}

TEST_F(LyricsDevideEditStep, KeepsItsTextsWhenTheHostClaimsTheVariant) {
    notes = {makeHandle<KeepingNote>(state), makeHandle<KeepingNote>(state)};
    const auto step = makeStepOfNotes({"A", std::string(100, 'B')}, {std::string(100, 'X'), "Y"});
    step->execute();
    EXPECT_EQ(written(), (Lyrics{"A", std::string(100, 'B')}));
    step->undo();
    EXPECT_EQ(written(), (Lyrics{std::string(100, 'X'), "Y"}));
}

TEST_F(LyricsDevideEditStep, WritesNothingMoreOnceItIsBeingDestroyed) {
    const auto first = makeHandle<CallsOnRelease<Event>>(state);
    notes = {first, makeHandle<Event>(state)};
    auto* const step = makeStepOfNotes({"A", "B"}, {"X", "Y"}).take();
    step->execute();
    first->onRelease = [step] {
        step->addRef();
        step->undo();
        step->release();
    };
    state->calls.intercept([](const simulator::HostCall& call) {
        EXPECT_NE(call.name, "IProjectNoteEvent.setAttribute");
        return simulator::Answer::Normal;
    });
    EXPECT_EQ(step->release(), 0u);
    EXPECT_FALSE(first->onRelease);
    EXPECT_EQ(written(), (Lyrics{"A", "B"}));
    EXPECT_EQ(recorded(), Lyrics(2, "recorded"));
    EXPECT_EQ(first->moduleReferences(), 0);
    EXPECT_EQ(notes[1]->moduleReferences(), 0);
}

TEST_F(LyricsDevideEditStep, HoldsItsNotesUntilItsLastReferenceGoes) {
    auto step = makeStep({"A", "B"}, {"X", "Y"});
    EXPECT_EQ(notes[0]->moduleReferences(), 1);
    EXPECT_EQ(step->addRef(), 2u);
    EXPECT_EQ(step->release(), 1u);
    EXPECT_EQ(notes[1]->moduleReferences(), 1);
    step = nullptr;
    EXPECT_EQ(notes[0]->moduleReferences(), 0);
    EXPECT_EQ(notes[1]->moduleReferences(), 0);
}

} // namespace
} // namespace wybeta::tests
