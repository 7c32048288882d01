// SPDX-License-Identifier: GPL-3.0-or-later
//
// What undo and redo of a long division cost, beside the writing of the lyrics into the notes.
#include "bench/LongTrack.h"
#include "host/IEditStep.h"
#include "host/IProjectEvent.h"

#include "pluginterfaces/base/fvariant.h"

#include <benchmark/benchmark.h>
#include <utf8cpp/utf8.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

namespace {

using namespace wybeta;
using bench::LongTrack;

constexpr std::size_t kNotes = 100'000;

// A lyric that is divided over all notes of the song.
std::string longLyric() {
    std::string lyric = "la[";
    for (std::size_t i = 0; i < kNotes; ++i) {
        lyric += i % 2 == 0 ? "k a," : "s a,";
    }
    lyric.back() = ']';
    return lyric;
}

// A song that has just been divided.
class DividedSong : public LongTrack {
public:
    DividedSong() : LongTrack(kNotes, kNotes) { editor().type(note(0), longLyric()); }

    host::IEditStep& step() { return *editor().lastSteps().front(); }

    std::vector<std::u16string> lyrics() {
        std::vector<std::u16string> lyrics(kNotes);
        for (std::size_t i = 0; i < kNotes; ++i) {
            const std::string lyric = note(i).lyric();
            utf8::utf8to16(lyric.begin(), lyric.end(), std::back_inserter(lyrics[i]));
        }
        return lyrics;
    }

    // Asks each node for the note that it is, as every write has to.
    void write(const std::vector<std::u16string>& lyrics) {
        for (std::size_t i = 0; i < kNotes; ++i) {
            void* found = nullptr;
            note(i).node()->queryInterface(host::IProjectNoteEvent::iid, &found);
            auto& noteEvent = *static_cast<host::IProjectNoteEvent*>(found);
            Steinberg::FVariant value;
            value.setString16(lyrics[i].c_str());
            noteEvent.setAttribute("lyrics", &value, 0, 0);
            noteEvent.release();
        }
    }
};

// What one undo and one redo write.
void writeAttributesAlone(benchmark::State& state) {
    DividedSong song;
    const auto newLyrics = song.lyrics();
    song.step().undo();
    const auto oldLyrics = song.lyrics();
    for ([[maybe_unused]] auto _ : state) {
        song.write(oldLyrics);
        song.write(newLyrics);
    }
}
BENCHMARK(writeAttributesAlone)->Unit(benchmark::kMillisecond);

void undoAndRedo(benchmark::State& state) {
    DividedSong song;
    auto& step = song.step();
    for ([[maybe_unused]] auto _ : state) {
        step.undo();
        step.redo();
    }
}
BENCHMARK(undoAndRedo)->Unit(benchmark::kMillisecond);

} // namespace
