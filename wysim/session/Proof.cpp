// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Proof.h"

#include "wysim/words/Wording.h"

namespace wybeta::wysim::session {

ModuleDisagrees::ModuleDisagrees(const std::string& lyric, const Syllables& sung,
                                 const Syllables& read)
    : std::logic_error("internal error: expected the module to sing " +
                       words::inDoubleQuotes(lyric) + " as " + words::inBrackets(read) +
                       ", found " + words::inBrackets(sung) +
                       "; the module may be of another version") {}

const Syllables& Proof::sung(const std::string& lyric, const Syllables& read) {
    const auto [known, isNew] = sung_.try_emplace(lyric);
    if (isNew) {
        known->second = scratch_.divide(lyric);
    }
    if (known->second != read) {
        throw ModuleDisagrees(lyric, known->second, read);
    }
    return known->second;
}

words::TextCheck::Prover Proof::prover() {
    return [this](const std::string& lyric, const Syllables& read) { sung(lyric, read); };
}

} // namespace wybeta::wysim::session
