// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/faults/FaultSession.h"

#include "host/IProjectTrack.h"
#include "tests/TrackNotes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace wybeta::tests {

using simulator::Event;
using simulator::Folder;
using simulator::Handle;
using simulator::makeHandle;
using simulator::Part;
using simulator::Track;
using simulator::TreeItem;
using simulator::TreeNode;

namespace {

// Longer than any text that is divided onto its note, so that it takes memory to bring it back.
std::string longLyric(char letter) {
    return std::string(60, letter);
}

std::uint32_t referencesTo(Steinberg::FUnknown& object) {
    object.addRef();
    return object.release();
}

// The address by which the extension knows a track.
const void* keyOf(const Track& track) {
    return static_cast<const host::IProjectTrack*>(&track);
}

} // namespace

Steinberg::tresult FaultyNote::getAttribute(Steinberg::FIDString key, Steinberg::FVariant* value) {
    if (answerer_) {
        if (const auto result = answerer_(*value)) {
            return *result;
        }
    }
    return Event::getAttribute(key, value);
}

FaultSession::FaultSession(const Subject& subject)
    : subject_(subject), project_(makeHandle<TreeNode>(state_, "Project", "project")),
      context_(makeHandle<simulator::EditContext>(state_)),
      collector_(makeHandle<simulator::ObjectCollector>(state_)),
      referencesAtStart_(referencesTo(extension().base())) {
    const auto melody = makeTrack({longLyric('a'), longLyric('b'), longLyric('c')});
    melody->add(makePart({longLyric('d')}));
    partOf(*melody).insert(1, Handle<TreeItem>());
    const auto piano = makeHandle<Track>(state_);
    piano->setDevice(simulator::makeDevice(state_, simulator::Plugin::Kind::Other));
    piano->add(makePart({"no lyric"}));
    const auto inner = makeHandle<Folder>(state_);
    inner->add(makeTrack({longLyric('e'), "li"}));
    const auto outer = makeHandle<Folder>(state_);
    outer->add(inner);
    project_->add(melody);
    project_->add(piano);
    project_->add(outer);
    initialize();
}

FaultSession::~FaultSession() {
    state_->calls.stopIntercepting();
    forgetSteps();
    project_ = makeHandle<TreeNode>(state_, "Project", "project");
    notify();
    EXPECT_EQ(tableLists(), NoteLists());
    terminate();
    EXPECT_FALSE(subject_.table());
    EXPECT_EQ(strayReferences(), 0);
    EXPECT_TRUE(state_->ledger.isBalanced()) << state_->ledger.report();
    context_ = {};
    collector_ = {};
    project_ = {};
    document_ = {};
    hosts_.clear();
    EXPECT_EQ(state_->ledger.objectsAlive(), 0u);
}

Track& FaultSession::melody() const {
    return dynamic_cast<Track&>(*project_->items().at(0));
}

Folder& FaultSession::folder() const {
    const auto& outer = dynamic_cast<Folder&>(*project_->items().at(2));
    return dynamic_cast<Folder&>(*outer.items().at(0));
}

Track& FaultSession::innerTrack() const {
    return dynamic_cast<Track&>(*folder().items().at(0));
}

Handle<Event> FaultSession::makeNote(std::string_view lyric) {
    const auto note = makeHandle<FaultyNote>(state_, answerer);
    note->setLyric(lyric);
    note->setText("phoneme", "phonemes of " + std::string(lyric));
    note->pitch = static_cast<Steinberg::int32>(++namesGiven_);
    note->startInPart = static_cast<double>(namesGiven_) / 2;
    names_[note->ownInterface()] = "note " + std::to_string(namesGiven_);
    return note;
}

Handle<Part> FaultSession::makePart(const std::vector<std::string>& lyrics) {
    auto part = makeHandle<Part>(state_, 10.0);
    for (const auto& lyric : lyrics) {
        part->add(makeNote(lyric));
    }
    return part;
}

Handle<Track> FaultSession::makeTrack(const std::vector<std::string>& lyrics) {
    auto track = simulator::makeVoiceTrack(state_);
    names_[keyOf(*track)] = "track " + std::to_string(++namesGiven_);
    track->add(makePart(lyrics));
    return track;
}

void FaultSession::remove(TreeNode& parent, std::size_t index) {
    const Handle<TreeItem> item = parent.items().at(index);
    if (!steps_.empty()) {
        history_.push_back(item);
    }
    parent.remove(*item);
}

void FaultSession::removeAll(TreeNode& parent) {
    for (auto index = parent.items().size(); index-- > 0;) {
        if (parent.items()[index]) {
            remove(parent, index);
        }
    }
}

Steinberg::tresult FaultSession::initialize() {
    const auto result = extension().base().initialize(hosts_.back().context());
    isInitialized_ = isInitialized_ || result == Steinberg::kResultOk;
    return result;
}

void FaultSession::terminate() {
    isInitialized_ = false;
    extension().base().terminate();
}

void FaultSession::changeHost() {
    hosts_.emplace_back(state_);
}

simulator::EditSteps FaultSession::hookAnotherEdit() {
    const auto context = makeHandle<simulator::EditContext>(state_);
    hook(*context);
    return context->steps();
}

