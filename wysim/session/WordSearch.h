// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/session/FittedWord.h"
#include "wysim/session/Holds.h"
#include "wysim/session/ScratchTrack.h"
#include "wysim/words/SongWords.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace wybeta::wysim::session {

// The search for one word's text. Goes from what changes the word least to what changes it most.
class WordSearch {
public:
    // What keeps a search finite: lyrics that are tried, characters of a word, and its notes.
    static constexpr std::size_t kMaxTries = 1'000;
    static constexpr std::size_t kLongestWord = 1'000;
    static constexpr std::size_t kMaxNotes = 1'000;

    // The track and the word have to outlive this.
    WordSearch(ScratchTrack& scratch, const words::SongWord& word, bool usesBrackets)
        : tries_(scratch, kMaxTries), word_(word), usesBrackets_(usesBrackets) {}

    // To be called once.
    FittedWord run();

private:
    // A way to pronounce the word: the text without holds, and what it gives.
    struct Entry {
        std::u32string text;
        Syllables syllables;
        Outcome outcome;
    };
    using Found = std::optional<FittedWord>;

    std::optional<std::string> unknownPart();
    void findMainEntry();
    void findOtherEntries();
    void addOtherEntry(std::u32string text);
    bool isTooLong() const;

    bool isRightAsItIs() const;
    Found fitToSyllables();
    Found fitToCount();
    Found fitByBrackets();
    std::optional<Syllables> spreadAsDivided(const Syllables& syllables) const;
    Syllables withSharedNotes();
    // The entry with its syllables held as asked for.
    Found hold(const Entry& entry, const Holds& holds);
    // The entry with any one of its syllables held until the notes are filled.
    Found holdAny(const Entry& entry);
    Found tryHeld(const Entry& entry, const std::u32string& text, const Holds& holds);
    // Which of the wanted syllables is held by what is typed at a place.
    std::optional<std::size_t> heldAt(const Entry& entry, std::size_t place,
                                      const std::vector<bool>& wanted);

    FittedWord asItIs(Outcome outcome, std::string reason) const;
    FittedWord notFitted() const;

    LimitedTries tries_;
    const words::SongWord& word_;
    bool usesBrackets_;
    Syllables typed_; // what the word gives as it is
    std::vector<Entry> entries_;
    std::optional<std::size_t> alike_;     // the first entry that the score divides likewise
    std::optional<std::size_t> unreached_; // a syllable that had to be held and was not reached
};

} // namespace wybeta::wysim::session
