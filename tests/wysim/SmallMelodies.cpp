// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wysim/SmallMelodies.h"

#include "wysim/song/Pitch.h"

#include <sstream>

namespace wybeta::tests {

using wysim::song::Song;
using wysim::song::SongNote;

Song songOfMelody(const std::string& melody) {
    Song song;
    song.title = "Melody";
    song.tracks = {{"Voice", {}}};
    double now = 0;
    std::istringstream pieces(melody);
    for (std::string piece; pieces >> piece;) {
        SongNote note;
        note.start = now;
        for (; piece.front() == '~' || piece.front() == '='; piece.erase(0, 1)) {
            (piece.front() == '~' ? note.marks.isSlurred : note.marks.isBeamed) = true;
        }
        if (piece.back() == ',') {
            note.marks.endsPhrase = true;
            piece.pop_back();
        }
        if (const auto colon = piece.find(':'); colon != std::string::npos) {
            note.length = std::stod(piece.substr(colon + 1));
            piece.erase(colon);
        }
        now += note.length;
        if (piece != "r") {
            note.pitch = wysim::song::parsePitch(piece).value();
            song.tracks[0].notes.push_back(note);
        }
    }
    return song;
}

} // namespace wybeta::tests
