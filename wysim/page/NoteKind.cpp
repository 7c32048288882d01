// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/page/NoteKind.h"

namespace wybeta::wysim::page {

NoteKind kindOf(const song::SongNote& note, const picture::NoteText& text) {
    if (note.lyric.empty()) {
        return NoteKind::Empty;
    }
    if (text.syllable.empty()) {
        return NoteKind::Unsung;
    }
    return text.lyric.empty() && !note.typed ? NoteKind::Further : NoteKind::Word;
}

std::string_view nameOf(NoteKind kind) {
    switch (kind) {
    case NoteKind::Word:
        return "word";
    case NoteKind::Further:
        return "further";
    case NoteKind::Unsung:
        return "unsung";
    case NoteKind::Empty:
        break;
    }
    return "empty";
}

} // namespace wybeta::wysim::page
