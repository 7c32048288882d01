# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of mutants.py: what it changes, what it leaves alone, and which changes it knows."""

import contextlib
import io
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

PROJECT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(PROJECT / "tools"))
import mutants  # noqa: E402


def changed(code: str) -> set[str]:
    """Returns what becomes of a line of code within a function."""
    return {mutant.after for mutant in mutants.mutants_of("a.cpp", f"{{\n    {code}\n}}\n")}


class Changes(unittest.TestCase):
    def test_swap_operators(self) -> None:
        for before, after in (("a < b", "a <= b"), ("a >= b", "a > b"), ("a == b", "a != b"),
                              ("a || b", "a && b"), ("a - b", "a + b"), ("a += b", "a -= b"),
                              ("x++", "x--"), ("!a", "a"), ("false", "true")):
            self.assertIn(f"int x = {after};", changed(f"int x = {before};"))

    def test_take_no_bracket_of_a_template_for_a_comparison(self) -> None:
        self.assertEqual(changed("std::vector<int> list;"), set())

    def test_take_no_arrow_and_no_reference_for_an_operator(self) -> None:
        self.assertEqual(changed("const auto&& x = a->b;"), set())

    def test_move_constants_up_and_down(self) -> None:
        self.assertEqual(changed("int x = 1'000;"), {"int x = 1001;", "int x = 999;"})
        self.assertEqual(changed("int x = 0xFFu;"), {"int x = 0x100u;", "int x = 0xFEu;"})
        self.assertEqual(changed("double x7 = 0.5;"), set())

    def test_negate_conditions(self) -> None:
        self.assertIn("while (!(f(a, g()))) {", changed("while (f(a, g())) {"))
        self.assertIn("if (const auto x = f(); !x) {", changed("if (const auto x = f()) {"))
        self.assertEqual(changed("while (const auto x = f()) {"), set())

    def test_negate_no_condition_whose_operator_is_swapped(self) -> None:
        self.assertEqual(changed("if (a == b) {"), {"if (a != b) {"})
        self.assertEqual(changed("if (!a) {"), {"if (a) {"})

    def test_delete_statements(self) -> None:
        for statement in ("f(a);", "a.b()->c(d);", "x[&i].y = 'z';", "*at++ = z;", "++x;",
                          "f(a,\n      b);", "f([](int x) { return x; });"):
            self.assertIn(";", changed(statement))
        self.assertIn("void f() { ; }", changed("void f() { x = y; }"))

    def test_delete_no_declarations(self) -> None:
        for declaration in ("int x = y;", "Word word(a);", "Word(Other a);", "Word() = delete;"):
            self.assertNotIn(";", changed(declaration))

    def test_return_something_else(self) -> None:
        self.assertEqual(changed("return f(a);"), {"return {};"})
        self.assertEqual(changed("return a && b;"),
                         {"return {};", "return true;", "return a || b;"})
        self.assertEqual(changed("return;"), {";"})

    def test_leave_loops_or_stay_and_drop_an_else(self) -> None:
        self.assertEqual(changed("continue;"), {"break;"})
        self.assertEqual(changed("break;"), {"continue;"})
        self.assertEqual(changed("} else {"), {"} {"})

    def test_leave_alone_what_is_no_code(self) -> None:
        for line in ("// a < b, 1", "/* a < b,\n 1 */", 'const char* x = "a < b \\" 1";',
                     "char x = '1';", "#include <a1/1.h>\n", "static_assert(a < b && 1 == 1);",
                     "{U'a', 0, \"b\"}, {U'c', 0, \"d\"},", "virtual void f() const = 0;"):
            self.assertEqual(changed(line), set())

    def test_keep_the_strings_of_a_negated_condition(self) -> None:
        self.assertIn('if (!(f("a, b"))) {', changed('if (f("a, b")) {'))

    def test_are_made_in_one_place_each(self) -> None:
        text = "int f() {\n    return a < 1;\n}\n"
        for mutant in mutants.mutants_of("a.cpp", text):
            self.assertEqual((mutant.line, mutant.before), (2, "return a < 1;"))
            self.assertEqual(mutant.text, text.replace(mutant.before, mutant.after))

    def test_show_what_tells_a_line_from_others_like_it(self) -> None:
        text = "{\n    if (a) {\n        x = b;\n    }\n    if (c) {\n        x = b;\n    }\n}\n"
        shown = [mutant.before for mutant in mutants.mutants_of("a.cpp", text) if mutant.after.endswith("{ ;")]
        self.assertEqual(shown, ["if (a) { x = b;", "if (c) { x = b;"])


