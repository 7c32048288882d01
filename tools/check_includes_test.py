#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of check_includes.py, on a project of two folders."""

import contextlib
import io
import os
import tempfile
import unittest
from pathlib import Path

import check_includes

ARCHITECTURE = """
| folder | what is in it | may include |
|---|---|---|
| `lower/` | what knows nobody | |
| `upper/` | what knows the other | `lower/Song.h` `lower/Note.h` |
"""

NOTE_HEADER = """// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

struct Note {
    std::string lyric;
};
"""
SONG_HEADER = """// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lower/Note.h"

#include <vector>

// Counts the notes, as std::count would.
int countNotes(const std::vector<Note>& notes);
"""
SONG_SOURCE = """// SPDX-License-Identifier: GPL-3.0-or-later
#include "lower/Song.h"

int countNotes(const std::vector<Note>& notes) {
    return static_cast<int>(notes.size());
}
"""
EDITOR_SOURCE = """// SPDX-License-Identifier: GPL-3.0-or-later
#include "lower/Note.h"
#include "lower/Song.h"

int countTwo(const Note& note) {
    return countNotes({note, note});
}
"""
PROJECT = {
    "lower/Note.h": NOTE_HEADER,
    "lower/Song.h": SONG_HEADER,
    "lower/Song.cpp": SONG_SOURCE,
    "upper/Editor.cpp": EDITOR_SOURCE,
}


def mistakes_in(changed: dict[str, str]) -> list[str]:
    """Returns what is wrong with the project when some of its files are changed or added."""
    rules = check_includes.read_rules(ARCHITECTURE)
    sources = check_includes.Sources(PROJECT | changed, rules)
    return [mistake for path in sources.texts for mistake in sources.mistakes(path)]


class Rules(unittest.TestCase):
    def test_a_project_that_keeps_them_has_no_mistakes(self) -> None:
        self.assertEqual(mistakes_in({}), [])

    def test_are_read_from_the_table_of_folders(self) -> None:
        self.assertEqual(
            check_includes.read_rules(ARCHITECTURE),
            {"lower": ["lower/"], "upper": ["upper/", "lower/Song.h", "lower/Note.h"]},
        )

    def test_a_folder_includes_only_what_the_table_allows_it(self) -> None:
        upwards = NOTE_HEADER.replace("<string>", '<string>\n\n#include "upper/Editor.h"')
        self.assertEqual(
            mistakes_in({"lower/Note.h": upwards}),
            ["lower/Note.h: lower/ may not include upper/Editor.h"],
        )

    def test_a_folder_may_be_allowed_single_headers(self) -> None:
        header = NOTE_HEADER.replace("Note", "Rest")
        source = EDITOR_SOURCE.replace("#include", '#include "lower/Rest.h"\n#include', 1)
        self.assertEqual(
            mistakes_in({"lower/Rest.h": header, "upper/Editor.cpp": source + "Rest rest;\n"}),
            ["upper/Editor.cpp: upper/ may not include lower/Rest.h"],
        )

    def test_a_source_file_includes_its_own_header_first(self) -> None:
        late = SONG_SOURCE.replace("#include", '#include "lower/Note.h"\n#include')
        self.assertEqual(
            mistakes_in({"lower/Song.cpp": late}),
            ["lower/Song.cpp: does not include lower/Song.h first"],
        )

    def test_a_header_has_pragma_once(self) -> None:
        bare = NOTE_HEADER.replace("#pragma once\n", "")
        self.assertEqual(mistakes_in({"lower/Note.h": bare}), ["lower/Note.h: has no #pragma once"])


class Use(unittest.TestCase):
    def test_of_a_type_or_a_function_asks_for_its_header(self) -> None:
        for header in ("lower/Note.h", "lower/Song.h"):
            with self.subTest(header):
                without = EDITOR_SOURCE.replace(f'#include "{header}"\n', "")
                self.assertEqual(
                    mistakes_in({"upper/Editor.cpp": without}),
                    [f"upper/Editor.cpp: uses {header} without including it"],
                )

    def test_of_a_library_asks_for_its_header(self) -> None:
        source = SONG_SOURCE.replace("notes.size()", "std::count(notes.begin(), notes.end(), {})")
        self.assertEqual(
            mistakes_in({"lower/Song.cpp": source}),
            ["lower/Song.cpp: uses algorithm without including it"],
        )

    def test_is_not_what_a_comment_or_a_text_names(self) -> None:
        text = 'const char* const help = "Note, std::count";  // countNotes(), std::sort\n'
        self.assertEqual(mistakes_in({"upper/Help.cpp": text}), [])

    def test_of_what_the_own_header_includes_asks_for_nothing(self) -> None:
        self.assertNotIn("<vector>", SONG_SOURCE)
        self.assertEqual(mistakes_in({"lower/Song.cpp": SONG_SOURCE}), [])

    def test_is_expected_of_each_header_that_is_included(self) -> None:
        for header, include in (("lower/Song.h", '"lower/Song.h"'), ("vector", "<vector>")):
            with self.subTest(header):
                idle = f"#include {include}\n\nint countNone();\n"
                self.assertEqual(
                    mistakes_in({"upper/Idle.cpp": idle}),
                    [f"upper/Idle.cpp: includes {header} and does not use it"],
                )

    def test_of_libraries_that_are_not_listed_is_not_looked_at(self) -> None:
        source = "#include <some_library.h>\n\nint countNone();\n"
        self.assertEqual(mistakes_in({"upper/Other.cpp": source}), [])


class Run(unittest.TestCase):
    def run_on(self, files: dict[str, str]) -> tuple[int, str]:
        """Runs the program on a project with these files; its status and what it prints."""
        with tempfile.TemporaryDirectory() as folder:
            for name, text in (files | {"docs/architecture.md": ARCHITECTURE}).items():
                path = Path(folder, name)
                path.parent.mkdir(exist_ok=True)
                path.write_text(text, encoding="utf-8")
            before = Path.cwd()
            os.chdir(folder)
            try:
                with contextlib.redirect_stdout(io.StringIO()) as printed:
                    return check_includes.main(), printed.getvalue()
            finally:
                os.chdir(before)

    def test_of_a_clean_project_succeeds_and_prints_nothing(self) -> None:
        self.assertEqual(self.run_on(PROJECT), (0, ""))

    def test_prints_each_mistake_on_a_line_and_fails(self) -> None:
        bare = NOTE_HEADER.replace("#pragma once\n", "")
        self.assertEqual(
            self.run_on(PROJECT | {"lower/Note.h": bare}),
            (1, "lower/Note.h: has no #pragma once\n"),
        )

    def test_fails_when_there_is_nothing_to_check(self) -> None:
        self.assertEqual(self.run_on({}), (1, ""))


if __name__ == "__main__":
    unittest.main()
