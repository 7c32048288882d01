// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/model/MirroredProject.h"

#include "host/IProjectTrack.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace wybeta::tests {

using namespace simulator;

namespace {

constexpr std::size_t kVoiceTracks = 5;

void setState(Event& event, const EventState& state) {
    if (state.kind) {
        event.setKind(*state.kind == Kind::Note ? Event::Kind::Note : Event::Kind::Other);
    }
    if (state.flagged) {
        event.flagged = *state.flagged;
    }
    if (state.lyric) {
        event.setLyric(*state.lyric);
    }
}

bool isEvent(Kind kind) {
    return kind == Kind::Note || kind == Kind::OtherEvent;
}

bool canHold(Kind parent, Kind child) {
    switch (parent) {
    case Kind::Project:
    case Kind::Folder:
        return child == Kind::Folder || child == Kind::VoiceTrack || child == Kind::OtherTrack;
    case Kind::VoiceTrack:
    case Kind::OtherTrack:
        return child == Kind::Part || child == Kind::OtherChild;
    case Kind::Part:
        return isEvent(child);
    default:
        return false;
    }
}

} // namespace

MirroredProject::MirroredProject(TreeNode& top, Random& random)
    : state_(top.state()), random_(random), objects_({Handle<TreeItem>(&top)}) {
    makeVoiceTracks();
}

// All of them are made at once: the order of their addresses matters to the module, and names in
// the model have to follow it.
void MirroredProject::makeVoiceTracks() {
    std::vector<Handle<Track>> tracks;
    tracks.reserve(kVoiceTracks);
    for (std::size_t i = 0; i < kVoiceTracks; ++i) {
        tracks.push_back(makeVoiceTrack(state_));
    }
    const auto address = [](const auto& track) {
        return reinterpret_cast<std::uintptr_t>(static_cast<host::IProjectTrack*>(track.get()));
    };
    std::sort(tracks.begin(), tracks.end(),
              [address](const auto& a, const auto& b) { return address(a) < address(b); });
    for (const auto& track : tracks) {
        Item item;
        item.kind = Kind::VoiceTrack;
        const Id id = add(item, track);
        const std::size_t place = random_.below(unusedVoiceTracks_.size() + 1);
        unusedVoiceTracks_.insert(unusedVoiceTracks_.begin() + static_cast<std::ptrdiff_t>(place),
                                  id);
    }
}

bool MirroredProject::canCreate(Kind kind) const {
    return kind != Kind::VoiceTrack || !unusedVoiceTracks_.empty();
}

Id MirroredProject::create(Kind kind) {
    Id id = kNobody;
    if (kind == Kind::VoiceTrack) {
        id = unusedVoiceTracks_.back();
        unusedVoiceTracks_.pop_back();
    } else {
        Item item;
        item.kind = kind;
        item.noIteratorWhenEmpty = kind == Kind::Part && random_.oneIn(2);
        item.value = random_.oneIn(12) ? -1 : static_cast<int>(random_.below(128));
        item.flagged = random_.oneIn(3);
        item.lyric = isEvent(kind) && random_.oneIn(2) ? randomLyric(random_, "") : "";
        id = add(item, makeObject(item));
    }
    fill(id);
    return id;
}

Handle<TreeItem> MirroredProject::makeObject(const Item& item) {
    switch (item.kind) {
    case Kind::Folder:
        return makeHandle<Folder>(state_);
    case Kind::OtherTrack:
        return makeOtherTrack();
    case Kind::Part: {
        const auto part = makeHandle<Part>(state_);
        if (item.noIteratorWhenEmpty) {
            part->answerNoIteratorWhenEmpty();
        }
        return part;
    }
    case Kind::Note:
    case Kind::OtherEvent: {
        const auto event = makeHandle<Event>(state_);
        event->pitch = item.value;
        setState(*event, {item.kind, item.flagged, item.lyric});
        return event;
    }
    default:
        return makeHandle<TreeNode>(state_, "Automation", "automation");
    }
}

// Each misses something that makes a voice track.
Handle<Track> MirroredProject::makeOtherTrack() {
    const bool isInstrument = random_.oneIn(2);
    auto track = makeHandle<Track>(state_, isInstrument ? "instrument" : "audio");
    if (!isInstrument) {
        track->setDevice(makeDevice(state_, Plugin::Kind::VoiceSynthesizer));
    } else if (random_.oneIn(2)) {
        track->setDevice(makeDevice(state_, Plugin::Kind::Other));
    }
    return track;
}

Id MirroredProject::add(Item item, Handle<TreeItem> object) {
    const Id id = model.add(std::move(item));
    if (auto* const event = dynamic_cast<Event*>(object.get())) {
        events_[event->node()] = id;
    }
    objects_.push_back(std::move(object));
    return id;
}

void MirroredProject::fill(Id item) {
    const Kind kind = model[item].kind;
    if (canHold(kind, Kind::Part)) {
        for (std::size_t left = random_.below(3) + 1; left > 0; --left) {
            append(item, create(random_.oneIn(8) ? Kind::OtherChild : Kind::Part));
        }
    } else if (kind == Kind::Part) {
        for (std::size_t left = random_.below(5); left > 0; --left) {
            append(item, create(random_.oneIn(8) ? Kind::OtherEvent : Kind::Note));
        }
    }
}

void MirroredProject::append(Id parent, Id item) {
    node(parent).add(objects_[item]);
    model.apply(NaiveModel::insertion(parent, model[parent].children.size(), item));
}

void MirroredProject::alter(const ModelChange& change) {
    setState(event(change.item), change.after);
    model.apply(change);
}

std::vector<Place> MirroredProject::places(Kind kind) const {
    std::vector<Place> found;
    collectPlaces(kProject, kind, found);
    return found;
}

void MirroredProject::collectPlaces(Id parent, Kind kind, std::vector<Place>& found) const {
    const auto& children = model[parent].children;
    for (std::size_t i = 0; i < children.size(); ++i) {
        if (model[children[i]].kind == kind) {
            found.push_back({parent, i, children[i]});
        }
        collectPlaces(children[i], kind, found);
    }
}

std::vector<Id> MirroredProject::parentsFor(Kind kind) const {
    std::vector<Id> parents;
    for (const Kind parent : {Kind::Folder, Kind::VoiceTrack, Kind::OtherTrack, Kind::Part}) {
        for (const auto& found : places(parent)) {
            if (canHold(parent, kind)) {
                parents.push_back(found.item);
            }
        }
    }
    if (canHold(Kind::Project, kind)) {
        parents.push_back(kProject);
    }
    return parents;
}

TreeNode& MirroredProject::node(Id id) const {
    return dynamic_cast<TreeNode&>(*objects_[id]);
}

Event& MirroredProject::event(Id id) const {
    return dynamic_cast<Event&>(*objects_[id]);
}

std::string MirroredProject::lyricInEditor(Id id) const {
    return event(id).lyric();
}

void MirroredProject::forget() {
    objects_.clear();
}

simulator::Change MirroredProject::realChange(const ModelChange& change) const {
    switch (change.type) {
    case ModelChange::Type::Insert:
        return simulator::insertion(node(change.parent), change.index, objects_[change.item]);
    case ModelChange::Type::Remove:
        return simulator::removal(node(change.parent), *objects_[change.item]);
    default:
        const Handle<Event> altered(&event(change.item));
        return {[altered, state = change.after] { setState(*altered, state); },
                [altered, state = change.before] { setState(*altered, state); }};
    }
}

} // namespace wybeta::tests
