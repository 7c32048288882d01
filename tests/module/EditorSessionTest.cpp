// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/EditorSession.h"

#include "simulator/Event.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/ModuleFixture.h"

#include "pluginterfaces/base/funknown.h"
#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using simulator::Editor;
using simulator::Event;
using simulator::Handle;
using simulator::makeHandle;

class EditorSession : public ModuleFixture {
protected:
    void TearDown() override {
        session.end();
        ModuleFixture::TearDown();
    }

    simulator::EditorSession session{*factory};
};

// A track of two empty notes, which the extension knows.
std::vector<Handle<Event>> addTrack(Editor& editor) {
    const auto part = makeHandle<simulator::Part>(editor.state());
    std::vector<Handle<Event>> notes;
    for (int i = 0; i < 2; ++i) {
        notes.push_back(makeHandle<Event>(editor.state()));
        part->add(notes.back());
    }
    const auto track = simulator::makeVoiceTrack(editor.state());
    track->add(part);
    editor.project().add(track);
    editor.notify();
    return notes;
}

TEST(EditorSessionEnd, SaysWhatTheModuleStillHolds) {
    const simulator::LoadedModule module{modulePath()};
    const auto factory = Steinberg::owned(module.getPluginFactory());
    simulator::EditorSession session(*factory);
    const Steinberg::IPtr<Steinberg::FUnknown> held = session.editor().project().argument();
    try {
        session.end();
        FAIL() << "nothing was said";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), std::string("expected the module to give back all that it took, "
                                            "found:\nProject is held 1 times\n"));
    }
}

TEST_F(EditorSession, DividesInEachOfSeveralProjects) {
    auto first = session.editor().openProject();
    auto second = session.editor().openProject();
    const auto firstNotes = addTrack(first);
    const auto secondNotes = addTrack(second);
    second.type(*secondNotes[0], "love");
    first.notify();
    first.type(*firstNotes[0], "hello");
    EXPECT_EQ(firstNotes[0]->lyric(), "hello[hh ah]");
    EXPECT_EQ(firstNotes[1]->lyric(), "[l ow]");
    EXPECT_EQ(secondNotes[0]->lyric(), "love[l ah v]");
}

TEST_F(EditorSession, KeepsAHistoryForEachProject) {
    auto first = session.editor().openProject();
    auto second = session.editor().openProject();
    const auto notes = addTrack(first);
    first.type(*notes[0], "hello");
    addTrack(second);
    EXPECT_FALSE(second.undo());
    EXPECT_TRUE(first.undo());
    EXPECT_EQ(notes[0]->lyric(), "");
    EXPECT_EQ(notes[1]->lyric(), "");
    EXPECT_TRUE(first.redo());
    EXPECT_EQ(notes[1]->lyric(), "[l ow]");
}

TEST_F(EditorSession, GoesOnWhenAFurtherProjectIsClosed) {
    auto& editor = session.editor();
    const auto notes = addTrack(editor);
    {
        auto further = editor.openProject();
        addTrack(further);
    }
    editor.notify();
    editor.type(*notes[0], "hello");
    EXPECT_EQ(notes[1]->lyric(), "[l ow]");
}

} // namespace

} // namespace wybeta::tests
