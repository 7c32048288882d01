// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/faults/Scenario.h"

#include "tests/TrackNotes.h"

#include <cstddef>

namespace wybeta::tests {

namespace {

void beNew(FaultSession& /*session*/) {}

void know(FaultSession& session) {
    session.notify();
}

// Texts for three notes, two of them too long for a string to keep without an allocation.
void typeIntoMelody(FaultSession& session) {
    typeInto(noteAt(session.melody(), 0), "strengthsかstrengths");
}

void growInnerTrack(FaultSession& session) {
    session.innerTrack().add(session.makePart({"a new lyric of many letters", "lu"}));
    partOf(session.innerTrack()).insert(1, session.makeNote("in the middle"));
}

void shrinkInnerTrack(FaultSession& session) {
    session.remove(partOf(session.innerTrack()), 0);
}

void typed(FaultSession& session) {
    know(session);
    typeIntoMelody(session);
}

void grown(FaultSession& session) {
    know(session);
    growInnerTrack(session);
}

void shrunk(FaultSession& session) {
    know(session);
    shrinkInnerTrack(session);
}

void changedAllOver(FaultSession& session) {
    const auto passing = session.makeTrack({"passing"});
    session.project().add(passing);
    know(session);
    typeIntoMelody(session);
    growInnerTrack(session);
    session.remove(session.project(), 3);
    session.project().add(session.makeTrack({"coming"}));
}

template <void (*change)(FaultSession&)>
void done(FaultSession& session) {
    change(session);
    session.hook();
    session.keepSteps();
}

template <void (*change)(FaultSession&)>
void undone(FaultSession& session) {
    done<change>(session);
    session.steps().at(0)->undo();
}

void executeStep(FaultSession& session) {
    session.steps().at(0)->execute();
}

void undoStep(FaultSession& session) {
    session.steps().at(0)->undo();
}

void redoStep(FaultSession& session) {
    session.steps().at(0)->redo();
}

void reportStep(FaultSession& session) {
    session.steps().at(0)->reportChangedObjects(&session.collector());
}

// The host may drop all steps in the middle, the one at work among them.
void useSteps(FaultSession& session) {
    const auto& steps = session.steps();
    for (std::size_t i = 0; i < steps.size(); ++i) {
        steps[i]->undo();
        if (i < steps.size()) {
            steps[i]->redo();
        }
        if (i < steps.size()) {
            steps[i]->reportChangedObjects(&session.collector());
        }
    }
}

void notify(FaultSession& session) {
    session.notify();
}

void hook(FaultSession& session) {
    session.hook();
}

void initialize(FaultSession& session) {
    session.initialize();
}

void terminate(FaultSession& session) {
    session.terminate();
}

void openDocument(FaultSession& session) {
    session.extension().notification().documentOpened(&session.document());
}

void closeDocument(FaultSession& session) {
    session.extension().notification().documentClosing(&session.document());
}

} // namespace

void PrintTo(const Scenario& scenario, std::ostream* out) {
    *out << scenario.name;
}

std::string nameOf(const testing::TestParamInfo<Scenario>& info) {
    return info.param.name;
}

const std::vector<Scenario>& scenarios() {
    static const std::vector<Scenario> list{
        {"FirstNotification", beNew, notify, Memory::OfTheExtension},
        {"FirstHook", beNew, hook, Memory::OfTheExtension},
        {"NotificationOfALyric", typed, notify, Memory::OfTheExtension},
        {"HookOfALyric", typed, hook, Memory::OfTheExtension},
        {"HookOfNewNotes", grown, hook, Memory::OfTheExtension},
        {"HookOfFewerNotes", shrunk, hook, Memory::OfTheExtension},
        {"HookOfManyChanges", changedAllOver, hook, Memory::OfTheExtension},
        {"ExecuteOfALyric", undone<typed>, executeStep, Memory::OfTheExtension},
        {"UndoOfALyric", done<typed>, undoStep, Memory::OfTheExtension},
        {"RedoOfALyric", undone<typed>, redoStep, Memory::OfTheExtension},
        {"ReportOfALyric", done<typed>, reportStep, Memory::OfTheHost},
        {"UndoOfNewNotes", done<grown>, undoStep, Memory::OfNobody},
        {"RedoOfNewNotes", undone<grown>, redoStep, Memory::OfTheExtension},
        {"UndoOfFewerNotes", done<shrunk>, undoStep, Memory::OfTheExtension},
        {"RedoOfFewerNotes", undone<shrunk>, redoStep, Memory::OfNobody},
        {"Initialize", terminate, initialize, Memory::OfNobody},
        {"SecondInitialize", know, initialize, Memory::OfTheHost},
        {"Terminate", know, terminate, Memory::OfTheHost},
        {"DocumentOpened", know, openDocument, Memory::OfTheHost},
        {"DocumentClosing", know, closeDocument, Memory::OfTheHost},
    };
    return list;
}

const Scenario& stepsOfManyChanges() {
    static const Scenario scenario{"StepsOfManyChanges", done<changedAllOver>, useSteps,
                                   Memory::OfTheExtension};
    return scenario;
}

} // namespace wybeta::tests
