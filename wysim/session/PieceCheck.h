// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/session/MendSearch.h"
#include "wysim/session/ScratchTrack.h"
#include "wysim/words/TextFinding.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace wybeta::wysim::session {

// Which characters are kana: those that are sung by themselves. Words of one letter are sung too,
// so plain letters are none.
class KnownKana {
public:
    explicit KnownKana(ScratchTrack& scratch) : scratch_(scratch) {}
    bool isKana(char32_t character);

private:
    ScratchTrack& scratch_;
    std::map<char32_t, bool> known_;
};

// Checks what stands between two blanks of a text: kana, and words among them.
class PieceCheck {
public:
    // All have to outlive this.
    PieceCheck(ScratchTrack& scratch, KnownKana& kana, const std::u32string& piece)
        : scratch_(scratch), kana_(kana), piece_(piece) {}

    // The findings, their columns counted from the start of the piece. To be called once.
    std::vector<words::Finding> run();

private:
    Syllables divide(const std::u32string& text);
    // A run of characters that are no kana.
    void checkWord(std::size_t begin, std::size_t end);
    void checkZero(const WordInText& word, std::size_t begin);
    void checkHyphens(const WordInText& word, std::size_t begin, const Syllables& without);
    void findSilentCharacters(std::size_t begin, std::size_t end);
    void addUnsung(const WordInText& word, std::size_t begin);
    void add(std::size_t begin, const std::u32string& word, const Mending& mending,
             std::size_t syllables = 0);
    WordInText inPiece(std::size_t begin, std::size_t end) const;

    ScratchTrack& scratch_;
    KnownKana& kana_;
    const std::u32string& piece_;
    Syllables syllables_; // of the whole piece
    std::vector<words::Finding> findings_;
};

} // namespace wybeta::wysim::session
