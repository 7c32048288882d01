// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::dictionary {

// How a word is spoken, and how its spelling is divided. Both are cut into syllables by " . ",
// independently of each other. The spelling is a view into the dictionary's text.
struct PronunciationEntry {
    std::string phonemes;      // without stress digits: "ah . b ae n . d ah n"
    std::string_view spelling; // "a . ba . ndo . n"
};

// One line of a dictionary text, as views into it.
struct DictionaryLine {
    std::string_view word;
    std::string_view phonemes; // with stress digits: "ah0 . b ae1 n . d ah0 n"
    std::string_view spelling;
};

// Whether the byte is 0, 1 or 2, which say in the phonemes of a line how a vowel is stressed.
inline bool isStressDigit(char byte) {
    return byte >= '0' && byte <= '2';
}

std::string withoutStressDigits(std::string_view phonemes);

enum class TextLifetime {
    MayEndAfterLoading,   // the dictionary keeps a copy of the text
    OutlivesTheDictionary // the text is searched in place
};

// The words of a dictionary text, in byte-wise order. Keeps a sorted index of the text's lines; a
// line is cut into its fields when it is looked up. Views into a copy of the text stay valid when
// the dictionary is moved, and last until it is assigned to or destroyed.
class PronunciationDictionary {
public:
    // An empty dictionary.
    PronunciationDictionary() = default;

    // Takes the lines of a text of less than 2 GiB as loadPronunciationDictionary() does.
    PronunciationDictionary(std::string_view text, TextLifetime lifetime);

    // The entry of exactly this word; none if the dictionary does not hold it.
    std::optional<PronunciationEntry> find(std::string_view word) const;

    // The line of exactly this word; none if the dictionary does not hold it.
    std::optional<DictionaryLine> findLine(std::string_view word) const;

    std::size_t size() const { return lineStarts_.size(); }

    // The line of the word at a position below size(), in the order of the words.
    DictionaryLine line(std::size_t position) const { return lineAt(lineStarts_[position]); }

private:
    using Offset = std::uint32_t; // in the text, which is smaller than 2 GiB

    void addWord(std::vector<Offset>::iterator place, std::string_view word);
    void addOutOfOrder(std::string_view word);
    std::string_view wordAt(Offset start) const;
    DictionaryLine lineAt(Offset start) const;

    std::unique_ptr<const std::string> copy_; // null if the text outlives the dictionary
    std::string_view text_;
    std::vector<Offset> lineStarts_; // without leading white space, ascending by word
    // prefixStarts_[p] is the number of words that sort before the prefix p, so that findLine()
    // searches only from there to prefixStarts_[p + 1].
    std::vector<Offset> prefixStarts_;
};

// Loads a text of `size` bytes. A null text or a size below 1 gives an empty dictionary.
//
// A line ends at CR LF, CR, LF or the end of the text. Once the white space at both ends is
// trimmed, it must have exactly three fields separated by single TABs: word, phonemes and spelling.
// Any other line is ignored, and of the lines with the same word the last one counts.
PronunciationDictionary
loadPronunciationDictionary(const char* text, std::int32_t size,
                            TextLifetime lifetime = TextLifetime::MayEndAfterLoading);

// The one dictionary of the module, empty when the module is loaded and destroyed when it is
// unloaded. The caller fills it by assigning a loaded one.
PronunciationDictionary& pronunciationDictionary();

} // namespace wybeta::dictionary
