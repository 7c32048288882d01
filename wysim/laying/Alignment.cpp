// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/laying/Alignment.h"

#include "wysim/laying/SyllableLattice.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace wybeta::wysim::laying {

namespace {

// What speaks against a step. The unit is about what speaks against a syllable more or less than
// the dictionary has. A third more or less of one of these moves fewer than two of a hundred words
// (docs/laying.md).
constexpr double kBeginOnHeld = 4;      // a syllable begins on a note that looks held
constexpr double kHoldFree = 2.5;       // one is held over a note that does not
constexpr double kHoldRepeated = 2;     // the more if that repeats the pitch
constexpr double kHoldLong = -1;        // the less after a longer note
constexpr double kHoldLineEnd = 1.1;    // instead of these, at the end of a line
constexpr double kHoldIntoPhrase = 8;   // a syllable goes on after a rest
constexpr double kWordIntoPhrase = 3;   // a word does
constexpr double kKanaIntoPhrase = 0.3; // a run of kana does, which is several words
constexpr double kPhraseInLine = 0.3;   // a phrase begins within a line
constexpr double kLineInPhrase = 5;     // a line begins within a phrase
constexpr double kUnsurePhrase = 0.2;   // the share of costs of phrases that no rest or mark shows
constexpr double kUnsureLine = 0.5;     // and of that of lines within them
constexpr double kOtherHolds = 2;       // a line has its notes held otherwise than the one before
constexpr double kHoldsOrder = 0.5;     // for each way to hold notes that comes before
constexpr double kWeakWord = 0.2;       // a word begins between the beats
constexpr double kLeaveLine = 4;        // a line is left for the next one
constexpr double kLeaveSyllable = 6;    // for each syllable without a note
constexpr double kSkipPhrase = 2;       // a phrase between two lines has no words
constexpr double kSkipNote = 0.7;       // for each of its notes

// What is this much worse than the best so far is given up. The best may be one that sings the text
// too slowly, which is seen at its end only: with 20, some scores with phrasing slurs go wrong.
constexpr double kMargin = 40;
// Keeps a long melody quick: with 2,000, composers' scores are laid alike, and 5,900 syllables
// under 5,000 notes take three times as long.
constexpr std::size_t kMostStates = 150;

// With those that sing further syllables on the same note.
constexpr std::size_t kMostJoined = 4 * kMostStates;

enum class Step : std::uint8_t { Begin, Join, Hold, Rest };

// How the notes so far may be sung.
struct State {
    std::uint32_t syllable; // on the last of them; with Rest, the last syllable that was sung
    std::uint8_t heldBy;
    Step step;
    std::uint32_t previous; // state of the note before; for Join, of the same note
    double cost;
    double outlook; // the cost with that of leaving what has no room in the rest of the melody
};

// What is kept of a state to find the way back.
struct Trace {
    std::uint32_t syllable;
    std::uint16_t previous;
    Step step;
};

// Goes from note to note with all that may be sung until then (Viterbi's algorithm).
class Aligner {
public:
    Aligner(const SyllableLattice& lattice, const std::vector<MelodyNote>& melody)
        : syllables_(lattice.syllables()), words_(lattice.words()), melody_(melody),
          lineInPhrase_(kLineInPhrase * shareOfPhrases()),
          places_(2 * kWaysToHold * syllables_.size(), {0, 0}) {}

    std::vector<PlacedWord> run() {
        for (const auto& note : melody_) {
            now_.clear();
            if (traces_.empty()) {
                beginText(note);
            } else {
                goOn(note);
            }
            prune();
            join();
            before_ = now_;
            traces_.push_back(tracesOf(now_));
        }
        return placedWords();
    }

private:
    // A state that leads to another, and its place among those of its note.
    struct From {
        State state = {};
        std::uint32_t place = 0;
    };

    // How many phrases there are for a line, at most one.
    double shareOfPhrases() const {
        const auto phrases = std::count_if(melody_.begin(), melody_.end(),
                                           [](const auto& note) { return note.beginsPhrase; });
        const auto lines = std::count_if(words_.begin(), words_.end(),
                                         [](const auto& word) { return word.beginsLine; });
        return std::min(1.0, static_cast<double>(phrases) / static_cast<double>(lines));
    }

    const LatticeWord& wordOf(const State& state) const {
        return words_[syllables_[state.syllable].word];
    }

    // Gives up what is much worse than the best, and all but a number of the best.
    void prune() {
        const auto notesLeft = melody_.size() - traces_.size() - 1;
        for (auto& state : now_) {
            state.outlook = state.cost + costOfLeaving(state, notesLeft);
        }
        const auto isBetter = [](const State& one, const State& other) {
            return one.outlook < other.outlook;
        };
        const auto best = std::min_element(now_.begin(), now_.end(), isBetter)->outlook;
        now_.erase(
            std::remove_if(now_.begin(), now_.end(),
                           [best](const State& state) { return state.outlook > best + kMargin; }),
            now_.end());
        if (now_.size() > kMostStates) {
            const auto end = now_.begin() + std::ptrdiff_t{kMostStates};
            std::nth_element(now_.begin(), end, now_.end(), isBetter);
            now_.erase(end, now_.end());
        }
        for (std::size_t place = 0; place < now_.size(); ++place) {
            keyOf(now_[place]) = {traces_.size() + 1, place};
        }
    }

