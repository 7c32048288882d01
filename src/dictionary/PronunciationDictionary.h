// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace wybeta::dictionary {

// How a word is spoken, and how its spelling is divided. Both are cut into syllables by " . ",
// independently of each other. The views belong to the dictionary that gave them and last until it
// is assigned to or destroyed; they stay valid when it is moved.
struct PronunciationEntry {
    std::string_view phonemes; // without stress digits: "ah . b ae n . d ah n"
    std::string_view spelling; // "a . ba . ndo . n"
};

// One line of a dictionary text.
struct DictionaryLine {
    std::string_view word;
    std::string_view phonemes;
    std::string_view spelling;
};

// The words of a dictionary text with their entries, in byte-wise order of the words. Keeps the
// text and a sorted index of its lines; a line is cut into its fields when it is looked up.
class PronunciationDictionary {
public:
    PronunciationDictionary() = default;

    // The entry of exactly this word; none if the dictionary does not hold it.
    std::optional<PronunciationEntry> find(std::string_view word) const;

    std::size_t size() const { return index_.size(); }

    // The line of the word at a position below size(), in the order of the words.
    DictionaryLine line(std::size_t position) const { return lineAt(index_[position]); }

private:
    friend PronunciationDictionary loadPronunciationDictionary(const char* text, std::int32_t size);

    using Offset = std::uint32_t; // of a line in the text, which is smaller than 2 GiB

    explicit PronunciationDictionary(std::string_view text);

    void addLine(char* begin, char* end, std::vector<Offset>& outOfOrder);
    void mergeInto(std::vector<Offset> outOfOrder);
    void countPrefixes();

    std::string_view textFrom(Offset offset) const {
        return {text_.data() + offset, text_.size() - offset};
    }
    std::string_view wordAt(Offset offset) const;
    DictionaryLine lineAt(Offset offset) const;

    std::vector<char> text_;    // each line of the index ends in LF and has no stress digits
    std::vector<Offset> index_; // ascending by word
    // prefixStarts_[p] is the number of words that sort before the two-byte prefix p, so that
    // find() searches only from there to prefixStarts_[p + 1].
    std::vector<std::uint32_t> prefixStarts_;
};

// Loads a text of `size` bytes, which may be gone after the call. A null text or a size below 1
// gives an empty dictionary.
//
// A line ends at CR LF, CR, LF or the end of the text. Once the white space at both ends is
// trimmed, it must have exactly three fields separated by single TABs: word, phonemes and spelling.
// The stress digits 0, 1 and 2 are removed from the phonemes. Any other line is ignored, and of the
// lines with the same word the last one counts.
PronunciationDictionary loadPronunciationDictionary(const char* text, std::int32_t size);

// The one dictionary of the module, empty when the module is loaded and destroyed when it is
// unloaded. The caller fills it by assigning a loaded one.
PronunciationDictionary& pronunciationDictionary();

} // namespace wybeta::dictionary
