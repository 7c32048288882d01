// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a walk over the project costs, beside the calls into the host that it can't do without.
#include "bench/HostCalls.h"
#include "simulator/Editor.h"
#include "simulator/ModuleFile.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace {

using namespace wybeta;
using namespace wybeta::simulator;

Steinberg::IPluginFactory& factory() {
    static const ModuleFile module("WyBeta.vst3/Contents/x86_64-linux/WyBeta.so");
    static const auto factory = Steinberg::owned(module.getPluginFactory());
    return *factory;
}

// An editor with one track of many notes that has been walked over once.
class Song {
public:
    Song(std::size_t notes, std::size_t flaggedEvery) : editor_(factory()) {
        part_ = make<Part>(editor_.state());
        for (std::size_t i = 0; i < notes; ++i) {
            const auto note = make<Event>(editor_.state());
            note->setLyric("さくら");
            note->flagged = i % flaggedEvery == 0;
            part_->add(note);
        }
        const auto track = makeVoiceTrack(editor_.state());
        track->add(part_);
        editor_.project().add(track);
        editor_.notify();
    }

    Editor& editor() { return editor_; }

    void setLyrics(const char* lyric) {
        for (const auto& item : part_->items()) {
            static_cast<Event&>(*item).setLyric(lyric);
        }
    }

private:
    Editor editor_;
    Handle<Part> part_;
};

void countNotes(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void hostCallsAlone(benchmark::State& state) {
    Song song(static_cast<std::size_t>(state.range(0)), 10);
    for ([[maybe_unused]] auto _ : state) {
        bench::makeHostCalls(song.editor().project());
    }
    countNotes(state);
}

void walkNothingChanged(benchmark::State& state) {
    Song song(static_cast<std::size_t>(state.range(0)), 10);
    for ([[maybe_unused]] auto _ : state) {
        song.editor().notify();
    }
    countNotes(state);
}

void walkAllFlagged(benchmark::State& state) {
    Song song(static_cast<std::size_t>(state.range(0)), 1);
    for ([[maybe_unused]] auto _ : state) {
        song.editor().notify();
    }
    countNotes(state);
}

void walkAllChanged(benchmark::State& state) {
    Song song(static_cast<std::size_t>(state.range(0)), 1);
    bool isOdd = false;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        song.setLyrics((isOdd = !isOdd) ? "かえで" : "もみじ");
        state.ResumeTiming();
        song.editor().notify();
    }
    countNotes(state);
}

BENCHMARK(hostCallsAlone)->RangeMultiplier(10)->Range(1'000, 1'000'000);
BENCHMARK(walkNothingChanged)->RangeMultiplier(10)->Range(1'000, 1'000'000);
BENCHMARK(walkAllFlagged)->RangeMultiplier(10)->Range(1'000, 1'000'000);
BENCHMARK(walkAllChanged)->RangeMultiplier(10)->Range(1'000, 1'000'000);

} // namespace
