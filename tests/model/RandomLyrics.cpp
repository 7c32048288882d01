// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/model/RandomLyrics.h"

namespace wybeta::tests {

namespace {

constexpr const char* kKanaPieces[] = {
    "ア", "カ", "キ", "ク", "サ",   "ス",   "ツ", "テ", "フ", "ラ",   "ヴ",  "ヲ", "ン",
    "ッ", "ー", "ャ", "ィ", "キャ", "ティ", "あ", "か", "き", "く",   "さ",  "す", "つ",
    "て", "ふ", "ら", "ゔ", "を",   "ん",   "っ", "ゃ", "ぃ", "きゃ", "てぃ"};

// Written against each other, these never make a dictionary word that is not among them, but for
// the last two.
constexpr const char* kTypedWords[] = {
    "3d",  "abandon", "ceo", "don't", "every", "every(1)", "gorgeous", "hello", "idea", "love",
    "mr.", "rhythm",  "the", "world", "love",  "hello",    "xyzzy",    "a",     "a(1)"};
constexpr std::size_t kWordsToKeepApart = 2;

constexpr const char* kOthers[] = {"漢", "字", "Ａ", "０", "　", "ヵ", "ゖ", "é", "😀",
                                   "𠮷", "\t", "\n", "!",  "'",  "?",  "-",  "、"};

constexpr const char* kItems[] = {"k a", "sh i", "N", "cl", "ky  o", "", "カ", "😀", "-"};

constexpr const char* kBlanks[] = {"", "", "", " ", "  ", "\t", "\v", "\xC2\xA0", "　"};

constexpr const char* kScraps[] = {"[", "[", "]", "]", ",", " ", "\n", "\r", "love", "カ", "0"};

// Capitals here and there, and a hyphen now and then.
std::string typedWord(Random& random) {
    const std::size_t number = random.below(std::size(kTypedWords));
    std::string typed;
    const bool hyphenates = random.oneIn(3);
    const bool shouts = random.oneIn(6);
    for (const char* c = kTypedWords[number]; *c != '\0'; ++c) {
        typed += hyphenates && random.oneIn(4) ? "-" : "";
        const bool isLetter = *c >= 'a' && *c <= 'z';
        typed += isLetter && (shouts || random.oneIn(9)) ? static_cast<char>(*c - 'a' + 'A') : *c;
    }
    typed += hyphenates && random.oneIn(3) ? "-" : "";
    return number + kWordsToKeepApart >= std::size(kTypedWords) ? " " + typed + " " : typed;
}

std::string piece(Random& random) {
    switch (random.below(9)) {
    case 0:
    case 1:
        return typedWord(random);
    case 2:
        return "0";
    case 3:
        return " ";
    case 4:
        return random.pick(kOthers);
    default:
        return random.pick(kKanaPieces);
    }
}

std::string pieces(Random& random) {
    std::string text;
    for (std::size_t left = random.below(5) + 1; left > 0; --left) {
        text += piece(random);
    }
    return text;
}

std::string bracketed(Random& random) {
    std::string text = (random.oneIn(4) ? "" : pieces(random)) + "[";
    for (std::size_t left = random.below(4); left > 0; --left) {
        text += random.pick(kBlanks);
        text += random.pick(kItems);
        text += random.pick(kBlanks);
        text += left > 1 || random.oneIn(6) ? "," : "";
    }
    return text + "]" + (random.oneIn(4) ? pieces(random) : "");
}

std::string badlyBracketed(Random& random) {
    std::string text;
    for (std::size_t left = random.below(8) + 1; left > 0; --left) {
        text += random.pick(kScraps);
    }
    return text;
}

} // namespace

std::string randomLyric(Random& random, const std::string& present) {
    switch (random.below(14)) {
    case 0:
        return "";
    case 1:
    case 2:
        return present;
    case 3:
        return present + pieces(random);
    case 4:
    case 5:
        return bracketed(random);
    case 6:
    case 7:
        return badlyBracketed(random);
    default:
        return pieces(random);
    }
}

} // namespace wybeta::tests
