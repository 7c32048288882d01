// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNode.h"
#include "simulator/Editor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/model/NaiveModel.h"
#include "tests/model/RandomLyrics.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace wybeta::tests {

// Where an item of the project is.
struct Place {
    Id parent;
    std::size_t index;
    Id item;
};

// A project that is there twice, in the simulated editor and in the naive model, made at random.
// Gives no object up before `forget`, so that no two have the same address.
class MirroredProject {
public:
    // The project in the editor is still empty. Both arguments are kept.
    MirroredProject(simulator::TreeNode& top, Random& random);

    NaiveModel model;

    // A new item with all that is in it, in no place yet. There is an end to the voice tracks.
    bool canCreate(Kind kind) const;
    Id create(Kind kind);

    // What the editor does, telling nobody.
    void append(Id parent, Id item);
    void alter(const ModelChange& change);
    // What the editor has to do for a change that the model does by itself.
    simulator::Change realChange(const ModelChange& change) const;

    // All items of a kind in the project, and all that could hold one.
    std::vector<Place> places(Kind kind) const;
    std::vector<Id> parentsFor(Kind kind) const;

    simulator::TreeNode& node(Id id) const;
    // An ID for each event that ever was.
    const std::map<const host::IProjectNode*, Id>& events() const { return events_; }
    std::string lyricInEditor(Id id) const;

    void forget();

private:
    void makeVoiceTracks();
    simulator::Handle<simulator::TreeItem> makeObject(const Item& item);
    simulator::Handle<simulator::Track> makeOtherTrack();
    Id add(Item item, simulator::Handle<simulator::TreeItem> object);
    void fill(Id item);
    void collectPlaces(Id parent, Kind kind, std::vector<Place>& found) const;
    simulator::Event& event(Id id) const;

    simulator::SharedState state_;
    Random& random_;
    std::vector<simulator::Handle<simulator::TreeItem>> objects_;
    std::map<const host::IProjectNode*, Id> events_;
    std::vector<Id> unusedVoiceTracks_;
};

} // namespace wybeta::tests
