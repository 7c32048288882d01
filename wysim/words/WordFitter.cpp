// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/WordFitter.h"

#include "lyrics/BracketedPhonemes.h"
#include "wysim/words/HoldableText.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/UnsungWords.h"
#include "wysim/words/Wording.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace wybeta::wysim::words {

namespace {

using lyrics::PartKind;

// A way to pronounce a word.
struct Entry {
    HoldableText text;
    Outcome outcome;

    const Syllables& syllables() const { return text.syllables(); }
};

bool isSungBetween(const lyrics::LyricReading& reading, std::size_t begin, std::size_t end) {
    return std::any_of(reading.parts.begin(), reading.parts.end(), [&](const auto& part) {
        return part.begin >= begin && part.begin < end &&
               (part.syllables > 0 || part.kind == PartKind::Zero);
    });
}

std::string counted(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

// The fitting of one word. Goes from what changes the word least to what changes it most.
class WordFit {
public:
    WordFit(LyricReader& reader, const SongWord& word, WaysToFit ways)
        : reader_(reader), word_(word), ways_(ways),
          isBracketed_(lyrics::findBracketedPhonemes(word.text)) {}

    FittedWord run() {
        findMainEntry();
        if (const auto part = unsungPart()) {
            auto guessed = ways_.guesses ? fitByProposals() : std::nullopt;
            return guessed ? *std::move(guessed)
                           : asItIs(Outcome::Unknown, inDoubleQuotes(*part) + " is not sung");
        }
        if (isRightAsItIs()) {
            return asItIs(Outcome::AsItIs, {});
        }
        if (isTooLong()) {
            return asItIs(Outcome::NotReached, "it is longer than a search goes");
        }
        findOtherEntries();
        for (const auto way :
             {&WordFit::fitToSyllables, &WordFit::fitToCount, &WordFit::fitByBrackets}) {
            if (auto found = (this->*way)()) {
                return *std::move(found);
            }
        }
        return notFitted();
    }

private:
    using Found = std::optional<FittedWord>;

    const Entry& mainEntry() const { return entries_.front(); }

    // The word without hyphens, and what it gives with them.
    void findMainEntry() {
        const auto typed = charactersOf(word_.text);
        auto text = typed;
        if (!isBracketed_) {
            text.erase(std::remove(text.begin(), text.end(), U'-'), text.end());
        }
        const bool hasHyphens = text != typed;
        entries_.push_back({HoldableText(reader_, std::move(text)), Outcome::Hyphens});
        typed_ = hasHyphens ? reader_.read(word_.text) : mainEntry().text.reading();
    }

    // Of words that share a note, each has to be sung.
    std::optional<std::string> unsungPart() const {
        if (typed_.syllables.empty()) {
            return word_.text;
        }
        const auto text = charactersOf(word_.text);
        for (std::size_t begin = 0; !isBracketed_ && begin < text.size();) {
            const auto end = std::min(text.find(U' ', begin), text.size());
            if (begin < end && !isSungBetween(typed_, begin, end)) {
                return utf8Of(text.substr(begin, end - begin));
            }
            begin = end + 1;
        }
        return std::nullopt;
    }

    // Each of the words in turn by each of its entries.
    void findOtherEntries() {
        const auto text = mainEntry().text.text();
        const auto parts = mainEntry().text.reading().parts;
        for (const auto& part : parts) {
            if (part.isKnown) {
                findOtherEntries(text, part.begin, part.end);
            }
        }
    }

    void findOtherEntries(const std::u32string& text, std::size_t begin, std::size_t end) {
        const auto word = utf8Of(text.substr(begin, end - begin));
        const auto suffixBegin = dictionary::suffixStart(word);
        for (const auto& entry : dictionary::findWordEntries(reader_.dictionary(), word)) {
            const auto suffix = entry.word.substr(dictionary::suffixStart(entry.word));
            if (suffix != word.substr(suffixBegin)) {
                addOtherEntry(text.substr(0, begin + suffixBegin) + charactersOf(suffix) +
                              text.substr(end));
            }
        }
    }

    void addOtherEntry(std::u32string text) {
        Entry entry{HoldableText(reader_, std::move(text)), Outcome::OtherEntry};
        if (!entry.syllables().empty() && entry.syllables() != mainEntry().syllables()) {
            entries_.push_back(std::move(entry));
        }
    }

    bool isTooLong() const {
        return mainEntry().text.text().size() > WordFitter::kLongestWord ||
               word_.notes > WordFitter::kMaxNotes;
    }

    bool isRightAsItIs() const {
        const auto& text = mainEntry().text;
        if (const auto holds = holdsFor(text.syllables(), word_.notesOfSyllables)) {
            return typed_.syllables == text.syllablesHeld(*holds);
        }
        return word_.notesOfSyllables.empty() && typed_.syllables.size() == word_.notes;
    }

    Found fitToSyllables() {
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            if (const auto holds = holdsFor(entries_[i].syllables(), word_.notesOfSyllables)) {
                alike_ = alike_.value_or(i);
                if (auto found = hold(entries_[i], *holds)) {
                    return found;
                }
            }
        }
        return std::nullopt;
    }

    // Where nothing tells which syllable is held, the number of notes is all that counts.
    Found fitToCount() {
        if (alike_) {
            return std::nullopt;
        }
        if (typed_.syllables.size() == word_.notes) {
            return asItIs(Outcome::AsItIs, {});
        }
        for (const auto& entry : entries_) {
            const auto count = entry.syllables().size();
            if (count > 0 && count <= word_.notes) {
                Holds holds(count);
                holds[entry.text.lastInReach()] = word_.notes - count;
                if (auto found = hold(entry, holds)) {
                    return found;
                }
            }
        }
        return std::nullopt;
    }

    // The entry with its syllables held as asked for.
    Found hold(const Entry& entry, const Holds& holds) {
        if (const auto syllable = entry.text.outOfReach(holds)) {
            if (whyOutOfReach_.empty()) {
                whyOutOfReach_ = "no hyphen holds syllable " + std::to_string(*syllable + 1) +
                                 ": " + entry.text.whyOutOfReach(*syllable);
            }
            return std::nullopt;
        }
        return FittedWord{
            entry.outcome, entry.text.textHeld(holds), entry.text.syllablesHeld(holds), {}};
    }

    Found fitByBrackets() {
        return ways_.brackets ? inOneBracket(entries_[alike_.value_or(0)].syllables(),
                                             withSharedNotes(), Outcome::Brackets)
                              : std::nullopt;
    }

    // Of the pronunciations of the whole, that which the score divides likewise, or else the first.
    Found fitByProposals() {
        if (isBracketed_) {
            return std::nullopt;
        }
        const auto proposed = LyricPronunciations(charactersOf(word_.text), reader_).all();
        if (proposed.empty() || proposed.front().syllables.empty()) {
            return std::nullopt;
        }
        const auto alike = std::find_if(proposed.begin(), proposed.end(), [this](const auto& one) {
            return holdsFor(one.syllables, word_.notesOfSyllables).has_value();
        });
        const auto& best = (alike == proposed.end() ? proposed.begin() : alike)->syllables;
        return inOneBracket(best, best, Outcome::Guess);
    }

    // The syllables over the notes; those that share notes, where these are divided likewise.
    Found inOneBracket(const Syllables& syllables, const Syllables& shared, Outcome outcome) const {
        auto wanted = spreadAsDivided(syllables).value_or(
            spreadAsDivided(shared).value_or(spread(syllables, word_.notes)));
        const auto text = withBracket(word_.text, wanted);
        const auto bracketed = lyrics::findBracketedPhonemes(text);
        if (!bracketed || lyrics::bracketToSyllables(bracketed->phonemes) != wanted) {
            return std::nullopt;
        }
        return FittedWord{outcome, text, std::move(wanted), {}};
    }

    std::optional<Syllables> spreadAsDivided(const Syllables& syllables) const {
        const auto holds = holdsFor(syllables, word_.notesOfSyllables);
        return holds ? std::optional(withHolds(syllables, *holds)) : std::nullopt;
    }

    // Where a score writes several words under one note, the last syllable of each comes with the
    // first of the next.
    Syllables withSharedNotes() const {
        const auto& text = mainEntry().text;
        Syllables shared;
        std::size_t end = 0;
        for (const auto& part : text.reading().parts) {
            if (part.syllables == 0) {
                continue;
            }
            const auto between = text.text().substr(end, part.begin - end);
            const bool isNextWord = !shared.empty() && between.find(U' ') != std::u32string::npos;
            for (std::size_t i = 0; i < part.syllables; ++i) {
                const auto& syllable = text.syllables()[part.firstSyllable + i];
                if (i == 0 && isNextWord) {
                    shared.back() += " " + syllable;
                } else {
                    shared.push_back(syllable);
                }
            }
            end = part.end;
        }
        return shared;
    }

    FittedWord asItIs(Outcome outcome, std::string reason) const {
        return {outcome, word_.text, typed_.syllables, std::move(reason)};
    }

    FittedWord notFitted() const {
        const auto& syllables = mainEntry().syllables();
        if (!whyOutOfReach_.empty() && isBracketed_) {
            return asItIs(Outcome::NotReached, "its brackets give " +
                                                   counted(syllables.size(), "syllable") + " for " +
                                                   counted(word_.notes, "note"));
        }
        if (!whyOutOfReach_.empty()) {
            return asItIs(Outcome::NotReached, whyOutOfReach_);
        }
        return asItIs(Outcome::DividedOtherwise, counted(syllables.size(), "syllable") + " for " +
                                                     counted(word_.notes, "note"));
    }

    LyricReader& reader_;
    const SongWord& word_;
    WaysToFit ways_;
    bool isBracketed_;
    lyrics::LyricReading typed_;       // of the word as it is
    std::vector<Entry> entries_;       // the word's own first
    std::optional<std::size_t> alike_; // the first entry that the score divides likewise
    std::string whyOutOfReach_;        // of the first syllable that could not be held as asked for
};

} // namespace

const FittedWord& WordFitter::fit(const SongWord& word) {
    const auto [known, isNew] =
        fitted_.try_emplace({word.text, {word.notes, word.notesOfSyllables}});
    if (isNew) {
        known->second = WordFit(reader_, word, ways_).run();
    }
    return known->second;
}

} // namespace wybeta::wysim::words
