// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IEditStep.h"
#include "simulator/Editor.h"
#include "simulator/ExtensionInstance.h"
#include "simulator/HostObject.h"
#include "tests/model/MirroredProject.h"
#include "tests/model/NaiveModel.h"
#include "tests/model/RandomLyrics.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace wybeta::tests {

// A user at work for a while, in the simulated editor and on the naive model. The random
// choices alone decide what happens; where bytes stand for them, it ends when they are used up.
class RandomSession {
public:
    // The extension may have been through sessions before, but is with no editor now.
    RandomSession(simulator::ExtensionInstance extension, const Random& random);
    ~RandomSession();
    RandomSession(const RandomSession&) = delete;
    RandomSession& operator=(const RandomSession&) = delete;

    // Returns what the editor and the model differed in, after all that was done; empty when they
    // agreed to the end. To be called once.
    std::string run();

private:
    struct Action {
        std::size_t weight;
        // Returns false when there was nothing to do it with.
        bool (RandomSession::*perform)();
    };
    static const std::vector<Action> kActions;

    void startProject();
    void watchCalls();
    std::string presentLyric();
    std::string history() const;

    // What the user does.
    void act();
    bool editNotes();
    bool addSomething();
    bool removeSomething();
    bool moveSomething();
    bool undo();
    bool redo();
    bool notify();
    bool changeSilently();
    void terminate();

    // What edits are made of.
    using Changes = std::vector<ModelChange>;
    void type(Changes& changes);
    void flag(Changes& changes);
    void changeKind(Changes& changes);
    void addNotes(Changes& changes);
    void deleteNotes(Changes& changes);
    void replaceNote(Changes& changes);
    void move(Kind kind, Changes& changes);
    void moveNote(Changes& changes) { move(Kind::Note, changes); }
    void exchangeNotes(Changes& changes);
    bool edit(const Changes& changes);

    // Each throws when the editor and the model differ.
    void compareSteps(const std::vector<Step>& expected) const;
    void compareLyrics() const;
    void close();

    std::vector<Id> reportedNotes(host::IEditStep& step) const;

    Random random_;
    std::optional<simulator::Editor> editor_;
    simulator::SharedState state_;
    MirroredProject project_;
    NaiveModel& model_;
    bool terminated_ = false;
    std::string misuse_;
    std::vector<std::string> log_;
};

} // namespace wybeta::tests
