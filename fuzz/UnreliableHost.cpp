// SPDX-License-Identifier: GPL-3.0-or-later
//
// The input is a session in an editor that breaks its word: at calls that the input chooses it
// answers null or false, throws, or works on the project and calls the extension back. Whatever it
// does, the extension gives everything back and divides the next lyric as ever.
#include "fuzz/Check.h"
#include "fuzz/ModuleExtension.h"
#include "simulator/CallInterceptor.h"
#include "simulator/EditContext.h"
#include "simulator/Editor.h"
#include "simulator/Event.h"
#include "simulator/ExtensionInstance.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/SimulatedHost.h"
#include "tests/model/RandomLyrics.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::fuzz {

namespace {

using namespace simulator;
using tests::Random;

struct HostGivesUp {};

// A call that throws leaves the history out of step with the project, so that the place where an
// item was may be gone.
void insertIfAbsent(TreeNode& node, std::size_t index, const Handle<TreeItem>& item) {
    const auto& items = node.items();
    const bool isThere = std::any_of(items.begin(), items.end(), [&item](const auto& other) {
        return other.get() == item.get();
    });
    if (!isThere) {
        node.insert(std::min(index, items.size()), item);
    }
}

void removeIfPresent(TreeNode& node, const TreeItem* item) {
    const auto& items = node.items();
    const bool isThere = std::any_of(items.begin(), items.end(),
                                     [item](const auto& other) { return other.get() == item; });
    if (item != nullptr && isThere) {
        node.remove(*item);
    }
}

Change safeInsertion(TreeNode& parent, std::size_t index, const Handle<TreeItem>& item) {
    const Handle<TreeNode> node(&parent);
    return {[node, index, item] { insertIfAbsent(*node, index, item); },
            [node, item] { removeIfPresent(*node, item.get()); }};
}

Change safeRemoval(TreeNode& parent, std::size_t index) {
    const auto inserted = safeInsertion(parent, index, parent.items()[index]);
    return {inserted.revert, inserted.apply};
}

class HostileSession {
public:
    explicit HostileSession(std::string_view choices) : random_(choices) { editor_->notify(); }

    void run() {
        buildProject();
        while (!random_.isUsedUp()) {
            plan();
            try {
                act();
            } catch (const HostGivesUp&) {
            }
        }
        close();
    }

private:
    TreeNode& project() { return editor_->project(); }
    const ExtensionInstance& extension() { return editor_->extension(); }

    void buildProject() {
        for (int i = 0; i < 2; ++i) {
            project().add(makeTrack());
        }
    }

    Handle<TreeItem> makeTrack() {
        const auto track =
            random_.oneIn(8) ? makeHandle<Track>(state_, "audio") : makeVoiceTrack(state_);
        for (std::size_t left = random_.below(3); left > 0; --left) {
            track->add(makePart());
        }
        tracks_.emplace_back(track);
        return track;
    }

    Handle<TreeItem> makePart() {
        if (random_.oneIn(12)) {
            return makeHandle<TreeNode>(state_, "Automation", "automation");
        }
        const auto part = makeHandle<Part>(state_);
        for (std::size_t left = random_.below(5); left > 0; --left) {
            part->add(makeEvent());
        }
        return part;
    }

    Handle<TreeItem> makeEvent() {
        if (random_.oneIn(16)) {
            return {};
        }
        const auto event =
            makeHandle<Event>(state_, random_.oneIn(8) ? Event::Kind::Other : Event::Kind::Note);
        type(*event);
        event->flagged = random_.oneIn(2);
        return event;
    }

    // Texts of any UTF-16 units now and then.
    void type(Event& event) {
        if (!random_.oneIn(4)) {
            event.setLyric(tests::randomLyric(random_, ""));
            return;
        }
        std::u16string text;
        for (std::size_t left = random_.below(5); left > 0; --left) {
            text += static_cast<char16_t>(random_.below(256) << 8 | random_.below(256));
        }
        event.setUtf16(random_.oneIn(4) ? "phoneme" : "lyrics", text);
    }

    // All items of a type in the project, in order.
    template <class Item>
    void collect(TreeNode& node, std::vector<Handle<Item>>& found) {
        for (const auto& item : node.items()) {
            if (auto* const wanted = dynamic_cast<Item*>(item.get())) {
                found.emplace_back(wanted);
            }
            if (auto* const inner = dynamic_cast<TreeNode*>(item.get())) {
                collect(*inner, found);
            }
        }
    }

    template <class Item>
    Handle<Item> anyOf() {
        std::vector<Handle<Item>> found;
        collect(project(), found);
        return found.empty() ? Handle<Item>() : found[random_.below(found.size())];
    }

    void edit(const Change& change) { editor_->edit({change}); }

    void typeSomewhere() {
        if (const auto event = anyOf<Event>()) {
            type(*event);
            event->flagged = random_.oneIn(4) ? !event->flagged : true;
            extension().editHook().hookEdit(project().argument(), makeContext().get());
        }
    }

    // Steps of hooks that are no edits are kept aside, to be undone and redone in any order.
    Handle<EditContext> makeContext() {
        contexts_.push_back(makeHandle<EditContext>(state_));
        return contexts_.back();
    }

