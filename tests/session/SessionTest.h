// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "simulator/CallInterceptor.h"
#include "simulator/EditContext.h"
#include "simulator/Editor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/RunningModule.h"
#include "simulator/Track.h"
#include "tests/TrackNotes.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::tests {

using simulator::EditContext;
using simulator::Editor;
using simulator::EditSteps;
using simulator::Event;
using simulator::Folder;
using simulator::Handle;
using simulator::HostCall;
using simulator::makeHandle;
using simulator::Part;
using simulator::SharedState;
using simulator::Track;
using simulator::TreeItem;
using simulator::TreeNode;

using Nodes = std::vector<host::IProjectNode*>;

// Gives a test each step in place of performing and keeping it.
class StepReceiver : public EditContext {
public:
    using Receive = std::function<void(host::IEditStep&)>;

    StepReceiver(SharedState state, Receive receive)
        : EditContext(std::move(state)), receive_(std::move(receive)) {}

    Steinberg::tresult PLUGIN_API addEditStep(host::IEditStep* step) override {
        receive_(*step);
        return Steinberg::kResultOk;
    }

private:
    Receive receive_;
};

// A session of the built module in a simulated editor. When it is over, every reference has to be
// given back and no object of the editor may be left.
class SessionTest : public testing::Test {
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

    SessionTest();
    void TearDown() override;

    Editor& editor() { return *editor_; }
    TreeNode& project() { return editor_->project(); }
    const SharedState& state() const { return state_; }
    static Steinberg::IPluginFactory& factory() { return module_->factory(); }

    // Pieces of a project that are in no tree yet.
    Handle<Event> makeNote(std::string_view lyric = {}) const;
    Handle<Event> makeOtherEvent() const;
    Handle<Part> makePart(const Lyrics& notes) const;
    Handle<Track> makeTrack(const std::vector<Lyrics>& parts) const;

    // Puts a voice track into the project without telling the extension.
    Track& addTrack(const Lyrics& notes) { return addTrackOf({notes}); }
    Track& addTrackOf(const std::vector<Lyrics>& parts);
    // The same, and the extension has seen the track.
    Track& addKnownTrack(const Lyrics& notes) { return addKnownTrackOf({notes}); }
    Track& addKnownTrackOf(const std::vector<Lyrics>& parts);

    // Runs the edit hook outside the editor's history. The steps have been performed.
    EditSteps hook() { return hook(project()); }
    EditSteps hook(TreeNode& node);
    // Runs the edit hook with a host that does with each step as the test says.
    void hook(const StepReceiver::Receive& receive);

    // The nodes that a step reports as changed.
    Nodes reported(host::IEditStep& step) const;
    // A division reports its notes; a count step has nothing to report.
    bool isDivision(host::IEditStep& step) const { return !reported(step).empty(); }

    // Expects that the edit hook makes one step, of that kind, and none when it is run again.
    enum class StepKind { Division, Count };
    void expectOneStep(StepKind kind);

    // What the track table holds for the notes of a track, found out by typing into all of them at
    // once and looking at what undo brings back. Notes that the table does not know come out empty,
    // a track that it does not know gives no texts at all. Leaves the table as if it had known the
    // notes.
    Lyrics recordedLyrics(const Track& track);

    // Acts in the middle of the first call of that name.
    void onFirst(std::string_view call, std::function<void()> action);

private:
    static std::unique_ptr<simulator::RunningModule> module_;

    std::optional<Editor> editor_;
    SharedState state_;
};

} // namespace wybeta::tests
