// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/PlainWord.h"

#include "wysim/picture/NoteText.h"

#include <algorithm>

namespace wybeta::wysim::session {

std::string plainWord(ScratchTrack& scratch, const SongWord& word) {
    const auto plain = picture::NoteText(word.text).lyric;
    if (plain.empty() || plain == word.text) {
        return word.text;
    }
    const auto carried = scratch.divide(word.text);
    auto syllables = scratch.divide(plain);
    // Those that the notes had no room for are not in the bracket.
    syllables.resize(std::min(syllables.size(), word.notes));
    return syllables == carried ? plain : word.text;
}

} // namespace wybeta::wysim::session