    // Where the state of that kind is among those of its note.
    std::pair<std::size_t, std::size_t>& keyOf(const State& state) {
        const auto kind = 2 * state.syllable + (state.step == Step::Rest ? 1U : 0U);
        return places_[kind * kWaysToHold + state.heldBy];
    }

    // Keeps the cheaper of two states alike.
    void put(std::uint32_t syllable, std::size_t heldBy, Step step, std::uint32_t previous,
             double cost) {
        const State state{syllable, static_cast<std::uint8_t>(heldBy), step, previous, cost, 0};
        auto& [note, place] = keyOf(state);
        if (note != traces_.size() + 1) {
            note = traces_.size() + 1;
            place = now_.size();
            now_.push_back(state);
        } else if (cost < now_[place].cost) {
            now_[place] = state;
        }
    }

    void beginText(const MelodyNote& note) {
        for (std::size_t heldBy = 0; heldBy < kWaysToHold; ++heldBy) {
            beginWord(0, heldBy, {}, note, kHoldsOrder * static_cast<double>(heldBy));
        }
    }

    void goOn(const MelodyNote& note) {
        for (std::uint32_t place = 0; place < before_.size(); ++place) {
            const From from{before_[place], place};
            if (from.state.step == Step::Rest) {
                goOnResting(from, note);
            } else {
                goOnSinging(from, note);
            }
        }
    }

    void goOnSinging(const From& from, const MelodyNote& note) {
        const auto& syllable = syllables_[from.state.syllable];
        const auto& word = words_[syllable.word];
        hold(from, note);
        if (!syllable.isLast) {
            const double into = word.word->isKana ? kKanaIntoPhrase : kWordIntoPhrase;
            beginSyllable(from.state.syllable + 1, from.state.heldBy, from, note,
                          from.state.cost + atPhrase(note, into));
        } else if (word.endsLine) {
            beginLine(word.nextLine, from, note, costOfLine(note));
        } else {
            beginWord(syllable.word + std::size_t{1}, from.state.heldBy, from, note,
                      from.state.cost + atPhrase(note, kPhraseInLine));
        }
        if (note.beginsPhrase) {
            leaveLine(from, note);
        }
    }

    // A cost that arises where a phrase begins.
    static double atPhrase(const MelodyNote& note, double cost) {
        if (!note.beginsPhrase) {
            return 0;
        }
        return note.isPhraseSure ? cost : kUnsurePhrase * cost;
    }

    void hold(const From& from, const MelodyNote& note) {
        const auto& state = from.state;
        double cost = state.cost + atPhrase(note, kHoldIntoPhrase);
        if (!note.looksHeld[state.heldBy]) {
            const bool isWordEnd = syllables_[state.syllable].isLast;
            const bool isLineEnd = isWordEnd && wordOf(state).endsLine;
            cost += isLineEnd ? kHoldLineEnd
                              : kHoldFree + (note.repeatsPitch ? kHoldRepeated : 0) +
                                    (note.isShorter ? kHoldLong : 0);
        }
        put(state.syllable, state.heldBy, Step::Hold, from.place, cost);
    }

    void beginSyllable(std::uint32_t syllable, std::size_t heldBy, const From& from,
                       const MelodyNote& note, double cost) {
        const bool isHeld = note.looksHeld[heldBy] && !note.beginsPhrase;
        put(syllable, heldBy, Step::Begin, from.place, cost + (isHeld ? kBeginOnHeld : 0));
    }

    // In each of the ways in which the word may be sung.
    void beginWord(std::size_t word, std::size_t heldBy, const From& from, const MelodyNote& note,
                   double cost) {
        const auto& ways = words_[word].word->ways;
        for (std::size_t way = 0; way < ways.size(); ++way) {
            beginSyllable(words_[word].begins[way], heldBy, from, note,
                          cost + ways[way].cost + kWeakWord * note.weight);
        }
    }

    // What speaks against beginning a line at the note.
    double costOfLine(const MelodyNote& note) const {
        if (note.beginsPhrase) {
            return note.isPhraseSure ? 0 : kUnsurePhrase;
        }
        return lineInPhrase_ * (note.isPhraseSure ? 1 : kUnsureLine);
    }

    // If there is a line with that word.
    void beginLine(std::size_t word, const From& from, const MelodyNote& note, double cost) {
        if (word == words_.size()) {
            return;
        }
        for (std::size_t heldBy = 0; heldBy < kWaysToHold; ++heldBy) {
            const double change = heldBy == from.state.heldBy ? 0 : kOtherHolds;
            beginWord(word, heldBy, from, note, from.state.cost + cost + change);
        }
    }

