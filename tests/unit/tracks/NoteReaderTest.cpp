// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/NoteReader.h"
#include "simulator/CallInterceptor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "tracks/NoteList.h"

#include "pluginterfaces/base/fvariant.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace wybeta::tracks {
namespace {

using namespace simulator;
using Steinberg::FVariant;
using Steinberg::kResultFalse;
using Steinberg::kResultOk;
using Steinberg::tresult;

class NoteReader : public testing::Test {
protected:
    void TearDown() override { EXPECT_TRUE(state->ledger.isBalanced()) << state->ledger.report(); }

    bool read() { return readNoteEvent(*event, nullptr, record); }

    // Reads a note whose attributes are answered with a variant.
    void readWith(const std::function<tresult(FVariant&)>& fill) {
        event->attributes = [fill](std::string_view, FVariant& value) { return fill(value); };
        EXPECT_TRUE(read());
    }

    const SharedState state = std::make_shared<HostState>();
    const Handle<Event> event = makeHandle<Event>(state);
    // A note is read over what the record held.
    NoteRecord record = {1, 2, 3, "old lyric", "old phoneme", nullptr};
};

TEST_F(NoteReader, FillsTheWholeRecord) {
    event->startInPart = 1.25;
    event->duration = 0.5;
    event->pitch = -3;
    event->setText("lyrics", "さくら");
    event->setText("phoneme", "s a");

    EXPECT_TRUE(read());
    EXPECT_EQ(record.start, 1.25);
    EXPECT_EQ(record.length, 0.5);
    EXPECT_EQ(record.value, -3);
    EXPECT_EQ(record.lyrics, "さくら");
    EXPECT_EQ(record.phoneme, "s a");
    EXPECT_EQ(record.event, event->ownInterface());
}

TEST_F(NoteReader, TakesTheTimesInTheContextOfThePart) {
    event->startInPart = 1;
    const auto context = makeHandle<TimeContext>(state, 100.0);

    EXPECT_TRUE(readNoteEvent(*event, context.get(), record));
    EXPECT_EQ(record.start, 101);
}

TEST_F(NoteReader, LeavesTheRecordUntouchedWhenTheEventIsNotANote) {
    event->setKind(Event::Kind::Other);
    record.event = &record;

    EXPECT_FALSE(read());
    EXPECT_EQ(record.start, 1);
    EXPECT_EQ(record.length, 2);
    EXPECT_EQ(record.value, 3);
    EXPECT_EQ(record.lyrics, "old lyric");
    EXPECT_EQ(record.phoneme, "old phoneme");
    EXPECT_EQ(record.event, &record);
}

TEST_F(NoteReader, AsksAnEventThatIsNotANoteForNothingButItsInterfaces) {
    event->setKind(Event::Kind::Other);
    state->calls.intercept([](const HostCall& call) {
        EXPECT_EQ(call.name, "queryInterface");
        return Answer::Normal;
    });
    EXPECT_FALSE(read());
}

TEST_F(NoteReader, ReadsANoteThatDoesNotAnswerIProjectEventWithoutItsValue) {
    event->pitch = 7;
    event->setLyric("la");
    state->calls.intercept([this](const HostCall&) {
        return state->calls.count() == 1 ? Answer::Refuse : Answer::Normal;
    });

    EXPECT_TRUE(read());
    EXPECT_EQ(record.value, 0);
    EXPECT_EQ(record.lyrics, "la");
    EXPECT_EQ(record.event, event->ownInterface());
}

TEST_F(NoteReader, GivesEmptyTextsForAbsentAttributes) {
    EXPECT_TRUE(read());
    EXPECT_EQ(record.lyrics, "");
    EXPECT_EQ(record.phoneme, "");
}

TEST_F(NoteReader, ReadsAPhonemeWithoutALyric) {
    event->setText("phoneme", "a");
    EXPECT_TRUE(read());
    EXPECT_EQ(record.lyrics, "");
    EXPECT_EQ(record.phoneme, "a");
}

TEST_F(NoteReader, StoresACharacterOutsideTheBasicPlaneInFourBytes) {
    event->setUtf16("lyrics", u"\xD83C\xDFB5");
    EXPECT_TRUE(read());
    EXPECT_EQ(record.lyrics, "\xF0\x9F\x8E\xB5");
}

TEST_F(NoteReader, ReplacesALoneSurrogate) {
    event->setUtf16("lyrics", u"l\xD83C");
    EXPECT_TRUE(read());
    EXPECT_EQ(record.lyrics, "l\xEF\xBF\xBD");
}

TEST_F(NoteReader, GivesAnEmptyTextForANumber) {
    readWith([](FVariant& value) {
        value.setInt(7);
        return kResultOk;
    });
    EXPECT_EQ(record.lyrics, "");
    readWith([](FVariant& value) {
        value.setFloat(7.5);
        return kResultOk;
    });
    EXPECT_EQ(record.lyrics, "");
}

TEST_F(NoteReader, GivesAnEmptyTextForABytewiseString) {
    readWith([](FVariant& value) {
        value.setString8("la");
        return kResultOk;
    });
    EXPECT_EQ(record.lyrics, "");
}

TEST_F(NoteReader, GivesAnEmptyTextForANullString) {
    readWith([](FVariant& value) {
        value.setString16(nullptr);
        return kResultOk;
    });
    EXPECT_EQ(record.lyrics, "");
}

TEST_F(NoteReader, GivesAnEmptyTextWhenTheGetterFailsAndStillFillsTheValue) {
    readWith([](FVariant& value) {
        value.setString16(u"la");
        return kResultFalse;
    });
    EXPECT_EQ(record.lyrics, "");
}

// The texts are constants, so freeing one would crash.
TEST_F(NoteReader, NeverFreesAStringOfTheHostThoughItIsMarkedAsOwned) {
    for (const tresult result : {kResultOk, kResultFalse}) {
        readWith([result](FVariant& value) {
            value.setString16(u"la");
            value.setOwner(true);
            return result;
        });
        EXPECT_EQ(record.lyrics, result == kResultOk ? "la" : "");
        readWith([result](FVariant& value) {
            value.setString8("la");
            value.setOwner(true);
            return result;
        });
        EXPECT_EQ(record.lyrics, "");
    }
}

TEST_F(NoteReader, GivesBackAnObjectThatIsMarkedAsOwned) {
    const auto object = makeHandle<TimeContext>(state, 0.0);
    readWith([&](FVariant& value) {
        value.setObject(handOver<Steinberg::FUnknown>(object.get()));
        value.setOwner(true);
        return kResultOk;
    });
    EXPECT_EQ(record.lyrics, "");
    EXPECT_EQ(object->moduleReferences(), 0);
}

TEST_F(NoteReader, LeavesAnObjectThatIsNotMarkedAsOwned) {
    const auto object = makeHandle<TimeContext>(state, 0.0);
    readWith([&](FVariant& value) {
        value.setObject(object.get());
        return kResultOk;
    });
    EXPECT_EQ(record.lyrics, "");
    EXPECT_EQ(object->moduleReferences(), 0);
}

TEST_F(NoteReader, GivesBackBothInterfacesWhenTheHostThrows) {
    event->attributes = [](std::string_view, FVariant&) -> tresult {
        throw std::runtime_error("out of memory");
    };
    EXPECT_THROW(read(), std::runtime_error);
}

} // namespace
} // namespace wybeta::tracks
