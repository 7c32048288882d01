// SPDX-License-Identifier: GPL-3.0-or-later
//
// What loading the dictionary costs, beside the plain way of doing the same, and what looking up a
// word costs.
#include "bench/Heap.h"
#include "dictionary/PronunciationDictionary.h"
#include "dictionary/WordLookup.h"
#include "extension/WyBetaExtension.h"
#include "resources/ResourceTable.h"

#include "pluginterfaces/base/smartpointer.h"

#include <benchmark/benchmark.h>

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace wybeta;
using bench::heap;

// The plain way: a copy of the text, a list of its lines, a list of each line's fields, and a map
// with a node of three texts for each word.
namespace plain {

struct Entry {
    std::string phonemes;
    std::string spelling;
};

using Dictionary = std::map<std::string, Entry>;

std::string copyText(const char* text, std::int32_t size) {
    std::string copy;
    copy.reserve(static_cast<std::size_t>(size));
    for (std::int32_t i = 0; i < size; ++i) {
        copy.push_back(text[i]);
    }
    return copy;
}

std::vector<std::string> cutIntoLines(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = begin;
        while (end < text.size() && text[end] != '\n' && text[end] != '\r') {
            ++end;
        }
        lines.push_back(text.substr(begin, end - begin));
        begin = end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
    }
    return lines;
}

std::string trim(const std::string& line) {
    const auto isSpaceAt = [&line](std::size_t i) {
        return std::isspace(static_cast<unsigned char>(line[i])) != 0;
    };
    std::size_t begin = 0;
    std::size_t end = line.size();
    while (begin < end && isSpaceAt(begin)) {
        ++begin;
    }
    while (begin < end && isSpaceAt(end - 1)) {
        --end;
    }
    return line.substr(begin, end - begin);
}

std::vector<std::string> cutAtTabs(const std::string& line) {
    std::vector<std::string> fields;
    std::size_t begin = 0;
    for (auto tab = line.find('\t'); tab != std::string::npos; tab = line.find('\t', begin)) {
        fields.push_back(line.substr(begin, tab - begin));
        begin = tab + 1;
    }
    fields.push_back(line.substr(begin));
    return fields;
}

void removeAll(std::string& text, char byte) {
    for (auto at = text.find(byte); at != std::string::npos; at = text.find(byte, at)) {
        text.erase(at, 1);
    }
}

Dictionary load(const char* text, std::int32_t size) {
    Dictionary dictionary;
    for (const auto& line : cutIntoLines(copyText(text, size))) {
        auto fields = cutAtTabs(trim(line));
        if (fields.size() != 3) {
            continue;
        }
        for (const char digit : {'0', '1', '2'}) {
            removeAll(fields[1], digit);
        }
        Entry& entry = dictionary[fields[0]];
        entry.phonemes = fields[1];
        entry.spelling = fields[2];
    }
    return dictionary;
}

} // namespace plain

const resources::Resource& dictionaryText() {
    return *resources::findResource("cmudict0_7butf8spll");
}

// Times loading alone, and counts the heap in one load before that.
template <class Load>
void loadAll(benchmark::State& state, Load load) {
    const auto& text = dictionaryText();
    const std::size_t before = heap().used;
    heap().peak = before;
    {
        const auto dictionary = load(text.data, text.size);
        state.counters["heapKept"] = static_cast<double>(heap().used - before);
        state.counters["heapPeak"] = static_cast<double>(heap().peak - before);
    }
    for ([[maybe_unused]] auto _ : state) {
        {
            const auto dictionary = load(text.data, text.size);
            benchmark::DoNotOptimize(&dictionary);
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}

void loadPlainly(benchmark::State& state) {
    loadAll(state, plain::load);
}
BENCHMARK(loadPlainly)->Unit(benchmark::kMillisecond);

void loadDictionary(benchmark::State& state) {
    loadAll(state, [](auto... text) { return dictionary::loadPronunciationDictionary(text...); });
}
BENCHMARK(loadDictionary)->Unit(benchmark::kMillisecond);

// An extension, and the dictionary that it leaves to the process.
class Constructed {
public:
    Constructed(const char* /*text*/, std::int32_t /*size*/)
        : extension_(Steinberg::owned(new extension::WyBetaExtension)) {}
    ~Constructed() { dictionary::pronunciationDictionary() = {}; }
    Constructed(const Constructed&) = delete;
    Constructed& operator=(const Constructed&) = delete;

private:
    Steinberg::IPtr<extension::WyBetaExtension> extension_;
};

void constructExtension(benchmark::State& state) {
    loadAll(state, [](auto... text) { return Constructed(text...); });
}
BENCHMARK(constructExtension)->Unit(benchmark::kMillisecond);

// Every 97th word without a hyphen, changed by `change`.
template <class Change>
std::vector<std::u32string> pickWords(const dictionary::PronunciationDictionary& dictionary,
                                      Change change) {
    std::vector<std::u32string> words;
    for (std::size_t i = 0; i < dictionary.size(); ++i) {
        const auto item = dictionary.line(i);
        if (i % 97 == 96 && item.word.find('-') == std::string_view::npos) {
            words.push_back(change(std::u32string(item.word.begin(), item.word.end())));
        }
    }
    return words;
}

// Looks up one word after the other; the time is that of one word.
template <class Change>
void lookUp(benchmark::State& state, Change change) {
    const auto& text = dictionaryText();
    const auto dictionary = dictionary::loadPronunciationDictionary(text.data, text.size);
    const auto words = pickWords(dictionary, change);
    std::vector<std::string> items;
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        const auto& word = words[i++ % words.size()];
        items.clear();
        dictionary::convertEnglishWord(dictionary, word, 0, static_cast<std::int32_t>(word.size()),
                                       items);
        benchmark::DoNotOptimize(items.data());
    }
}

void lookUpWordFound(benchmark::State& state) {
    lookUp(state, [](std::u32string word) { return word; });
}
BENCHMARK(lookUpWordFound);

void lookUpWordNotFound(benchmark::State& state) {
    lookUp(state, [](const std::u32string& word) { return word + U"~"; });
}
BENCHMARK(lookUpWordNotFound);

void lookUpWordWithHyphens(benchmark::State& state) {
    lookUp(state, [](const std::u32string& word) {
        std::u32string hyphened;
        for (const char32_t letter : word) {
            hyphened += {letter, U'-'};
        }
        return hyphened;
    });
}
BENCHMARK(lookUpWordWithHyphens);

} // namespace
