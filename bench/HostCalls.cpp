// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/HostCalls.h"

#include "host/IProjectEvent.h"
#include "host/IProjectNode.h"

#include "pluginterfaces/base/fvariant.h"

namespace wybeta::bench {

namespace {

using namespace host;
using Steinberg::FUnknown;
using Steinberg::FVariant;

template <class I>
I* ask(FUnknown* object) {
    void* found = nullptr;
    object->queryInterface(I::iid, &found);
    return static_cast<I*>(found);
}

void readText(IProjectNoteEvent& note, const char* key) {
    FVariant value;
    note.getAttribute(key, &value);
}

void readNote(IPartEvent& event, FUnknown* timeContext) {
    event.addRef();
    auto* const projectEvent = ask<IProjectEvent>(&event);
    auto* const note = ask<IProjectNoteEvent>(&event);
    event.start(timeContext);
    event.length(timeContext);
    projectEvent->value();
    readText(*note, "lyrics");
    readText(*note, "phoneme");
    note->release();
    projectEvent->release();
    event.isFlagged();
    event.release();
}

template <class Visit>
void forEachChild(FUnknown* parent, Visit visit) {
    auto* const node = ask<IProjectNode>(parent);
    auto* const iterator = node->children();
    while (!iterator->atEnd()) {
        visit(iterator->next());
    }
    iterator->release();
    node->release();
}

} // namespace

std::size_t makeHostCalls(simulator::TreeNode& project) {
    std::size_t notes = 0;
    forEachChild(project.argument(), [&](IProjectItem* track) {
        forEachChild(track, [&](IProjectItem* part) {
            auto* const timeContext = project.timeContext(part);
            forEachChild(part, [&](IProjectItem* event) {
                readNote(static_cast<IPartEvent&>(*event), timeContext);
                ++notes;
            });
            timeContext->release();
        });
    });
    return notes;
}

} // namespace wybeta::bench
