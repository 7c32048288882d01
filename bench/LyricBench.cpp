// SPDX-License-Identifier: GPL-3.0-or-later
//
// What dividing one typed lyric costs, with the allocations that its result does not need, and a
// lyric of a million characters beside a pass that does nothing but decode it.
#include "bench/Heap.h"
#include "dictionary/PronunciationDictionary.h"
#include "lyrics/LyricConversion.h"
#include "resources/ResourceTable.h"

#include <benchmark/benchmark.h>
#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

namespace {

using namespace wybeta;

const dictionary::PronunciationDictionary& words() {
    static const auto words = [] {
        const auto& text = *resources::findResource("cmudict0_7butf8spll");
        return dictionary::loadPronunciationDictionary(text.data, text.size);
    }();
    return words;
}

// One for the list, and one for each text that is too long to be kept inside its string.
std::size_t neededAllocations(const lyrics::NoteLyricList& noteLyrics) {
    const auto isLong = [](const std::string& text) {
        return text.size() > std::string().capacity();
    };
    return 1 +
           static_cast<std::size_t>(std::count_if(noteLyrics.begin(), noteLyrics.end(), isLong));
}

void typedLyric(benchmark::State& state, std::string_view lyric) {
    const auto& dictionary = words();
    {
        lyrics::NoteLyricList noteLyrics;
        const std::size_t before = bench::heap().allocations;
        lyrics::convertLyric(lyric, noteLyrics, dictionary);
        const std::size_t made = bench::heap().allocations - before;
        state.counters["notes"] = static_cast<double>(noteLyrics.size());
        state.counters["needlessAllocations"] =
            static_cast<double>(made) - static_cast<double>(neededAllocations(noteLyrics));
    }
    for ([[maybe_unused]] auto _ : state) {
        lyrics::NoteLyricList noteLyrics;
        lyrics::convertLyric(lyric, noteLyrics, dictionary);
        benchmark::DoNotOptimize(noteLyrics.data());
    }
}
BENCHMARK_CAPTURE(typedLyric, fiveKana, "さくらさく");
BENCHMARK_CAPTURE(typedLyric, threeWords, "hello beautiful world");
BENCHMARK_CAPTURE(typedLyric, bracket, "sakura[s a,k u,r a,s a,k u]");

constexpr std::size_t kCharacters = 1'000'000;

// A text of a million characters that repeats the piece.
std::string longText(std::string_view piece) {
    const auto size = static_cast<std::size_t>(utf8::distance(piece.begin(), piece.end()));
    std::string text;
    for (std::size_t i = 0; i < kCharacters; i += size) {
        text += piece;
    }
    return text;
}

void longLyric(benchmark::State& state, std::string_view piece) {
    const auto& dictionary = words();
    const std::string lyric = longText(piece);
    for ([[maybe_unused]] auto _ : state) {
        lyrics::NoteLyricList noteLyrics;
        lyrics::convertLyric(lyric, noteLyrics, dictionary);
        benchmark::DoNotOptimize(noteLyrics.data());
    }
}

void decodeAlone(benchmark::State& state, std::string_view piece) {
    const std::string lyric = longText(piece);
    for ([[maybe_unused]] auto _ : state) {
        std::u32string text;
        text.reserve(lyric.size());
        utf8::utf8to32(lyric.begin(), lyric.end(), std::back_inserter(text));
        benchmark::DoNotOptimize(text.data());
    }
}

constexpr std::string_view kKana = "さくらきょうはれ";
constexpr std::string_view kWords = "hello beautiful world ";
constexpr std::string_view kOneWord = "a";
constexpr std::string_view kOther = "歌";

BENCHMARK_CAPTURE(decodeAlone, kana, kKana)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(longLyric, kana, kKana)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodeAlone, words, kWords)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(longLyric, words, kWords)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodeAlone, oneWord, kOneWord)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(longLyric, oneWord, kOneWord)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodeAlone, other, kOther)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(longLyric, other, kOther)->Unit(benchmark::kMillisecond);

} // namespace
