// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/CallInterceptor.h"
#include "simulator/EditContext.h"
#include "simulator/Event.h"
#include "simulator/ExtensionInstance.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectHost.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/SimulatedHost.h"
#include "tests/faults/Subject.h"

#include "pluginterfaces/base/fvariant.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::tests {

// The notes of tracks, each note as one line, under the names of the tracks.
using NoteLists = std::map<std::string, std::vector<std::string>>;

// What the extension remembers, and what the project holds.
struct Snapshot {
    NoteLists table;
    NoteLists project;
};

// A note that can answer for an attribute with something else than its text.
class FaultyNote : public simulator::Event {
public:
    // Returns nothing where the note is to answer as it would.
    using Answerer = std::function<std::optional<Steinberg::tresult>(Steinberg::FVariant&)>;

    FaultyNote(simulator::SharedState state, const Answerer& answerer)
        : Event(std::move(state)), answerer_(answerer) {}

    Steinberg::tresult PLUGIN_API getAttribute(Steinberg::FIDString key,
                                               Steinberg::FVariant* value) override;

private:
    const Answerer& answerer_;
};

// A host and a project of its own for an extension that has been through other sessions and goes on
// to more. The project has a track to divide, one that does not sing, and one in a folder in a
// folder. At the end, the extension has to have given everything back and to remember nothing. What
// it remembers is looked at where it can be.
class FaultSession {
public:
    using Intercept = std::function<simulator::Answer(const simulator::HostCall&)>;

    // Initialises the extension, which is not to be initialised now.
    explicit FaultSession(const Subject& subject);
    ~FaultSession();
    FaultSession(const FaultSession&) = delete;
    FaultSession& operator=(const FaultSession&) = delete;

    const simulator::SharedState& state() const { return state_; }
    const simulator::ExtensionInstance& extension() const { return subject_.extension(); }
    simulator::Document& document() const { return *document_; }

    // The places of the project as it is built; they are there as long as nobody removes them.
    simulator::TreeNode& project() const { return *project_; }
    simulator::Track& melody() const;
    simulator::Folder& folder() const;
    simulator::Track& innerTrack() const;

    // Pieces with names, in no tree yet.
    simulator::Handle<simulator::Event> makeNote(std::string_view lyric);
    simulator::Handle<simulator::Part> makePart(const std::vector<std::string>& lyrics);
    simulator::Handle<simulator::Track> makeTrack(const std::vector<std::string>& lyrics);
    // Takes an item out of the tree. While the extension's steps are in the history, the history
    // keeps the item.
    void remove(simulator::TreeNode& parent, std::size_t index);
    // Takes all items out, but for gaps.
    void removeAll(simulator::TreeNode& parent);

    // The calls of the extension. Only the extension, and the host that it calls, allocate in them.
    Steinberg::tresult initialize();
    void terminate();
    void notify() { extension().notification().projectChanged(project_->argument()); }
    void hook() { hook(*context_); }

    // From here on, initialises the extension with another host.
    void changeHost();
    // Hooks an edit apart from the others. The steps have been performed.
    simulator::EditSteps hookAnotherEdit();

    // Puts the steps of the hooks so far into the history, or drops them.
    void keepSteps();
    void dropNewSteps();
    // Clears the history.
    void forgetSteps();
    // Undoes and redoes each step that was not dropped.
    void undoAndRedoSteps();
    // The steps in the history.
    const simulator::EditSteps& steps() const { return steps_; }
    simulator::ObjectCollector& collector() const { return *collector_; }

    // Intercepts all calls to the host from the one of that number on, counted from 1 and from now.
    // Throws when the extension calls without end.
    void interceptFrom(std::uint64_t number, const Intercept& intercept);

    // Answers for the attributes of all notes while it is set.
    FaultyNote::Answerer answerer;

    // The table is empty while the extension is not initialised, and out of sight.
    Snapshot snapshot() const;
    // References that the extension or its steps hold to the project.
    std::int64_t projectReferences() const;
    // References to the extension and to its steps, other than those of this session.
    std::int64_t strayReferences() const;

    // Whether no host and no manager is held more than once.
    bool areHostsHeldOnce() const;
    // Lets the host behave from here on, and expects that a hook brings the table in line with the
    // project and that a lyric can be divided, undone and redone.
    void expectRecovers();

private:
    void hook(simulator::EditContext& context);
    void expectTableMatches() const;
    std::string lineOf(const SeenNote& note) const;
    std::string nameOf(const void* object) const;
    NoteLists tableLists() const;
    void readTracks(const simulator::TreeNode& node, NoteLists& lists) const;

    const Subject& subject_;
    simulator::SharedState state_ = std::make_shared<simulator::HostState>();
    // The last one is that of the session; the others may still be in the middle of a call.
    std::vector<SimulatedHost> hosts_{SimulatedHost(state_)};
    simulator::Handle<simulator::Document> document_ = hosts_.back().openDocument();
    simulator::Handle<simulator::TreeNode> project_;
    simulator::Handle<simulator::EditContext> context_;
    simulator::Handle<simulator::ObjectCollector> collector_;
    simulator::EditSteps steps_;
    std::vector<simulator::Handle<simulator::TreeItem>> history_;
    // By address; an address that is used again gets a new name.
    std::map<const void*, std::string> names_;
    std::size_t namesGiven_ = 0;
    std::uint64_t referencesAtStart_ = 0;
    bool isInitialized_ = false;
};

} // namespace wybeta::tests
