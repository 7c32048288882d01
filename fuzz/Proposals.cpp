// SPDX-License-Identifier: GPL-3.0-or-later
//
// The input is a word. The phonemes that are proposed for it have to be those of the English
// dictionary, with a vowel in each syllable, and every text that is proposed has to be sung by the
// module as it was read.
#include "wysim/words/Proposals.h"
#include "fuzz/Check.h"
#include "fuzz/ModuleExtension.h"
#include "simulator/Editor.h"
#include "wysim/session/Proof.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/Song.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/Sounds.h"
#include "wysim/words/Wording.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>

namespace wybeta::fuzz {

namespace {

using namespace wysim;

words::LyricReader& reader() {
    static words::LyricReader shared;
    return shared;
}

// The symbols of the dictionary.
const std::set<std::string>& knownSymbols() {
    static const auto known = [] {
        std::set<std::string> symbols;
        const auto& dictionary = reader().dictionary();
        for (std::size_t i = 0; i < dictionary.size(); ++i) {
            const auto phonemes = dictionary::withoutStressDigits(dictionary.line(i).phonemes);
            for (auto& symbol : words::symbolsOf(phonemes)) {
                symbols.insert(std::move(symbol));
            }
        }
        return symbols;
    }();
    return known;
}

void checkSyllable(const std::string& syllable) {
    const auto symbols = words::symbolsOf(syllable);
    for (const auto& symbol : symbols) {
        check(knownSymbols().count(symbol) == 1, "a symbol that the dictionary does not use");
    }
    check(words::countNuclei(symbols) >= 1, "a syllable without a vowel");
}

void checkProposal(const words::Proposal& proposal, session::Proof& proof) {
    for (const auto& syllable : proposal.syllables) {
        checkSyllable(syllable);
    }
    auto text = words::utf8Of(proposal.text);
    if (!proposal.syllables.empty()) {
        text = words::withBracket(text, proposal.syllables);
    }
    const auto syllables = reader().syllablesOf(text);
    check(!syllables.empty(), "a proposal is not sung");
    proof.sung(text, syllables);
}

void run(const std::string& word) {
    try {
        song::checkText(word);
    } catch (const song::BadInput&) {
        return;
    }
    simulator::Editor editor(moduleExtension());
    session::Proof proof(editor);
    for (const bool isAmongKana : {false, true}) {
        const auto proposals =
            words::proposalsFor(words::charactersOf(word), reader(), isAmongKana);
        check(proposals.size() <= words::kMostProposals, "too many proposals");
        for (const auto& proposal : proposals) {
            checkProposal(proposal, proof);
        }
    }
}

} // namespace

} // namespace wybeta::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    wybeta::fuzz::run(std::string(wybeta::fuzz::textOf(data, size)));
    return 0;
}
