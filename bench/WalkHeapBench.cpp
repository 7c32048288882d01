// SPDX-License-Identifier: GPL-3.0-or-later
//
// How much heap a walk takes at the most, beyond what was held before it, beside a plain list of
// what there is to know of each note. The times of these say nothing.
#include "bench/Heap.h"
#include "bench/LongTrack.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace wybeta;
using bench::heap;
using bench::LongTrack;

constexpr std::size_t kNotes = 100'000;

template <class Act>
void countPeak(benchmark::State& state, Act act) {
    const std::size_t before = heap().used;
    heap().peak = before;
    for ([[maybe_unused]] auto _ : state) {
        act();
    }
    state.counters["bytesPerNote"] =
        static_cast<double>(heap().peak - before) / static_cast<double>(kNotes);
}

void listPlainly(benchmark::State& state) {
    struct Note {
        const void* event = nullptr;
        double start = 0;
        double length = 0;
        std::int32_t pitch = 0;
        std::string lyric;
        std::string phoneme;
    };
    countPeak(state, [] {
        std::vector<Note> notes(kNotes);
        benchmark::DoNotOptimize(notes.data());
    });
}
BENCHMARK(listPlainly)->Iterations(1);

// A song whose track the extension has not seen.
class NewSong : public LongTrack {
public:
    NewSong() : LongTrack(kNotes, 1) {
        const auto track = editor().project().items().front();
        editor().project().remove(*track);
        editor().notify();
        editor().project().add(track);
    }
};

void firstWalk(benchmark::State& state) {
    NewSong song;
    countPeak(state, [&song] { song.editor().notify(); });
}
BENCHMARK(firstWalk)->Iterations(1);

void secondWalk(benchmark::State& state) {
    NewSong song;
    song.editor().notify();
    countPeak(state, [&song] { song.editor().notify(); });
}
BENCHMARK(secondWalk)->Iterations(1);

// One that has been walked over often enough for both of its lists.
class KnownSong : public LongTrack {
public:
    KnownSong() : LongTrack(kNotes, 1) {
        for (int walk = 0; walk < 2; ++walk) {
            editor().notify();
        }
    }
};

void thirdWalk(benchmark::State& state) {
    KnownSong song;
    countPeak(state, [&song] { song.editor().notify(); });
}
BENCHMARK(thirdWalk)->Iterations(1);

// With the step that undoes it.
void editOfEveryNote(benchmark::State& state) {
    KnownSong song;
    song.setLyrics("かえで");
    countPeak(state, [&song] { song.editor().edit({}); });
}
BENCHMARK(editOfEveryNote)->Iterations(1);

} // namespace
