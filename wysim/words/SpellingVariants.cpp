// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/SpellingVariants.h"

#include "wysim/words/Letters.h"

#include <string_view>

namespace wybeta::wysim::words {

namespace {

struct Variant {
    std::string_view written;
    std::string_view listed;
};

constexpr Variant kVariantEnds[] = {
    {"bre", "ber"},   {"tre", "ter"}, {"gre", "ger"},         {"chre", "cher"},
    {"ise", "ize"},   {"yse", "yze"}, {"isation", "ization"}, {"ogue", "og"},
    {"ence", "ense"}, {"amme", "am"}, {"xion", "ction"},      {"ellery", "elry"},
    {"quer", "cker"}, {"l", "ll"},    {"lful", "llful"},      {"lment", "llment"},
};
// Anywhere after the first letter, and anywhere.
constexpr Variant kVariantInside[] = {{"our", "or"}, {"ae", "e"}, {"oe", "e"}};

// "neath" is written for "'neath" as well.
constexpr std::string_view kClippedPrepositions[] = {"gainst", "mongst", "neath", "tween", "twixt"};

// Words that sound like a listed one, but for its last symbols.
struct OldForm {
    std::string_view written;
    std::string_view listed;
    std::string_view lastSymbol; // replaces that of the listed word
};
constexpr OldForm kOldForms[] = {{"saith", "says", "th"}};

void addFound(const KnownWords& known, const std::string& listed, Derivations& derived) {
    for (auto& found : known.find(listed)) {
        ++found.steps;
        derived.push_back(std::move(found));
    }
}

std::string withEnd(const std::string& word, std::size_t withoutLast, std::string_view end) {
    return word.substr(0, word.size() - withoutLast).append(end);
}

// "drest", "stopt": a past tense that writes the t it is spoken with.
void addPastInT(const KnownWords& known, const std::string& word, Derivations& derived) {
    const auto stem = word.substr(0, word.size() - 1);
    const std::string doubled = stem + stem.back();
    for (const auto& listed : {doubled, stem, stem + "e"}) {
        Derivations found;
        addFound(known, listed, found);
        for (auto& past : found) {
            if (isVoiceless(past.symbols.back()) && past.symbols.back() != "t") {
                past.symbols.emplace_back("t");
                derived.push_back(std::move(past));
            }
        }
    }
}

// An e after two consonants does not lengthen the vowel before them.
bool endsInIdleE(const std::string& word) {
    const auto size = word.size();
    return size >= 5 && word.back() == 'e' && !isVowelLetter(word[size - 2]) &&
           !isVowelLetter(word[size - 3]);
}

bool endsInVoicelessT(const std::string& word) {
    constexpr std::string_view kBefore = "cfhkpsx";
    return word.size() >= 4 && word.back() == 't' &&
           kBefore.find(word[word.size() - 2]) != std::string_view::npos;
}

void addClosedClasses(const KnownWords& known, const std::string& word, Derivations& derived) {
    for (const auto preposition : kClippedPrepositions) {
        if (word == preposition) {
            addFound(known, "'" + word, derived);
        }
    }
    for (const auto& form : kOldForms) {
        if (word == form.written) {
            addFound(known, std::string(form.listed), derived);
            if (!derived.empty()) {
                derived.back().symbols.back() = form.lastSymbol;
            }
        }
    }
}

} // namespace

Derivations deriveFromVariants(const KnownWords& known, const std::string& word) {
    constexpr std::size_t kShortest = 5;
    Derivations derived;
    for (const auto& [written, listed] : kVariantEnds) {
        if (word.size() >= written.size() + 2 && endsIn(word, written)) {
            addFound(known, withEnd(word, written.size(), listed), derived);
        }
    }
    for (const auto& [written, listed] : kVariantInside) {
        const auto at = word.find(written, written == "our" ? 2 : 0);
        if (at != std::string::npos && word.size() >= kShortest) {
            addFound(known, std::string(word).replace(at, written.size(), listed), derived);
        }
    }
    return derived;
}

Derivations deriveFromOtherForms(const KnownWords& known, const std::string& word) {
    Derivations derived;
    addClosedClasses(known, word, derived);
    if (endsInIdleE(word)) {
        addFound(known, withEnd(word, 1, ""), derived);
    }
    if (word.size() >= 5 && endsIn(word, "ie")) {
        addFound(known, withEnd(word, 2, "y"), derived);
    }
    if (word.size() >= 6 && endsIn(word, "ick")) {
        addFound(known, withEnd(word, 1, ""), derived);
    }
    if (word.size() >= 5 && endsIn(word, "in")) {
        addFound(known, word + "'", derived);
    }
    if (endsInVoicelessT(word)) {
        addPastInT(known, word, derived);
    }
    return derived;
}

} // namespace wybeta::wysim::words
