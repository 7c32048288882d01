// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Comparison.h"

#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "wysim/song/BadInput.h"
#include "wysim/terminal/TextTable.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <map>
#include <string_view>

namespace wybeta::wysim::session {

namespace {

bool holdsKana(std::string_view utf8) {
    for (auto next = utf8.begin(); next != utf8.end();) {
        const auto character = utf8::next(next, utf8.end());
        if (character >= 0x3041 && character <= 0x30FF) {
            return true;
        }
    }
    return false;
}

struct Division {
    std::size_t syllables = 0;
    Recognizer knownBy = Recognizer::Nothing;
};

// A track in which there is always room for one more syllable.
class ScratchTrack {
public:
    explicit ScratchTrack(simulator::Editor& editor)
        : editor_(editor), part_(simulator::makeHandle<simulator::Part>(editor.state())) {
        const auto track = simulator::makeVoiceTrack(editor.state());
        track->add(part_);
        editor.project().add(track);
        addNotes(64);
    }

    Division divide(const std::string& word) {
        editor_.type(*notes_.front(), word);
        while (!notes_.back()->lyric().empty()) {
            editor_.undo();
            addNotes(notes_.size());
            editor_.type(*notes_.front(), word);
        }
        const auto division = read(word);
        editor_.undo();
        return division;
    }

private:
    void addNotes(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            notes_.push_back(simulator::makeHandle<simulator::Event>(editor_.state()));
            notes_.back()->startInPart = static_cast<double>(notes_.size());
            part_->add(notes_.back());
        }
        editor_.notify();
    }

    Division read(const std::string& word) const {
        const auto first = notes_.front()->lyric();
        if (first.find('[') == std::string::npos || first.back() != ']') {
            return {};
        }
        const auto firstEmpty = std::find_if(
            notes_.begin(), notes_.end(), [](const auto& note) { return note->lyric().empty(); });
        const auto knownBy = word.find('[') != std::string::npos ? Recognizer::Brackets
                             : holdsKana(word)                   ? Recognizer::Kana
                                                                 : Recognizer::Dictionary;
        return {static_cast<std::size_t>(firstEmpty - notes_.begin()), knownBy};
    }

    simulator::Editor& editor_;
    simulator::Handle<simulator::Part> part_;
    std::vector<simulator::Handle<simulator::Event>> notes_;
};

std::vector<ComparedWord> wordsOf(const song::Song& song) {
    std::vector<ComparedWord> words;
    for (std::size_t track = 0; track < song.tracks.size(); ++track) {
        const auto& notes = song.tracks[track].notes;
        for (std::size_t i = 0; i < notes.size(); ++i) {
            if (notes[i].typed && !notes[i].lyric.empty()) {
                words.push_back({track + 1, i + 1, notes[i].lyric, 1, 0, Recognizer::Nothing});
            } else if (!words.empty() && words.back().track == track + 1) {
                ++words.back().notes;
            }
        }
    }
    return words;
}

std::string nameOf(Recognizer knownBy) {
    switch (knownBy) {
    case Recognizer::Dictionary:
        return "dictionary";
    case Recognizer::Kana:
        return "kana";
    case Recognizer::Brackets:
        return "brackets";
    case Recognizer::Nothing:
        break;
    }
    return "unknown";
}

std::string verdictOn(const ComparedWord& word) {
    if (word.knownBy == Recognizer::Nothing) {
        return "-";
    }
    return word.syllables == word.notes ? "same" : word.syllables < word.notes ? "fewer" : "more";
}

} // namespace

std::vector<ComparedWord> compareWords(simulator::Editor& editor, const song::Song& song,
                                       terminal::Progress& progress) {
    auto words = wordsOf(song);
    if (words.empty()) {
        throw song::BadInput::expectedFound("a song with words to compare", "none");
    }
    ScratchTrack scratch(editor);
    std::map<std::string, Division> known;
    progress.start("comparing", words.size());
    for (auto& word : words) {
        const auto [division, isNew] = known.try_emplace(word.text);
        if (isNew) {
            division->second = scratch.divide(word.text);
        }
        word.syllables = division->second.syllables;
        word.knownBy = division->second.knownBy;
        progress.step();
    }
    progress.finish();
    return words;
}

std::string comparisonText(const std::vector<ComparedWord>& words) {
    terminal::TextTable table({"track", "note", "word", "known by", "notes", "syllables", "count"});
    std::map<std::string, std::size_t> totals;
    for (const auto& word : words) {
        const auto knownBy = nameOf(word.knownBy);
        const auto verdict = verdictOn(word);
        ++totals[knownBy];
        ++totals[verdict];
        table.add({std::to_string(word.track), std::to_string(word.note), word.text, knownBy,
                   std::to_string(word.notes), std::to_string(word.syllables), verdict});
    }
    const auto total = [&totals](const char* name) { return std::to_string(totals[name]); };
    return table.text() + "words: " + std::to_string(words.size()) +
           "; known to the dictionary: " + total("dictionary") + ", by kana: " + total("kana") +
           ", by brackets: " + total("brackets") + ", unknown: " + total("unknown") +
           "; same count: " + total("same") + ", fewer: " + total("fewer") +
           ", more: " + total("more") + "\n";
}

} // namespace wybeta::wysim::session
