// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a walk over the project costs, beside the calls into the host that it can't do without.
#include "bench/HostCalls.h"
#include "bench/LongTrack.h"

#include <benchmark/benchmark.h>

#include <cstddef>

namespace {

using namespace wybeta;
using bench::LongTrack;

void countNotes(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void hostCallsAlone(benchmark::State& state) {
    LongTrack song(static_cast<std::size_t>(state.range(0)), 10);
    for ([[maybe_unused]] auto _ : state) {
        bench::makeHostCalls(song.editor().project());
    }
    countNotes(state);
}

void walkNothingChanged(benchmark::State& state) {
    LongTrack song(static_cast<std::size_t>(state.range(0)), 10);
    for ([[maybe_unused]] auto _ : state) {
        song.editor().notify();
    }
    countNotes(state);
}

void walkAllFlagged(benchmark::State& state) {
    LongTrack song(static_cast<std::size_t>(state.range(0)), 1);
    for ([[maybe_unused]] auto _ : state) {
        song.editor().notify();
    }
    countNotes(state);
}

void walkAllChanged(benchmark::State& state) {
    LongTrack song(static_cast<std::size_t>(state.range(0)), 1);
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
