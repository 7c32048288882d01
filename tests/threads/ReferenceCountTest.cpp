// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the extension makes may be held and given back on any thread. All else is for one thread at
// a time. Without a sanitizer, a count that is not atomic comes out wrong only now and then; the
// build with ThreadSanitizer reports it in each run.
#include "host/IEditStep.h"
#include "simulator/EditContext.h"
#include "simulator/Editor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/RunningModule.h"
#include "simulator/Track.h"
#include "tests/Options.h"
#include "tests/TrackNotes.h"

#include "pluginterfaces/base/funknown.h"
#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string_view>
#include <thread>
#include <vector>

namespace wybeta::tests {
namespace {

using simulator::Editor;
using simulator::Event;
using simulator::makeHandle;
using Steinberg::FUnknown;
using Steinberg::uint32;

using Objects = std::vector<FUnknown*>;

constexpr int kThreads = 4;
constexpr int kRounds = 20'000;

// Of two syllables each; one is typed after the other, since only a new lyric is divided.
constexpr std::string_view kLyrics[] = {"かき", "さく"};

// Threads that all begin at once and are joined at the end. The gate orders nothing, so that a race
// is not hidden.
class Threads {
public:
    explicit Threads(const std::function<void()>& work) {
        for (int i = 0; i < kThreads; ++i) {
            threads_.emplace_back([this, work] {
                while (!isOpen_.load(std::memory_order_relaxed)) {
                    std::this_thread::yield();
                }
                work();
            });
        }
        isOpen_.store(true, std::memory_order_relaxed);
    }
    ~Threads() {
        for (auto& thread : threads_) {
            thread.join();
        }
    }
    Threads(const Threads&) = delete;
    Threads& operator=(const Threads&) = delete;

private:
    std::atomic<bool> isOpen_{false};
    std::vector<std::thread> threads_;
};

uint32 referencesOf(FUnknown& object) {
    object.addRef();
    return object.release();
}

std::vector<uint32> referencesOf(const Objects& objects) {
    std::vector<uint32> counts;
    for (auto* const object : objects) {
        counts.push_back(referencesOf(*object));
    }
    return counts;
}

void takeAndGiveBack(const Objects& objects) {
    for (int round = 0; round < kRounds; ++round) {
        for (auto* const object : objects) {
            object->addRef();
            object->release();
        }
    }
}

// Gives the object back on each thread, as the holders of all its references. Returns how many of
// them were told that theirs was the last.
int giveBackOnEachThread(FUnknown* object) {
    for (int i = 1; i < kThreads; ++i) {
        object->addRef();
    }
    std::atomic<int> lastReferences{0};
    {
        const Threads threads([object, &lastReferences] {
            if (object->release() == 0) {
                lastReferences.fetch_add(1, std::memory_order_relaxed);
            }
        });
    }
    return lastReferences;
}

// A track of two notes, which the extension knows. Returns the first note.
Event& addKnownNotes(Editor& editor) {
    const auto track = simulator::makeVoiceTrack(editor.state());
    const auto part = makeHandle<simulator::Part>(editor.state());
    const auto first = makeHandle<Event>(editor.state());
    part->add(first);
    part->add(makeHandle<Event>(editor.state()));
    track->add(part);
    editor.project().add(track);
    editor.notify();
    return *first;
}

// The step that typing makes, of which the caller holds the only reference.
host::IEditStep* stepOfTyping(Editor& editor, Event& note, std::string_view lyric) {
    typeInto(note, lyric);
    const auto context = makeHandle<simulator::EditContext>(editor.state());
    editor.extension().editHook().hookEdit(editor.project().argument(), context.get());
    auto step = context->steps().at(0);
    return step.take();
}

void runInEditor(const std::function<void(Editor&)>& work) {
    simulator::RunningModule module(modulePath());
    module.use(work);
    module.stop();
}

TEST(ReferenceCount, ComesOutRightWhenFourThreadsCountWhileAFifthWorks) {
    runInEditor([](Editor& editor) {
        auto& note = addKnownNotes(editor);
        editor.type(note, kLyrics[1]);
        const auto step = editor.lastSteps().at(0);
        const Objects objects{&editor.extension().base(), &editor.extension().editHook(), step};
        const auto before = referencesOf(objects);
        {
            const Threads threads([&objects] { takeAndGiveBack(objects); });
            for (int round = 0; round < 100; ++round) {
                step->undo();
                step->redo();
                editor.notify();
                editor.type(note, kLyrics[round % 2]);
            }
        }
        EXPECT_EQ(referencesOf(objects), before);
    });
}

TEST(ReferenceCount, LetsAnyThreadGiveAStepBackLast) {
    runInEditor([](Editor& editor) {
        auto& note = addKnownNotes(editor);
        for (int round = 0; round < 100; ++round) {
            EXPECT_EQ(giveBackOnEachThread(stepOfTyping(editor, note, kLyrics[round % 2])), 1);
        }
    });
}

TEST(ReferenceCount, LetsAnyThreadGiveTheExtensionBackLast) {
    simulator::RunningModule module(modulePath());
    for (int round = 0; round < 3; ++round) {
        Steinberg::PClassInfo info;
        module.factory().getClassInfo(0, &info);
        void* extension = nullptr;
        module.factory().createInstance(info.cid, Steinberg::IPluginBase_iid, &extension);
        EXPECT_EQ(giveBackOnEachThread(static_cast<Steinberg::IPluginBase*>(extension)), 1);
    }
    module.stop();
}

} // namespace
} // namespace wybeta::tests
