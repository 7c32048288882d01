// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/WordSearch.h"

#include "wysim/words/LyricText.h"
#include "wysim/words/Wording.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace wybeta::wysim::session {

namespace {

constexpr std::size_t kSuffixLength = 3;

// The place of "(1)" in a word that ends in such a suffix; the end of any other word.
std::size_t suffixOf(std::u32string_view word) {
    const auto begin = word.size() < kSuffixLength ? 0 : word.size() - kSuffixLength;
    const auto end = word.substr(begin);
    const bool isSuffix = end.size() == kSuffixLength && end[0] == U'(' && end[1] >= U'0' &&
                          end[1] <= U'9' && end[2] == U')';
    return isSuffix ? begin : word.size();
}

std::size_t wordEnd(std::u32string_view text, std::size_t begin) {
    return std::min(text.find(U' ', begin), text.size());
}

// The places in a text at which a syllable can be held, from the last to the first: behind each
// character of its words, suffixes left alone.
std::vector<std::size_t> placesIn(std::u32string_view text) {
    std::vector<std::size_t> places;
    for (std::size_t begin = 0; begin < text.size(); begin = wordEnd(text, begin) + 1) {
        const auto word = text.substr(begin, wordEnd(text, begin) - begin);
        for (std::size_t i = 1; i <= suffixOf(word); ++i) {
            places.push_back(begin + i);
        }
    }
    std::reverse(places.begin(), places.end());
    return places;
}

// The text with marks that hold a syllable at a place: hyphens behind a letter.
std::u32string withMarks(std::u32string text, std::size_t place, std::size_t count) {
    const auto mark = words::isKana(text[place - 1]) ? U'ー' : U'-';
    return text.insert(place, count, mark);
}

bool holdsBrackets(const std::string& text) {
    const auto open = text.find('[');
    return open != std::string::npos && text.find(']', open) != std::string::npos;
}

std::string inBrackets(const std::string& word, const Syllables& syllables) {
    std::string text = holdsBrackets(word) ? word.substr(0, word.rfind('[')) : word;
    char before = '[';
    for (const auto& syllable : syllables) {
        text += before + syllable;
        before = ',';
    }
    return text + "]";
}

std::string counted(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

FittedWord WordSearch::run() {
    typed_ = tries_.divide(word_.text);
    if (const auto part = unknownPart()) {
        return asItIs(Outcome::Unknown, words::inDoubleQuotes(*part) + " is not sung");
    }
    findMainEntry();
    if (isRightAsItIs()) {
        return asItIs(Outcome::AsItIs, {});
    }
    if (!isTooLong()) {
        findOtherEntries();
        for (const auto search :
             {&WordSearch::fitToSyllables, &WordSearch::fitToCount, &WordSearch::fitByBrackets}) {
            if (auto found = (this->*search)()) {
                return *std::move(found);
            }
        }
    }
    return notFitted();
}

// Of words that share a note, each has to be sung.
std::optional<std::string> WordSearch::unknownPart() {
    const auto parts = words::wordsBetweenBlanks(word_.text);
    if (typed_.empty() || parts.size() < 2 || holdsBrackets(word_.text)) {
        return typed_.empty() ? std::optional(word_.text) : std::nullopt;
    }
    const auto unsung = std::find_if(parts.begin(), parts.end(), [this](const auto& part) {
        return tries_.divide(part).empty();
    });
    return unsung == parts.end() ? std::nullopt : std::optional(*unsung);
}

void WordSearch::findMainEntry() {
    auto text = words::charactersOf(word_.text);
    if (!holdsBrackets(word_.text)) {
        text.erase(std::remove(text.begin(), text.end(), U'-'), text.end());
    }
    const auto stem = words::utf8Of(text);
    entries_.push_back(
        {std::move(text), stem == word_.text ? typed_ : tries_.divide(stem), Outcome::Hyphens});
}

// Each of the words in turn with each of the suffixes in place of its own.
void WordSearch::findOtherEntries() {
    const auto text = entries_.front().text;
    for (std::size_t begin = 0; begin < text.size(); begin = wordEnd(text, begin) + 1) {
        const auto end = wordEnd(text, begin);
        const auto word = text.substr(begin, end - begin);
        for (const auto* const suffix : {U"", U"(1)", U"(2)", U"(3)"}) {
            const auto other = word.substr(0, suffixOf(word)) + suffix;
            if (other != word && !tries_.divide(words::utf8Of(other)).empty()) {
                addOtherEntry(text.substr(0, begin) + other + text.substr(end));
            }
        }
    }
}

void WordSearch::addOtherEntry(std::u32string text) {
    auto syllables = tries_.divide(words::utf8Of(text));
    if (!syllables.empty() && syllables != entries_.front().syllables) {
        entries_.push_back({std::move(text), std::move(syllables), Outcome::OtherEntry});
    }
}

bool WordSearch::isTooLong() const {
    return entries_.front().text.size() > kLongestWord || word_.notes > kMaxNotes;
}

bool WordSearch::isRightAsItIs() const {
    const auto& syllables = entries_.front().syllables;
    if (const auto holds = holdsFor(syllables, word_.notesOfSyllables)) {
        return carryHeld(typed_, syllables, *holds);
    }
    return word_.notesOfSyllables.empty() && typed_.size() == word_.notes;
}

WordSearch::Found WordSearch::fitToSyllables() {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (const auto holds = holdsFor(entries_[i].syllables, word_.notesOfSyllables)) {
            alike_ = alike_.value_or(i);
            if (auto found = hold(entries_[i], *holds)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

// Where nothing tells which syllable is held, the number of notes is all that counts.
WordSearch::Found WordSearch::fitToCount() {
    if (alike_) {
        return std::nullopt;
    }
    if (typed_.size() == word_.notes) {
        return asItIs(Outcome::AsItIs, {});
    }
    for (const auto& entry : entries_) {
        if (auto found = holdAny(entry)) {
            return found;
        }
    }
    return std::nullopt;
}

WordSearch::Found WordSearch::fitByBrackets() {
    if (!usesBrackets_) {
        return std::nullopt;
    }
    const auto& syllables = entries_[alike_.value_or(0)].syllables;
    const auto wanted = spreadAsDivided(syllables).value_or(
        spreadAsDivided(withSharedNotes()).value_or(spread(syllables, word_.notes)));
    const auto text = inBrackets(word_.text, wanted);
    auto carried = tries_.divide(text);
    if (carried.empty() || carried != wanted) {
        return std::nullopt;
    }
    return FittedWord{Outcome::Brackets, text, std::move(carried), {}};
}

std::optional<Syllables> WordSearch::spreadAsDivided(const Syllables& syllables) const {
    const auto holds = holdsFor(syllables, word_.notesOfSyllables);
    return holds ? std::optional(withHolds(syllables, *holds)) : std::nullopt;
}

// Where a score writes several words under one note, the last syllable of each comes with the first
// of the next.
Syllables WordSearch::withSharedNotes() {
    Syllables shared;
    for (const auto& part : words::wordsBetweenBlanks(words::utf8Of(entries_.front().text))) {
        const auto syllables = tries_.divide(part);
        const bool isFirst = shared.empty() || syllables.empty();
        if (!isFirst) {
            shared.back() += " " + syllables.front();
        }
        shared.insert(shared.end(), syllables.begin() + (isFirst ? 0 : 1), syllables.end());
    }
    return shared;
}

WordSearch::Found WordSearch::hold(const Entry& entry, const Holds& holds) {
    std::vector<bool> wanted;
    for (const auto count : holds) {
        wanted.push_back(count > 0);
    }
    auto text = entry.text;
    // From the last place to the first, so that those to come stay where they are.
    for (const auto place : placesIn(entry.text)) {
        if (std::find(wanted.begin(), wanted.end(), true) == wanted.end()) {
            break;
        }
        if (const auto held = heldAt(entry, place, wanted)) {
            wanted[*held] = false;
            text = withMarks(std::move(text), place, holds[*held]);
        }
    }
    const auto missing = std::find(wanted.begin(), wanted.end(), true);
    if (missing != wanted.end()) {
        unreached_ = unreached_.value_or(static_cast<std::size_t>(missing - wanted.begin()));
        return std::nullopt;
    }
    return tryHeld(entry, text, holds);
}

WordSearch::Found WordSearch::holdAny(const Entry& entry) {
    const auto count = entry.syllables.size();
    if (count == 0 || count > word_.notes) {
        return std::nullopt;
    }
    Holds holds(count);
    if (count == word_.notes) {
        return tryHeld(entry, entry.text, holds);
    }
    for (const auto place : placesIn(entry.text)) {
        if (const auto held = heldAt(entry, place, std::vector<bool>(count, true))) {
            holds[*held] = word_.notes - count;
            return tryHeld(entry, withMarks(entry.text, place, holds[*held]), holds);
        }
    }
    unreached_ = unreached_.value_or(count - 1);
    return std::nullopt;
}

WordSearch::Found WordSearch::tryHeld(const Entry& entry, const std::u32string& text,
                                      const Holds& holds) {
    const auto lyric = words::utf8Of(text);
    auto carried = tries_.divide(lyric);
    if (!carryHeld(carried, entry.syllables, holds)) {
        return std::nullopt;
    }
    return FittedWord{entry.outcome, lyric, std::move(carried), {}};
}

std::optional<std::size_t> WordSearch::heldAt(const Entry& entry, std::size_t place,
                                              const std::vector<bool>& wanted) {
    return heldOnce(tries_.divide(words::utf8Of(withMarks(entry.text, place, 1))), entry.syllables,
                    wanted);
}

FittedWord WordSearch::asItIs(Outcome outcome, std::string reason) const {
    auto carried = typed_;
    carried.resize(std::min(carried.size(), word_.notes));
    return {outcome, word_.text, std::move(carried), std::move(reason)};
}

FittedWord WordSearch::notFitted() const {
    const auto& syllables = entries_.front().syllables;
    if (isTooLong()) {
        return asItIs(Outcome::NotReached, "it is longer than a search goes");
    }
    if (tries_.areUsedUp()) {
        return asItIs(Outcome::NotReached,
                      "nothing was found in " + std::to_string(kMaxTries) + " tries");
    }
    if (unreached_ && holdsBrackets(word_.text)) {
        return asItIs(Outcome::NotReached, "its brackets give " +
                                               counted(syllables.size(), "syllable") + " for " +
                                               counted(word_.notes, "note"));
    }
    if (unreached_) {
        return asItIs(Outcome::NotReached,
                      "no hyphen holds syllable " + std::to_string(*unreached_ + 1));
    }
    return asItIs(Outcome::DividedOtherwise,
                  counted(syllables.size(), "syllable") + " for " + counted(word_.notes, "note"));
}

} // namespace wybeta::wysim::session
