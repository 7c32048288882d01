// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

namespace wybeta::wysim::song {

// How a score calls a note of a length.
struct NoteValue {
    const char* name;
    double quarters;
};

constexpr std::array<NoteValue, 14> kNoteValues = {{{"maxima", 32},
                                                    {"long", 16},
                                                    {"breve", 8},
                                                    {"whole", 4},
                                                    {"half", 2},
                                                    {"quarter", 1},
                                                    {"eighth", 1.0 / 2},
                                                    {"16th", 1.0 / 4},
                                                    {"32nd", 1.0 / 8},
                                                    {"64th", 1.0 / 16},
                                                    {"128th", 1.0 / 32},
                                                    {"256th", 1.0 / 64},
                                                    {"512th", 1.0 / 128},
                                                    {"1024th", 1.0 / 256}}};

} // namespace wybeta::wysim::song