    void editLyric() {
        if (const auto event = anyOf<Event>()) {
            edit({[event, lyric = tests::randomLyric(random_, "")] {
                      event->setLyric(lyric);
                      event->flagged = true;
                  },
                  [event] { event->setLyric(""); }});
        }
    }

    template <class Node>
    void addTo(const Handle<TreeItem>& item) {
        if (const auto node = anyOf<Node>()) {
            edit(safeInsertion(*node, random_.below(node->items().size() + 1), item));
        }
    }

    void addTopTrack() {
        Handle<TreeItem> item = makeTrack();
        if (random_.oneIn(4)) {
            const auto folder = makeHandle<Folder>(state_);
            folder->add(item);
            item = folder;
        }
        edit(safeInsertion(project(), random_.below(project().items().size() + 1), item));
    }

    void removeSomething() {
        const auto inner = anyOf<TreeNode>();
        TreeNode& node = inner && !random_.oneIn(4) ? *inner : project();
        if (!node.items().empty()) {
            edit(safeRemoval(node, random_.below(node.items().size())));
        }
    }

    void useKeptStep() {
        if (contexts_.empty()) {
            return;
        }
        const auto context = random_.pick(contexts_);
        for (const auto& step : EditSteps(context->steps())) {
            useStep(*step);
        }
    }

    void useStep(host::IEditStep& step) {
        switch (random_.below(4)) {
        case 0:
            step.execute();
            break;
        case 1:
            step.undo();
            break;
        case 2:
            step.redo();
            break;
        default:
            step.reportChangedObjects(makeHandle<ObjectCollector>(state_).get());
        }
    }

    void notify() {
        const auto node = anyOf<TreeNode>();
        const bool isInner = node && random_.oneIn(3);
        auto* const argument = isInner ? node->argument() : project().argument();
        extension().notification().projectChanged(random_.oneIn(8) ? nullptr : argument);
    }

    void initializeAgain() {
        extension().base().terminate();
        extension().base().initialize(hosts_.context());
    }

    void removeAllTracks() {
        while (!project().items().empty()) {
            project().remove(*project().items()[0]);
        }
    }

    void act() {
        switch (random_.below(16)) {
        case 0:
        case 1:
            return typeSomewhere();
        case 2:
        case 3:
        case 4:
            return editLyric();
        case 5:
            return addTopTrack();
        case 6:
            return addTo<Track>(makePart());
        case 7:
        case 8:
            return addTo<Part>(makeEvent());
        case 9:
            return removeSomething();
        case 10:
        case 11:
            editor_->undo();
            return;
        case 12:
            editor_->redo();
            return;
        case 13:
            return useKeptStep();
        case 14:
            return random_.oneIn(4) ? initializeAgain() : contexts_.clear();
        default:
            return notify();
        }
    }

    // Chooses the calls at which the host breaks its word during the next action, and how.
    void plan() {
        state_->calls.stopIntercepting();
        if (random_.oneIn(3)) {
            return;
        }
        const std::size_t interval = random_.below(64) + 1;
        const std::size_t misdeed = random_.below(10);
        const bool isOnce = random_.oneIn(2);
        state_->calls.intercept([this, interval, misdeed, isOnce, calls = std::size_t{0},
                                 isActing = false](const HostCall&) mutable {
            ++calls;
            const bool isDue = isOnce ? calls == interval : calls % interval == 0;
            if (isActing || !isDue) {
                return Answer::Normal;
            }
            isActing = true;
            const auto answer = misbehave(misdeed);
            isActing = false;
            return answer;
        });
    }

    Answer misbehave(std::size_t misdeed) {
        switch (misdeed) {
        case 0:
            throw HostGivesUp();
        case 1:
            notify();
            return Answer::Normal;
        case 2:
            extension().editHook().hookEdit(project().argument(), makeContext().get());
            return Answer::Normal;
        case 3:
            useKeptStep();
            return Answer::Normal;
        case 4:
            removeAllTracks();
            return Answer::Normal;
        case 5:
            initializeAgain();
            return Answer::Normal;
        default:
            return Answer::Refuse;
        }
    }

    void checkDivides() {
        const auto track = makeVoiceTrack(state_);
        const auto part = makeHandle<Part>(state_);
        const auto first = makeHandle<Event>(state_);
        const auto second = makeHandle<Event>(state_);
        part->add(first);
        part->add(second);
        track->add(part);
        project().add(track);
        editor_->notify();
        editor_->type(*first, "かき");
        checkEqual({first->lyric(), second->lyric()}, {"かき[k a]", "[k i]"});
    }

    void close() {
        state_->calls.stopIntercepting();
        checkDivides();
        contexts_.clear();
        editor_.reset();
        check(state_->ledger.isBalanced(), "references are left or were given back twice");
    }

    Random random_;
    std::optional<Editor> editor_{moduleExtension()};
    const SharedState state_ = editor_->state();
    tests::SimulatedHost hosts_{state_};
    std::vector<Handle<EditContext>> contexts_;
    // Steps borrow the tracks that they are about, so an editor keeps those as long as its history.
    std::vector<Handle<TreeItem>> tracks_;
};

} // namespace

} // namespace wybeta::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    wybeta::fuzz::HostileSession(wybeta::fuzz::textOf(data, size)).run();
    return 0;
}
