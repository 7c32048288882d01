// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/model/RandomSession.h"

#include "simulator/CallInterceptor.h"
#include "simulator/EditContext.h"
#include "simulator/ProjectTree.h"
#include "tests/model/SessionText.h"

#include <exception>
#include <stdexcept>
#include <utility>

namespace wybeta::tests {

using namespace simulator;

namespace {

constexpr std::size_t kActionCount = 40;

class Difference : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace

const std::vector<RandomSession::Action> RandomSession::kActions = {
    {40, &RandomSession::editNotes},
    {10, &RandomSession::undo},
    {6, &RandomSession::redo},
    {6, &RandomSession::notify},
    {4, &RandomSession::changeSilently},
    {6, &RandomSession::addSomething},
    {3, &RandomSession::removeSomething},
    {3, &RandomSession::moveSomething},
};

RandomSession::RandomSession(ExtensionInstance extension, const Random& random)
    : random_(random), editor_(std::move(extension)), state_(editor_->state()),
      project_(editor_->project(), random_), model_(project_.model) {
    // Lets the extension forget the tracks of earlier sessions.
    editor_->notify();
    model_.notifiesInSteps = random_.oneIn(5);
    watchCalls();
    startProject();
}

RandomSession::~RandomSession() {
    state_->calls.stopIntercepting();
}

std::string RandomSession::run() {
    try {
        const bool terminates = random_.oneIn(4);
        const std::size_t lastActions = random_.below(8) + 1;
        for (std::size_t i = 0; i < kActionCount && !random_.isUsedUp(); ++i) {
            if (terminates && i + lastActions == kActionCount) {
                terminate();
            }
            act();
            compareLyrics();
        }
        close();
        return "";
    } catch (const std::exception& difference) {
        return history() + difference.what();
    }
}

void RandomSession::startProject() {
    for (const Kind kind : {Kind::Folder, Kind::OtherTrack, Kind::VoiceTrack, Kind::VoiceTrack}) {
        const Id parent = random_.pick(project_.parentsFor(kind));
        project_.append(parent, project_.create(kind));
    }
    log_.push_back(" " + described(model_, kProject) +
                   (model_.notifiesInSteps ? "; the editor notifies while steps run" : ""));
}

std::string RandomSession::history() const {
    std::string text;
    for (std::size_t i = 0; i < log_.size(); ++i) {
        text += std::to_string(i) + "." + log_[i] + "\n";
    }
    return text + "Then: " + described(model_, kProject) + "\n";
}

std::string RandomSession::presentLyric() {
    const auto notes = project_.places(Kind::Note);
    return notes.empty() ? "" : model_[random_.pick(notes).item].lyric;
}

void RandomSession::act() {
    std::size_t weights = 0;
    for (const auto& action : kActions) {
        weights += action.weight;
    }
    bool done = false;
    while (!done) {
        std::size_t left = random_.below(weights);
        auto action = kActions.begin();
        while (left >= action->weight) {
            left -= action->weight;
            ++action;
        }
        done = (this->*action->perform)();
    }
}

bool RandomSession::editNotes() {
    Changes changes;
    if (!random_.oneIn(4)) {
        for (std::size_t left = random_.oneIn(4) ? 3 : 1; left > 0; --left) {
            type(changes);
        }
    }
    static constexpr void (RandomSession::*kOthers[])(Changes&) = {
        &RandomSession::flag,        &RandomSession::flag,        &RandomSession::addNotes,
        &RandomSession::addNotes,    &RandomSession::deleteNotes, &RandomSession::deleteNotes,
        &RandomSession::moveNote,    &RandomSession::moveNote,    &RandomSession::moveNote,
        &RandomSession::replaceNote, &RandomSession::changeKind,  &RandomSession::exchangeNotes};
    if (changes.empty() || random_.oneIn(4)) {
        (this->*random_.pick(kOthers))(changes);
    }
    return edit(changes);
}

bool RandomSession::addSomething() {
    static constexpr Kind kKinds[] = {Kind::VoiceTrack, Kind::VoiceTrack, Kind::OtherTrack,
                                      Kind::Folder,     Kind::Part,       Kind::Part,
                                      Kind::OtherChild, Kind::OtherEvent, Kind::OtherEvent};
    const Kind kind = random_.pick(kKinds);
    const auto parents = project_.parentsFor(kind);
    if (parents.empty() || !project_.canCreate(kind)) {
        return false;
    }
    const Id parent = random_.pick(parents);
    const std::size_t index = random_.below(model_[parent].children.size() + 1);
    return edit({NaiveModel::insertion(parent, index, project_.create(kind))});
}

bool RandomSession::removeSomething() {
    static constexpr Kind kKinds[] = {Kind::VoiceTrack, Kind::OtherTrack, Kind::Folder,
                                      Kind::Part,       Kind::OtherChild, Kind::OtherEvent};
    const auto found = project_.places(random_.pick(kKinds));
    if (found.empty()) {
        return false;
    }
    const Place place = random_.pick(found);
    return edit({model_.removal(place.parent, place.item)});
}

bool RandomSession::moveSomething() {
    static constexpr Kind kKinds[] = {Kind::VoiceTrack, Kind::Part, Kind::Part, Kind::OtherEvent};
    Changes changes;
    move(random_.pick(kKinds), changes);
    return edit(changes);
}

bool RandomSession::undo() {
    if (!editor_->canUndo()) {
        return false;
    }
    log_.emplace_back(" undo");
    model_.undo();
    return editor_->undo();
}

bool RandomSession::redo() {
    if (!editor_->canRedo()) {
        return false;
    }
    log_.emplace_back(" redo");
    model_.redo();
    return editor_->redo();
}

bool RandomSession::notify() {
    if (terminated_) {
        return false;
    }
    std::vector<Id> nodes = {kProject, kProject, kProject, kProject};
    for (const Kind kind : {Kind::Folder, Kind::VoiceTrack, Kind::Part}) {
        const auto found = project_.places(kind);
        nodes.push_back(found.empty() ? kNobody : random_.pick(found).item);
    }
    const Id id = random_.pick(nodes);
    log_.push_back(id == kNobody ? " notify of nothing" : " notify of " + std::to_string(id));
    editor_->extension().notification().projectChanged(
        id == kNobody ? nullptr : project_.node(id).argument());
    if (id != kNobody) {
        model_.notify(id);
    }
    return true;
}

// The editor itself changes events, and tells nobody.
bool RandomSession::changeSilently() {
    Changes changes;
    if (random_.oneIn(3)) {
        flag(changes);
    } else {
        type(changes);
    }
    log_.push_back(" silently" + described(model_, changes));
    for (const auto& change : changes) {
        project_.alter(change);
    }
    return !changes.empty();
}

void RandomSession::terminate() {
    log_.emplace_back(" terminate");
    editor_->terminate();
    model_.terminate();
    terminated_ = true;
}

void RandomSession::type(Changes& changes) {
    const auto notes = project_.places(Kind::Note);
    if (!notes.empty()) {
        const Id note = random_.pick(notes).item;
        changes.push_back(
            model_.alteration(note, {std::nullopt, true, randomLyric(random_, presentLyric())}));
    }
}

void RandomSession::flag(Changes& changes) {
    const auto notes = project_.places(Kind::Note);
    if (!notes.empty()) {
        const Id note = random_.pick(notes).item;
        changes.push_back(model_.alteration(note, {std::nullopt, !model_[note].flagged, {}}));
    }
}

void RandomSession::changeKind(Changes& changes) {
    const Kind before = random_.oneIn(2) ? Kind::Note : Kind::OtherEvent;
    const auto found = project_.places(before);
    if (!found.empty() && random_.oneIn(4)) {
        const Kind after = before == Kind::Note ? Kind::OtherEvent : Kind::Note;
        changes.push_back(model_.alteration(random_.pick(found).item, {after, {}, {}}));
    }
}

void RandomSession::addNotes(Changes& changes) {
    const auto parts = project_.parentsFor(Kind::Note);
    for (std::size_t left = parts.empty() ? 0 : random_.below(3) + 1; left > 0; --left) {
        const Id part = random_.pick(parts);
        const std::size_t index = random_.below(model_[part].children.size() + 1);
        changes.push_back(NaiveModel::insertion(part, index, project_.create(Kind::Note)));
    }
}

// From the last to the first, so that undo finds the places from the first to the last.
void RandomSession::deleteNotes(Changes& changes) {
    const auto notes = project_.places(Kind::Note);
    const std::size_t chances = random_.below(8) + 1;
    for (auto place = notes.rbegin(); place != notes.rend(); ++place) {
        if (random_.oneIn(chances)) {
            changes.push_back(model_.removal(place->parent, place->item));
        }
    }
}

void RandomSession::replaceNote(Changes& changes) {
    const auto notes = project_.places(Kind::Note);
    if (!notes.empty()) {
        const Place place = random_.pick(notes);
        changes.push_back(model_.removal(place.parent, place.item));
        changes.push_back(
            NaiveModel::insertion(place.parent, place.index, project_.create(Kind::Note)));
    }
}

void RandomSession::move(Kind kind, Changes& changes) {
    const auto found = project_.places(kind);
    if (found.empty()) {
        return;
    }
    const Place from = random_.pick(found);
    const Id to = random_.pick(project_.parentsFor(kind));
    const std::size_t left = model_[to].children.size() - (to == from.parent ? 1 : 0);
    changes.push_back(model_.removal(from.parent, from.item));
    changes.push_back(NaiveModel::insertion(to, random_.below(left + 1), from.item));
}

void RandomSession::exchangeNotes(Changes& changes) {
    const auto notes = project_.places(Kind::Note);
    const Place a = notes.empty() ? Place{} : random_.pick(notes);
    const Place b = notes.empty() ? Place{} : random_.pick(notes);
    if (a.parent != b.parent) {
        changes.push_back(model_.removal(a.parent, a.item));
        changes.push_back(model_.removal(b.parent, b.item));
        changes.push_back(NaiveModel::insertion(a.parent, a.index, b.item));
        changes.push_back(NaiveModel::insertion(b.parent, b.index, a.item));
    }
}

bool RandomSession::edit(const Changes& changes) {
    if (changes.empty()) {
        return false;
    }
    log_.push_back(" edit:" + described(model_, changes));
    std::vector<simulator::Change> real;
    for (const auto& change : changes) {
        real.push_back(project_.realChange(change));
    }
    const auto expected = model_.edit(changes);
    editor_->edit(std::move(real));
    compareSteps(expected);
    return true;
}

void RandomSession::watchCalls() {
    state_->calls.intercept([this](const HostCall& call) {
        if (call.object.isHeldOnce() && dynamic_cast<const TreeItem*>(&call.object) != nullptr) {
            misuse_ = "the module called " + std::string(call.name) + " of an object that was gone";
        }
        const bool isInStep = call.name == "IProjectEditContext.addEditStep" ||
                              call.name == "IProjectNoteEvent.setAttribute";
        if (isInStep && model_.notifiesInSteps && !terminated_) {
            editor_->notify();
        }
        return Answer::Normal;
    });
}

void RandomSession::compareSteps(const std::vector<Step>& expected) const {
    std::vector<std::vector<Id>> steps;
    steps.reserve(expected.size());
    for (const auto& step : expected) {
        steps.push_back(step.notes);
    }
    std::vector<std::vector<Id>> found;
    for (const auto& step : editor_->lastSteps()) {
        found.push_back(reportedNotes(*step));
    }
    if (found != steps) {
        throw Difference("expected" + described(steps) + "\nfound" + described(found));
    }
}

std::vector<Id> RandomSession::reportedNotes(host::IEditStep& step) const {
    const auto collector = makeHandle<ObjectCollector>(state_);
    step.reportChangedObjects(collector.get());
    std::vector<Id> notes;
    for (auto* const object : collector->objects()) {
        const auto place = project_.events().find(object);
        notes.push_back(place != project_.events().end() ? place->second : kNobody);
    }
    return notes;
}

void RandomSession::compareLyrics() const {
    for (const auto& [object, id] : project_.events()) {
        const std::string found = project_.lyricInEditor(id);
        if (found != model_[id].lyric) {
            throw Difference("note " + std::to_string(id) + ": expected " +
                             quoted(model_[id].lyric) + ", found " + quoted(found));
        }
    }
    if (!misuse_.empty()) {
        throw Difference(misuse_);
    }
}

// Ends the session; nothing of it may be left.
void RandomSession::close() {
    state_->calls.stopIntercepting();
    project_.forget();
    editor_.reset();
    if (!state_->ledger.isBalanced()) {
        throw Difference(state_->ledger.report());
    }
    if (state_->ledger.objectsAlive() != 0) {
        throw Difference("objects of the editor are left");
    }
}

} // namespace wybeta::tests