    // At the beginning of a phrase: after the end of a line it may be left without words; in the
    // middle of a line, the rest of that may be.
    void leaveLine(const From& from, const MelodyNote& note) {
        const auto& state = from.state;
        const auto& word = wordOf(state);
        const auto left = syllablesLeft(state) + word.leftInLine;
        if (left > 0) {
            beginLine(word.nextLine, from, note,
                      costOfLine(note) + kLeaveLine + kLeaveSyllable * static_cast<double>(left));
            return;
        }
        const double cost = word.leftInText > 0 ? kSkipPhrase + kSkipNote : 0;
        put(state.syllable, state.heldBy, Step::Rest, from.place, state.cost + cost);
    }

    // Of the word that is being sung.
    std::size_t syllablesLeft(const State& state) const {
        const auto& syllable = syllables_[state.syllable];
        return wordOf(state).word->ways[syllable.way].syllables.size() - syllable.number - 1;
    }

    void goOnResting(const From& from, const MelodyNote& note) {
        const auto& state = from.state;
        const double cost = wordOf(state).leftInText > 0 ? kSkipNote : 0;
        put(state.syllable, state.heldBy, Step::Rest, from.place, state.cost + cost);
        if (note.beginsPhrase) {
            beginLine(wordOf(state).nextLine, from, note, costOfLine(note));
        }
    }

    // Sings further syllables on the note on which one has just begun.
    void join() {
        for (std::uint32_t place = 0; place < now_.size() && now_.size() < kMostJoined; ++place) {
            const auto state = now_[place];
            const bool begins = state.step == Step::Begin || state.step == Step::Join;
            if (!begins || syllables_[state.syllable].isLast) {
                continue;
            }
            if (const auto cost = syllables_[state.syllable + 1].joinCost) {
                put(state.syllable + 1, state.heldBy, Step::Join, place, state.cost + *cost);
            }
        }
    }

    // What speaks against leaving the syllables for which there is no room any more. A text that
    // has more syllables than there are notes has to leave some.
    double costOfLeaving(const State& state, std::size_t notesLeft) const {
        const auto left = syllablesLeft(state) + wordOf(state).leftInText;
        const auto all = words_.front().leftInText;
        const auto room = notesLeft + (all > melody_.size() ? all - melody_.size() : 0);
        return left > room ? kLeaveSyllable * static_cast<double>(left - room) : 0;
    }

    static std::vector<Trace> tracesOf(const std::vector<State>& states) {
        std::vector<Trace> traces(states.size());
        std::transform(states.begin(), states.end(), traces.begin(), [](const State& state) {
            return Trace{state.syllable, static_cast<std::uint16_t>(state.previous), state.step};
        });
        return traces;
    }

    // The cheapest way to sing the melody, from the last note to the first, with their indexes.
    std::vector<std::pair<Trace, std::size_t>> cheapestPath() const {
        const auto cheapest = std::min_element(
            before_.begin(), before_.end(), [this](const State& one, const State& other) {
                return one.cost + costOfLeaving(one, 0) < other.cost + costOfLeaving(other, 0);
            });
        auto place = static_cast<std::size_t>(cheapest - before_.begin());
        std::vector<std::pair<Trace, std::size_t>> path;
        for (auto note = traces_.size(); note > 0;) {
            const auto& trace = traces_[note - 1][place];
            path.emplace_back(trace, note - 1);
            place = trace.previous;
            note -= trace.step == Step::Join ? 0 : 1;
        }
        return path;
    }

    std::vector<PlacedWord> placedWords() const {
        auto path = cheapestPath();
        std::reverse(path.begin(), path.end());
        std::vector<PlacedWord> placed;
        for (const auto& [trace, note] : path) {
            if (trace.step == Step::Hold) {
                ++placed.back().notesOfSyllables.back();
            } else if (trace.step != Step::Rest) {
                const auto& syllable = syllables_[trace.syllable];
                if (syllable.number == 0) {
                    const auto& word = words_[syllable.word];
                    placed.push_back({word.line, word.indexInLine, syllable.way, note, {}, {}});
                }
                addSyllable(trace.step == Step::Join, placed.back());
            }
        }
        return placed;
    }

    static void addSyllable(bool isJoined, PlacedWord& word) {
        word.joins.push_back(isJoined);
        if (!isJoined) {
            word.notesOfSyllables.push_back(1);
        }
    }

    const std::vector<LatticeSyllable>& syllables_;
    const std::vector<LatticeWord>& words_;
    const std::vector<MelodyNote>& melody_;
    double lineInPhrase_;                    // less where lines have to share phrases
    std::vector<std::vector<Trace>> traces_; // of each note so far
    std::vector<State> before_;              // of the last of them
    std::vector<State> now_;                 // of the next one
    // For each syllable, sung or rested after, and each way to hold: the number of the last note
    // that had such a state, from 1, and its place among those of that note.
    std::vector<std::pair<std::size_t, std::size_t>> places_;
};

} // namespace

std::vector<PlacedWord> align(const std::vector<LineToLay>& lines,
                              const std::vector<MelodyNote>& melody) {
    const SyllableLattice lattice(lines);
    if (lattice.words().empty() || melody.empty()) {
        return {};
    }
    return Aligner(lattice, melody).run();
}

} // namespace wybeta::wysim::laying
