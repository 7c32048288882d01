// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/PlainWord.h"

#include "wysim/picture/NoteText.h"
#include "wysim/session/ScratchTrack.h"
#include "wysim/words/SongWords.h"
#include "wysim/words/Wording.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <utility>

namespace wybeta::wysim::session {

namespace {

// In a bracket, the space of "- " goes, by which a syllable without further consonants is held.
bool areAlike(const Syllables& some, const Syllables& others) {
    return std::equal(some.begin(), some.end(), others.begin(), others.end(),
                      [](const auto& one, const auto& other) {
                          return words::trimmed(one) == words::trimmed(other);
                      });
}

std::string plainWord(ScratchTrack& scratch, const words::SongWord& word) {
    const auto plain = picture::NoteText(word.text).lyric;
    if (plain.empty() || plain == word.text) {
        return word.text;
    }
    const auto carried = scratch.divide(word.text);
    auto syllables = scratch.divide(plain);
    // Those that the notes had no room for are not in the bracket.
    syllables.resize(std::min(syllables.size(), word.notes));
    return areAlike(syllables, carried) ? plain : word.text;
}

} // namespace

song::Song withPlainWords(simulator::Editor& editor, song::Song song) {
    ScratchTrack scratch(editor);
    std::map<std::pair<std::string, std::size_t>, std::string> known;
    for (const auto& word : words::wordsOf(song)) {
        const auto [plain, isNew] = known.try_emplace({word.text, word.notes});
        if (isNew) {
            plain->second = plainWord(scratch, word);
        }
        if (plain->second != word.text) {
            words::typeWord(song, word, plain->second);
        }
    }
    return song;
}

} // namespace wybeta::wysim::session
