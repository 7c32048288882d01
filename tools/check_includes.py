#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks the includes of every source file.

Run from the top of the project. Prints a line for each mistake; exit status 1 when there is one.

- A folder includes only what the table in docs/architecture.md allows it.
- A header begins with #pragma once, and a source file includes its own header first.
- A file includes what it uses, or its own header does, and it includes nothing else. This goes by
  words: the names that the project's headers declare, and those of the libraries in LIBRARIES.
"""

import re
import sys
from collections import defaultdict
from pathlib import Path

ROW = re.compile(r"^\| `(\w+)/` \|[^|]*\|([^|]*)\|$", re.MULTILINE)
INCLUDE = re.compile(r'^#include (?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
COMMENT_OR_TEXT = re.compile(
    r'R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"|//[^\n]*|/\*.*?\*/', re.DOTALL
)
# What a header declares for others: types, functions outside of types, constants and macros.
DECLARATION = re.compile(
    r"^(?:class|struct|enum class|enum)\s+(\w+)(?=[^;]*\{)"
    r"|^using (\w+) ="
    r"|^(?:inline |extern |static )*constexpr [^=({]*?(\w+)(?:\[\])?(?= =|\(|\{)"
    r"|^(?!using|namespace|class|struct|enum|template|friend|return|constexpr|extern \"|#|\}| )"
    r"[^\n=({;]*?[ *&](\w+)\("
    r"|^#define (\w+)",
    re.MULTILINE,
)

# Other names in front of a name make it one that the headers do not declare for others.
NAMESPACES = "(?:wybeta|host|dictionary|resources|lyrics|editsteps|simulator|tests|fuzz|bench)"

# What stands for the use of a library's header, as a pattern. Headers that are not here, and names
# that are not here, are not looked at.
LIBRARIES = {
    "algorithm": r"std::(all_of|any_of|none_of|find|find_if|find_if_not|count|count_if|copy|copy_n"
    r"|copy_if|fill|fill_n|transform|generate|generate_n|remove|remove_if|unique|reverse|rotate"
    r"|shuffle|sort|stable_sort|lower_bound|upper_bound|equal_range|binary_search|inplace_merge"
    r"|merge|includes|set_\w+|min|max|minmax|clamp|min_element|max_element|mismatch|equal|search"
    r"|lexicographical_compare|replace|replace_if|adjacent_find|is_sorted|for_each|for_each_n"
    r"|swap_ranges|partition|stable_partition|partition_point|nth_element|is_permutation)\b",
    "array": r"std::array\b",
    "atomic": r"std::atomic\w*\b",
    "cctype": r"std::(is(alnum|alpha|digit|space|upper|lower|print|punct|xdigit)|to(lower|upper))\b",
    "charconv": r"std::(from_chars|to_chars)\w*\b",
    "chrono": r"std::chrono\b|std::chrono_literals",
    "cmath": r"std::(abs|floor|ceil|round|lround|llround|sqrt|pow|fmod|isfinite|isnan|log2?|exp|sin|cos)\b",
    "condition_variable": r"std::condition_variable\b",
    "cstddef": r"std::(size_t|ptrdiff_t|byte|nullptr_t)\b|\boffsetof\(",
    "cstdint": r"std::u?int(8|16|32|64|ptr|max)_t\b",
    "cstdlib": r"std::(malloc|free|abort|exit|getenv|strto\w+|system|EXIT_\w+)\b|\bEXIT_\w+\b|\b_?putenv\w*\(|\bsetenv\(",
    "cstring": r"std::(mem(cpy|cmp|set|move|chr)|str(len|cmp|ncmp|chr|rchr|str))\b",
    "cwchar": r"std::(wmem\w+|wcs\w+)\b",
    "deque": r"std::deque\b",
    "exception": r"std::(exception|exception_ptr|current_exception|rethrow_exception|terminate|uncaught_exceptions)\b",
    "filesystem": r"std::filesystem\b",
    "fstream": r"std::([io]?fstream)\b",
    "functional": r"std::(function|hash|less|greater|plus|minus|equal_to|ref|cref|invoke|mem_fn|bind|not_fn)\b",
    "initializer_list": r"std::initializer_list\b",
    "iomanip": r"std::(setw|setprecision|setfill|quoted|put_time)\b",
    "iostream": r"std::(cin|cout|cerr|clog)\b",
    "iterator": r"std::(back_inserter|front_inserter|inserter|istreambuf_iterator|ostreambuf_iterator"
    r"|istream_iterator|ostream_iterator|next|prev|distance|advance|make_move_iterator"
    r"|iterator_traits|\w+_iterator_tag|begin|end|cbegin|cend|size|empty|data)\b",
    "limits": r"std::numeric_limits\b",
    "list": r"std::list\b",
    "map": r"std::(multi)?map\b",
    "memory": r"std::(unique_ptr|shared_ptr|weak_ptr|make_unique|make_shared|allocator|addressof"
    r"|enable_shared_from_this|\w+_pointer_cast|destroy_at|owner_less)\b",
    "mutex": r"std::(mutex|lock_guard|unique_lock|scoped_lock|call_once|once_flag)\b",
    "new": r"std::(bad_alloc|nothrow|launder|align_val_t|set_new_handler|bad_array_new_length)\b",
    "numeric": r"std::(accumulate|iota|inner_product|partial_sum|adjacent_difference|reduce|gcd|lcm)\b",
    "optional": r"std::(optional|nullopt|make_optional)\b",
    "random": r"std::(mt19937\w*|uniform_\w+_distribution|random_device|minstd_rand|bernoulli_distribution)\b",
    "regex": r"std::(s|c)?(regex|match)\w*\b",
    "set": r"std::(multi)?set\b",
    "sstream": r"std::[io]?stringstream\b",
    "stdexcept": r"std::(runtime_error|logic_error|invalid_argument|out_of_range|length_error|domain_error|range_error)\b",
    "string": r"std::(u16|u32|w)?string\b|std::(to_string|getline|sto[iuldf]\w*|char_traits)\b",
    "string_view": r"std::(u16|u32|w)?string_view\b",
    "system_error": r"std::(error_code|errc|make_error_code|system_error|error_condition)\b",
    "thread": r"std::(thread|this_thread)\b",
    "tuple": r"std::(tuple|tie|make_tuple|forward_as_tuple|ignore)\b",
    "type_traits": r"std::(is_\w+|enable_if_t|conditional_t|decay_t|remove_\w+_t|underlying_type_t|invoke_result_t|void_t|add_\w+_t)\b(?!\()",
    "typeinfo": r"\btypeid\(",
    "unordered_map": r"std::unordered_(multi)?map\b",
    "unordered_set": r"std::unordered_(multi)?set\b",
    "utility": r"std::(move|forward|swap|exchange|pair|make_pair|as_const|declval|index_sequence\w*|make_index_sequence|integer_sequence|in_place\w*)\b",
    "variant": r"std::(variant|visit|get_if|holds_alternative|monostate)\b",
    "vector": r"std::vector\b",
    "gtest/gtest.h": r"\b(TEST|TEST_F|TEST_P|EXPECT_\w+|ASSERT_\w+|INSTANTIATE_TEST_SUITE_P|SCOPED_TRACE|ADD_FAILURE)\(|\btesting::",
    "utf8cpp/utf8.h": r"\butf8::(?!unchecked)\w",
    "base/source/fobject.h": r"\bFObject\b",
    "pluginterfaces/base/ipluginbase.h": r"\b(IPluginBase|IPluginFactory\d?|GetPluginFactory|PFactoryInfo|PClassInfo\w*)\b",
    "pluginterfaces/base/fvariant.h": r"\bFVariant\b",
    "pluginterfaces/base/smartpointer.h": r"\b(IPtr|Steinberg::(owned|shared))\b",
}


def read_rules(text: str) -> dict[str, list[str]]:
    """Returns for each folder the beginnings of the paths that it may include."""
    return {
        folder: [f"{folder}/"] + re.findall(r"`([^`]+)`", allowed)
        for folder, allowed in ROW.findall(text)
    }


def code_of(text: str) -> str:
    """Returns the text without comments, the contents of literals and includes."""
    return INCLUDE.sub("", COMMENT_OR_TEXT.sub(lambda found: '""' if '"' in found[0][:2] else "", text))


def declared_names(header: str) -> set[str]:
    """Returns what a header of the project declares for others."""
    return {name for names in DECLARATION.findall(code_of(header)) for name in names if name}


def own_names(code: str) -> set[str]:
    """Returns what a file declares itself: inside of its types, forward, and as parameters."""
    inner = re.sub(r"^ +", "", code, flags=re.MULTILINE)
    others = re.findall(r"\b(?:class|struct|typename) (\w+)(?=[;,>])", code)
    return declared_names(inner) | set(others)


def uses(code: str, name: str) -> bool:
    """Whether code names a type, constant or macro, or calls a function that is no member."""
    is_function = name[0].islower() and not re.match("k[A-Z]", name)
    pattern = rf"(?<![.>:\w])(?:{NAMESPACES}::)*{name}\b" + (r"\s*[(<,)]" if is_function else "")
    return re.search(pattern, code) is not None


def folder_of(path: str) -> str:
    return path.partition("/")[0]


class Sources:
    """All source files of the project, by their paths from its top."""

    def __init__(self, texts: dict[str, str], allowed: dict[str, list[str]]):
        self.texts = texts
        self.allowed = {folder: tuple(paths) for folder, paths in allowed.items()}
        self.codes = {path: code_of(text) for path, text in texts.items()}
        self.words = {path: set(re.findall(r"\w+", code)) for path, code in self.codes.items()}
        self.names = {
            path: declared_names(text) for path, text in texts.items() if path.endswith(".h")
        }
        self.homes = defaultdict(list)
        for header, names in self.names.items():
            for name in names:
                self.homes[name].append(header)

    def includes(self, path: str) -> list[str]:
        return ["".join(found) for found in INCLUDE.findall(self.texts.get(path, ""))]

    def own_header(self, path: str) -> str:
        header = re.sub(r"\.cpp$", ".h", path)
        return header if header != path and header in self.texts else ""

    def missing(self, path: str) -> list[str]:
        """Returns what a file uses and neither it nor its own header includes."""
        code = self.codes[path]
        own = self.own_header(path)
        there = {path, own, *self.includes(path), *self.includes(own)}
        declared = own_names(code + self.codes.get(own, ""))
        used = [library for library, names in LIBRARIES.items() if re.search(names, code)]
        for name in self.words[path] & self.homes.keys() - declared:
            homes = [home for home in self.homes[name] if self.may_include(path, home)]
            # A name that two headers declare does not tell which of them is meant.
            if len(homes) == 1 and uses(code, name):
                used += homes
        return sorted(set(used) - there)

    def unused(self, path: str) -> list[str]:
        """Returns what a file includes and does not use."""
        return [
            include
            for include in self.includes(path)
            if include != self.own_header(path) and not self.is_used(path, include)
        ]

    def is_used(self, path: str, include: str) -> bool:
        if include in self.names:
            return not self.names[include].isdisjoint(self.words[path])
        # Any header of the SDK is good for its basic types as well.
        if include not in LIBRARIES or include.startswith("pluginterfaces/"):
            return True
        return re.search(LIBRARIES[include], self.codes[path]) is not None

    def may_include(self, path: str, include: str) -> bool:
        return include.startswith(self.allowed[folder_of(path)])

    def mistakes(self, path: str) -> list[str]:
        """Returns what is wrong with the includes of a file."""
        own = self.own_header(path)
        mistakes = [f"uses {include} without including it" for include in self.missing(path)]
        mistakes += [f"includes {include} and does not use it" for include in self.unused(path)]
        mistakes += [
            f"{folder_of(path)}/ may not include {include}"
            for include in self.includes(path)
            if folder_of(include) in self.allowed and not self.may_include(path, include)
        ]
        if own and self.includes(path)[:1] != [own]:
            mistakes.append(f"does not include {own} first")
        if path.endswith(".h") and "\n#pragma once\n" not in self.texts[path]:
            mistakes.append("has no #pragma once")
        return [f"{path}: {mistake}" for mistake in mistakes]


def main() -> int:
    allowed = read_rules(Path("docs/architecture.md").read_text(encoding="utf-8"))
    files = [
        file
        for folder in allowed
        for file in sorted(Path(folder).rglob("*"))
        if file.suffix in (".h", ".cpp")
    ]
    texts = {file.as_posix(): file.read_text(encoding="utf-8") for file in files}
    sources = Sources(texts, allowed)
    mistakes = [mistake for path in texts for mistake in sources.mistakes(path)]
    print("\n".join(mistakes), end="\n" if mistakes else "")
    return 1 if mistakes or not texts else 0


if __name__ == "__main__":
    sys.exit(main())