class KnownMutants(unittest.TestCase):
    def test_are_the_rows_of_the_document(self) -> None:
        self.assertEqual(
            mutants.known_ones("| file | line |\n|---|---|\n| `a.cpp` | `x \\|\\| y` | `x && y` | z |\n"),
            {("a.cpp", "x || y", "x && y")})

    def test_are_one_change_each_that_the_tool_makes(self) -> None:
        for file, before, after in mutants.known_ones((PROJECT / "docs/mutants.md").read_text()):
            made = mutants.mutants_of(file, (PROJECT / file).read_text())
            lines = [(mutant.before, mutant.after) for mutant in made]
            self.assertEqual(lines.count((before, after)), 1, (file, before, after))


class Runs(unittest.TestCase):
    def run_on(self, known: str, *options: str) -> tuple[int, str, list[str]]:
        """Runs the tool where no test notices anything; returns its status, its output, and what it
        tried."""
        tried: list[str] = []

        def attempt(tree: object, mutant: mutants.Mutant) -> tuple[str, str]:
            tried.append(mutant.after)
            return "unnoticed", ""

        (self.folder / "docs/mutants.md").write_text(known)
        with mock.patch.multiple(mutants, PROJECT=self.folder, FOLDER=self.folder / "build"), \
                mock.patch.multiple(mutants.Tree, __init__=lambda self, folder: None, attempt=attempt), \
                mock.patch.object(sys, "argv", ["mutants.py", *options]), \
                contextlib.redirect_stdout(io.StringIO()) as output:
            return mutants.main(), output.getvalue(), tried

    def setUp(self) -> None:
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)
        for name in ("docs", "src"):
            (self.folder / name).mkdir()
        (self.folder / "src/a.cpp").write_text("{\n    if (a < b) {\n    x = true;\n}\n")

    def test_list_what_no_test_noticed(self) -> None:
        status, output, _ = self.run_on("")
        self.assertEqual(status, 1)
        self.assertIn("src/a.cpp:3\n  - x = true;\n  + x = false;\n", output)

    def test_leave_out_known_ones_and_say_how_many(self) -> None:
        _, output, tried = self.run_on("| `src/a.cpp` | `x = true;` | `x = false;` | |\n")
        self.assertNotIn("x = false;", tried)
        self.assertIn("1 in docs/mutants.md", output)

    def test_succeed_when_all_are_known(self) -> None:
        status, _, tried = self.run_on("".join(
            f"| `src/a.cpp` | `{mutant.before}` | `{mutant.after}` | |\n"
            for mutant in mutants.mutants_of("src/a.cpp", (self.folder / "src/a.cpp").read_text())))
        self.assertEqual((status, tried), (0, []))

    def test_go_on_where_one_was_ended(self) -> None:
        _, _, first = self.run_on("", "--count", "2")
        _, _, second = self.run_on("", "--count", "3")
        self.assertEqual((len(first), len(second)), (2, 1))
        self.assertEqual(len(self.run_on("", "--count", "3", "--again")[2]), 3)

    def test_refuse_a_folder_without_sources(self) -> None:
        with contextlib.redirect_stderr(io.StringIO()) as errors, self.assertRaises(SystemExit):
            self.run_on("", "docs")
        self.assertIn("found none in docs", errors.getvalue())

    def test_choose_by_the_seed(self) -> None:
        places = mutants.mutants_of("a.cpp", "int x[] = {0, 1, 2, 3};")
        orders = [[place.after for place in sorted(places, key=lambda one: one.place_in_line(seed))]
                  for seed in (1, 1, 2)]
        self.assertEqual(orders[0], orders[1])
        self.assertNotEqual(orders[0], orders[2])


if __name__ == "__main__":
    unittest.main()
