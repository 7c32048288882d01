// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"

#include <string>

namespace wybeta::tests {

// A song of one track in 4/4 with a note for each piece between the blanks of the text, such as
// "C4 ~D4 =E4:2 F4, r G4": "~" is before a note that is slurred to the note before it, "=" before
// one that is beamed to it, ":2" gives a length other than a quarter note, "," ends a phrase, and
// "r" is a rest.
wysim::song::Song songOfMelody(const std::string& melody);

} // namespace wybeta::tests
