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
// is assigned to or destroyed; they stay good when it is moved.
struct PronunciationEntry {
    std::string_view phonemes; // without stress digits: "ah . b ae n . d ah n"
    std::string_view spelling; // "a . ba . ndo . n"
};

// The words of a dictionary text with their entries, in byte-wise order of the words.
class PronunciationDictionary {
    struct Place;

public:
    // A word with its entry. Those that the dictionary gives are views into it.
    struct Item {
        std::string_view word;
        std::string_view phonemes;
        std::string_view spelling;
    };

    class Iterator {
    public:
        Item operator*() const { return dictionary_->itemAt(*place_); }
        Iterator& operator++() {
            ++place_;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return place_ != other.place_; }

    private:
        friend class PronunciationDictionary;
        Iterator(const PronunciationDictionary* dictionary, const Place* place)
            : dictionary_(dictionary), place_(place) {}

        const PronunciationDictionary* dictionary_;
        const Place* place_;
    };

    PronunciationDictionary() = default;

    // The entry of exactly this word; none if the dictionary does not hold it.
    std::optional<PronunciationEntry> find(std::string_view word) const;

    std::size_t size() const { return places_.size(); }

    Iterator begin() const { return {this, places_.data()}; }
    Iterator end() const { return {this, places_.data() + places_.size()}; }

private:
    friend PronunciationDictionary loadPronunciationDictionary(const char* text, std::int32_t size);

    // Where an item's texts begin in packed_, one right behind the other, and where the last ends.
    struct Place {
        std::uint32_t word;
        std::uint32_t phonemes;
        std::uint32_t spelling;
        std::uint32_t end;
    };

    explicit PronunciationDictionary(std::string_view text);

    Place pack(const Item& item, char*& out);
    void merge(std::vector<Place> late);
    void countStarts();

    std::string_view packed(std::uint32_t begin, std::uint32_t end) const {
        return {packed_.data() + begin, end - begin};
    }
    std::string_view wordAt(const Place& place) const { return packed(place.word, place.phonemes); }
    Item itemAt(const Place& place) const;

    std::vector<char> packed_;
    std::vector<Place> places_; // ascending by word
    // How many words come before those that begin with each two bytes: a search has few to look at.
    std::vector<std::uint32_t> starts_;
};

// Loads a text of `size` bytes, which may be gone after the call. A null text or a size below 1
// gives an empty dictionary.
//
// A line ends at CR LF, CR, LF or the end of the text. Without the white space at both of its ends
// it is three fields with one TAB between each two: word, phonemes and spelling. The stress digits
// 0, 1 and 2 are taken out of the phonemes. Any other line is passed over, and of the lines with
// the same word the last one counts.
PronunciationDictionary loadPronunciationDictionary(const char* text, std::int32_t size);

// The one dictionary of the module. It is there, empty, from the time the module is loaded until it
// is unloaded; the caller fills it by assigning a loaded one.
PronunciationDictionary& pronunciationDictionary();

} // namespace wybeta::dictionary
