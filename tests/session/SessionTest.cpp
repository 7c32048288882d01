// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/session/SessionTest.h"

#include "tests/Options.h"

#include <cstddef>
#include <utility>

namespace wybeta::tests {

namespace {

// Nothing converts it, and no test types it.
constexpr std::string_view kProbe = "？";

} // namespace

std::unique_ptr<simulator::RunningModule> SessionTest::module_;

void SessionTest::SetUpTestSuite() {
    module_ = std::make_unique<simulator::RunningModule>(modulePath());
}

void SessionTest::TearDownTestSuite() {
    module_->stop();
    module_.reset();
}

SessionTest::SessionTest() : editor_(std::in_place, factory()), state_(editor_->state()) {}

void SessionTest::TearDown() {
    state_->calls.stopIntercepting();
    editor_.reset();
    EXPECT_TRUE(state_->ledger.isBalanced()) << state_->ledger.report();
    EXPECT_EQ(state_->ledger.objectsAlive(), 0u);
}

Handle<Event> SessionTest::makeNote(std::string_view lyric) const {
    auto note = makeHandle<Event>(state_);
    note->setLyric(lyric);
    return note;
}

Handle<Event> SessionTest::makeOtherEvent() const {
    return makeHandle<Event>(state_, Event::Kind::Other);
}

Handle<Part> SessionTest::makePart(const Lyrics& notes) const {
    auto part = makeHandle<Part>(state_);
    for (const auto& lyric : notes) {
        part->add(makeNote(lyric));
    }
    return part;
}

Handle<Track> SessionTest::makeTrack(const std::vector<Lyrics>& parts) const {
    auto track = simulator::makeVoiceTrack(state_);
    for (const auto& notes : parts) {
        track->add(makePart(notes));
    }
    return track;
}

Track& SessionTest::addTrackOf(const std::vector<Lyrics>& parts) {
    const auto track = makeTrack(parts);
    project().add(track);
    return *track;
}

Track& SessionTest::addKnownTrackOf(const std::vector<Lyrics>& parts) {
    auto& track = addTrackOf(parts);
    editor().notify();
    return track;
}

EditSteps SessionTest::hook(TreeNode& node) {
    const auto context = makeHandle<EditContext>(state_);
    editor().extension().editHook().hookEdit(node.argument(), context.get());
    return context->steps();
}

void SessionTest::hook(const StepReceiver::Receive& receive) {
    const auto context = makeHandle<StepReceiver>(state_, receive);
    editor().extension().editHook().hookEdit(project().argument(), context.get());
}

Nodes SessionTest::reported(host::IEditStep& step) const {
    const auto collector = makeHandle<simulator::ObjectCollector>(state_);
    step.reportChangedObjects(collector.get());
    return collector->objects();
}

void SessionTest::expectOneStep(StepKind kind) {
    const auto steps = hook();
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(isDivision(*steps[0]), kind == StepKind::Division);
    EXPECT_TRUE(hook().empty());
}

Lyrics SessionTest::recordedLyrics(const Track& track) {
    const auto notes = eventsOf(track);
    const auto lyrics = lyricsOf(track);
    std::vector<bool> flags;
    for (auto* const note : notes) {
        flags.push_back(note->flagged);
        typeInto(*note, kProbe);
    }
    Lyrics recorded;
    for (const auto& step : hook()) {
        const auto nodes = reported(*step);
        if (!nodes.empty() && nodes.front() == notes.front()->node()) {
            step->undo();
            recorded = lyricsOf(track);
        }
    }
    for (std::size_t i = 0; i < notes.size(); ++i) {
        notes[i]->setLyric(lyrics[i]);
        notes[i]->flagged = flags[i];
    }
    return recorded;
}

void SessionTest::onFirst(std::string_view call, std::function<void()> action) {
    const auto pending = std::make_shared<std::function<void()>>(std::move(action));
    state_->calls.intercept([call, pending](const HostCall& made) {
        if (made.name == call && *pending) {
            std::exchange(*pending, nullptr)();
        }
        return simulator::Answer::Normal;
    });
}

} // namespace wybeta::tests