void FaultSession::hook(simulator::EditContext& context) {
    extension().editHook().hookEdit(project_->argument(), &context);
}

void FaultSession::keepSteps() {
    steps_.insert(steps_.end(), context_->steps().begin(), context_->steps().end());
    dropNewSteps();
}

void FaultSession::dropNewSteps() {
    context_ = makeHandle<simulator::EditContext>(state_);
}

void FaultSession::forgetSteps() {
    dropNewSteps();
    steps_.clear();
    history_.clear();
}

void FaultSession::undoAndRedoSteps() {
    auto steps = steps_;
    steps.insert(steps.end(), context_->steps().begin(), context_->steps().end());
    for (const auto& step : steps) {
        step->undo();
        step->redo();
    }
}

void FaultSession::interceptFrom(std::uint64_t number, const Intercept& intercept) {
    constexpr std::uint64_t kMaxCalls = 1'000'000;
    const auto before = state_->calls.count();
    state_->calls.intercept([=](const simulator::HostCall& call) {
        const auto count = state_->calls.count() - before;
        if (count > kMaxCalls) {
            throw std::runtime_error("the extension calls the host without end");
        }
        return count >= number ? intercept(call) : simulator::Answer::Normal;
    });
}

Snapshot FaultSession::snapshot() const {
    Snapshot snapshot{tableLists(), {}};
    readTracks(*project_, snapshot.project);
    return snapshot;
}

std::int64_t FaultSession::projectReferences() const {
    auto references = state_->ledger.outstanding();
    for (const auto& host : hosts_) {
        references -= host.references();
    }
    return references;
}

std::int64_t FaultSession::strayReferences() const {
    std::int64_t references = referencesTo(extension().base()) - std::int64_t(referencesAtStart_);
    for (const auto& step : steps_) {
        references += referencesTo(*step) - 1;
    }
    return references;
}

bool FaultSession::areHostsHeldOnce() const {
    return std::all_of(hosts_.begin(), hosts_.end(), [](const SimulatedHost& host) {
        return host.projectHost->moduleReferences() <= 1 && host.manager->moduleReferences() <= 1;
    });
}

void FaultSession::expectTableMatches() const {
    if (subject_.showsTable()) {
        const auto now = snapshot();
        EXPECT_EQ(now.table, now.project);
    }
}

void FaultSession::expectRecovers() {
    state_->calls.stopIntercepting();
    answerer = nullptr;
    if (subject_.showsTable()) {
        EXPECT_EQ(subject_.table().has_value(), isInitialized_);
    }
    if (!isInitialized_) {
        EXPECT_EQ(initialize(), Steinberg::kResultOk);
    }
    hook();
    expectTableMatches();
    EXPECT_TRUE(hookAnotherEdit().empty());

    forgetSteps();
    const auto track = makeTrack({"", ""});
    project_->add(track);
    notify();
    typeInto(noteAt(*track, 0), "かき");
    hook();
    keepSteps();
    ASSERT_EQ(steps_.size(), 1u);
    EXPECT_EQ(lyricsOf(*track), (Lyrics{"かき[k a]", "[k i]"}));
    steps_[0]->undo();
    EXPECT_EQ(lyricsOf(*track), (Lyrics{"", ""}));
    expectTableMatches();
    steps_[0]->redo();
    EXPECT_EQ(lyricsOf(*track), (Lyrics{"かき[k a]", "[k i]"}));
    expectTableMatches();
    EXPECT_TRUE(hookAnotherEdit().empty());
}

std::string FaultSession::lineOf(const SeenNote& note) const {
    std::ostringstream line;
    line << nameOf(note.event) << " (" << note.value << ") at " << note.start << " for "
         << note.length << ": " << note.lyric << " / " << note.phoneme;
    return line.str();
}

std::string FaultSession::nameOf(const void* object) const {
    const auto name = names_.find(object);
    return name != names_.end() ? name->second : "unknown";
}

NoteLists FaultSession::tableLists() const {
    NoteLists lists;
    for (const auto& [track, notes] : subject_.table().value_or(SeenTracks())) {
        auto& list = lists[nameOf(track)];
        for (const auto& note : notes) {
            list.push_back(lineOf(note));
        }
    }
    return lists;
}

void FaultSession::readTracks(const TreeNode& node, NoteLists& lists) const {
    for (const auto& child : node.items()) {
        if (const auto* const folder = dynamic_cast<const Folder*>(child.get())) {
            readTracks(*folder, lists);
        }
        const auto* const track = dynamic_cast<const Track*>(child.get());
        // The track that does not sing has no name.
        if (track == nullptr || names_.count(keyOf(*track)) == 0) {
            continue;
        }
        auto& list = lists[nameOf(keyOf(*track))];
        for (const auto& item : track->items()) {
            const auto& part = dynamic_cast<const Part&>(*item);
            for (const auto& event : part.items()) {
                if (auto* const note = dynamic_cast<Event*>(event.get())) {
                    list.push_back(lineOf({note->ownInterface(), part.start() + note->startInPart,
                                           note->duration, note->pitch, note->lyric(),
                                           note->text("phoneme")}));
                }
            }
        }
    }
}

} // namespace wybeta::tests
