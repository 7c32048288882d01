// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a session leaves on the heap, editor and all. The editor's song is the same before and
// after, and its history is empty, so whatever grew would be the extension's.
#include "simulator/Editor.h"
#include "simulator/Event.h"
#include "simulator/ExtensionInstance.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/unit/faults/HeldHeap.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>

namespace wybeta::tests {
namespace {

using simulator::Event;
using simulator::Handle;
using simulator::makeHandle;

constexpr std::size_t kNotes = 5'000;
constexpr int kFewEdits = 100;
// Sanitized, or counting its lines, a build takes ten times as long for each.
#ifdef NDEBUG
constexpr int kManyEdits = 10'000;
#else
constexpr int kManyEdits = 1'000;
#endif

constexpr std::string_view kUntyped = "ら";

// A person who works on a song and in the end has it as it was.
class HeldMemory : public testing::Test {
protected:
    HeldMemory() {
        for (std::size_t i = 0; i < kNotes; ++i) {
            part_->add(makeNote());
        }
        const auto track = simulator::makeVoiceTrack(editor_.state());
        track->add(part_);
        editor_.project().add(track);
        editor_.notify();
    }

    // Edits in rounds, of which each is at other notes.
    void edit(int edits) {
        for (const int end = edits_ + edits; edits_ < end;) {
            playRound();
            editor_.forgetEdits();
            // The edits before it that were undone are seen now.
            editor_.notify();
        }
    }

private:
    Handle<Event> makeNote() const {
        auto note = makeHandle<Event>(editor_.state());
        note->setLyric(kUntyped);
        return note;
    }

    Event& note(std::size_t position) { return dynamic_cast<Event&>(*part_->items().at(position)); }

    // An edit is also what is undone or done again.
    void undo() {
        ASSERT_TRUE(editor_.undo());
        ++edits_;
    }
    void redo() {
        ASSERT_TRUE(editor_.redo());
        ++edits_;
    }
    void undoRedoUndo() {
        undo();
        redo();
        undo();
    }

    void type(std::size_t position, std::string_view lyric) {
        editor_.type(note(position), lyric);
        ++edits_;
    }

    // Into a later place of its part, and to a later time.
    void move(std::size_t position, std::size_t places) {
        const Handle<Event> moved(&note(position));
        const auto shift = [moved](double by) { return [moved, by] { moved->startInPart += by; }; };
        editor_.edit({simulator::removal(*part_, *moved),
                      simulator::insertion(*part_, position + places, moved),
                      {shift(1), shift(-1)}});
        ++edits_;
    }

    // 20 edits. Long texts go into one note only, as a note keeps the room for its longest.
    void playRound() {
        const auto place = static_cast<std::size_t>(edits_) * 7 % (kNotes - 10);
        type(place, "かき");
        undoRedoUndo();
        type(0, "beautiful world, beautiful song");
        undoRedoUndo();
        editor_.add(*part_, place + 1, makeNote());
        ++edits_;
        undoRedoUndo();
        editor_.remove(*part_, note(place + 2));
        ++edits_;
        undoRedoUndo();
        move(place + 3, 3);
        undoRedoUndo();
    }

    simulator::Editor editor_{simulator::ExtensionInstance(*Steinberg::owned(GetPluginFactory()))};
    Handle<simulator::Part> part_ = makeHandle<simulator::Part>(editor_.state());
    int edits_ = 0;
};

TEST_F(HeldMemory, OfManyEditsIsThatOfAFew) {
    edit(kFewEdits);
    const auto few = heldHeap();
    edit(kManyEdits - kFewEdits);
    const auto many = heldHeap();
    EXPECT_EQ(many.blocks, few.blocks);
    EXPECT_EQ(many.bytes, few.bytes);
}

} // namespace
} // namespace wybeta::tests
