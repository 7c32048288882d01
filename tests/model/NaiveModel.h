// SPDX-License-Identifier: GPL-3.0-or-later
//
// A second account of how a project behaves with the extension in it: plain data, no interfaces,
// every rule carried out as simply as it can be said.
#pragma once

#include "simulator/ProjectTree.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace wybeta::tests {

// Names an item of the project, in place of the address by which the module knows it. Voice tracks
// are named in the order of their addresses.
using Id = std::size_t;
constexpr Id kProject = 0;
constexpr Id kNobody = static_cast<Id>(-1);

enum class Kind { Project, Folder, VoiceTrack, OtherTrack, Part, OtherChild, Note, OtherEvent };

struct Item {
    Kind kind = Kind::Project;
    // What an event has.
    int value = 0;
    bool flagged = false;
    std::string lyric;
    // What anything else has. Without children, there may be no iterator either.
    std::vector<Id> children;
    bool noIteratorWhenEmpty = false;
};

// As much of an event as a change touches.
struct EventState {
    std::optional<Kind> kind;
    std::optional<bool> flagged;
    std::optional<std::string> lyric;
};

// One change of the user's own. Insertions and removals say where, alterations what.
struct ModelChange {
    enum class Type { Insert, Remove, Alter };

    Type type;
    Id item;
    Id parent = kNobody;
    std::size_t index = 0;
    EventState before = {};
    EventState after = {};
};

struct Record {
    Id event;
    std::string lyric;
    int value;
};

using Records = std::vector<Record>;

struct RecordChange {
    std::size_t position;
    Record record;
};

// What the extension hands over: a division when it has notes, else a change of the count.
struct Step {
    Id track = kNobody;
    std::vector<Id> notes = {};
    std::vector<std::string> newLyrics = {};
    std::vector<std::string> oldLyrics = {};
    std::vector<RecordChange> changes = {};
    bool removed = false;
};

class NaiveModel {
public:
    NaiveModel() { add({}); }

    // Whether the editor tells of a change in the project whenever a step comes in or is about to
    // write.
    bool notifiesInSteps = false;

    // A new item, in no place yet.
    Id add(Item item);
    const Item& operator[](Id id) const { return items_[id]; }
    std::size_t size() const { return items_.size(); }

    static ModelChange insertion(Id parent, std::size_t index, Id item);
    ModelChange removal(Id parent, Id item) const;
    ModelChange alteration(Id event, EventState after) const;

    // What the editor can do; an edit returns the steps that it was given. Undo and redo have to
    // have something to work on.
    std::vector<Step> edit(const std::vector<ModelChange>& changes);
    void undo();
    void redo();
    void notify(Id node);
    void terminate() { terminated_ = true; }
    // Outside the history, and the extension is not told.
    void apply(const ModelChange& change);

private:
    struct Edit {
        std::vector<ModelChange> changes;
        std::vector<Step> steps;
    };

    void revert(const ModelChange& change);
    void place(Id parent, std::size_t index, Id item);
    void displace(Id parent, Id item);
    void alter(Id event, const EventState& state);

    // The extension. With a list of steps, the walk adds to it.
    void walkAndPrune(Id node, std::vector<Step>* steps);
    void walk(Id node, std::vector<Step>* steps, std::vector<Id>& visited);
    void visit(Id track, std::vector<Step>* steps);
    Records firstSighting(Id track) const;
    // Leaves the division empty when no lyric was typed.
    void passLyrics(Id track, const Records& old, Records& current, Step& division) const;
    void addStep(const Step& step, std::vector<Step>& steps);

    void undo(const Step& step);
    void redo(const Step& step);
    void write(const Step& step, const std::vector<std::string>& lyrics);
    void sync(const Step& step, const std::vector<std::string>& lyrics);
    void countChange(const Step& step, bool inserts);

    std::vector<Item> items_;
    std::map<Id, Records> table_;
    std::vector<Edit> done_;
    std::vector<Edit> undone_;
    bool terminated_ = false;
};

} // namespace wybeta::tests
