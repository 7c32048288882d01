# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of mutants.py: what it changes, what it leaves alone, and which changes it knows."""

import contextlib
import fcntl
import io
import sys
import tempfile
import threading
import time
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


class Trees(unittest.TestCase):
    def setUp(self) -> None:
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.tree = object.__new__(mutants.Tree)
        self.tree.folder, self.tree.is_stopped = Path(scratch.name), False
        (self.tree.folder / "build").mkdir()

    def test_remove_what_is_no_source_any_more(self) -> None:
        self.tree.originals = {"a.cpp": b""}
        for name in ("a.cpp", "b.cpp", "build/c.o"):
            (self.tree.folder / name).touch()
        self.tree.remove_others()
        left = [path.name for path in self.tree.folder.rglob("*") if path.is_file()]
        self.assertEqual(sorted(left), ["a.cpp", "c.o"])

    def test_tell_how_a_program_ended_and_what_it_wrote(self) -> None:
        self.assertEqual(self.tree.run(["sh", "-c", "echo no; exit 3"], 60), (3, "no\n"))

    def test_end_a_program_with_all_it_began(self) -> None:
        held = self.tree.folder / "held"
        # Locked for as long as either of the two lives.
        status, _ = self.tree.run(["flock", str(held), "sleep", "60"], 1)
        self.assertEqual(status, -9)
        with held.open() as file:
            for _ in range(50):
                with contextlib.suppress(BlockingIOError):
                    return fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
                time.sleep(0.1)
        self.fail("expected what the program began to be ended, it lives on")

    def test_tell_nothing_of_a_program_that_the_user_ended(self) -> None:
        def stop() -> None:
            self.tree.is_stopped = True

        threading.Timer(0.1, stop).start()
        with self.assertRaises(mutants.Stopped):
            self.tree.run(["sleep", "60"], 60)

    def test_stop_at_tests_that_can_not_be_run(self) -> None:
        self.tree.build = self.tree.folder
        with self.assertRaises(SystemExit) as ended:
            self.tree.run_tests("unit_tests", "*", 60)
        self.assertIn("expected to run tests/unit_tests", str(ended.exception))


class Runs(unittest.TestCase):
    def run_on(self, known: str, *options: str) -> tuple[int, str, list[str]]:
        """Runs the tool where no test notices anything; returns its status, its output, and what it
        tried."""
        tried: list[str] = []

        def attempt(tree: object, mutant: mutants.Mutant) -> tuple[str, str]:
            tried.append(mutant.after)
            if len(tried) == self.ends_at:
                raise KeyboardInterrupt
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
        self.ends_at = 0
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

    def test_keep_what_was_tried_before_they_were_ended(self) -> None:
        self.ends_at = 3
        with contextlib.redirect_stderr(io.StringIO()) as errors:
            status, _, _ = self.run_on("")
        self.assertEqual(status, 130)
        self.assertIn("goes on from here", errors.getvalue())
        self.assertEqual(len((self.folder / "build/results.tsv").read_text().splitlines()), 2)

    def test_go_on_after_a_row_that_is_cut_off(self) -> None:
        self.run_on("", "--count", "2")
        results = self.folder / "build/results.tsv"
        results.write_text(results.read_text()[:-10])
        self.assertEqual(len(self.run_on("", "--count", "2")[2]), 1)

    def test_refuse_to_work_beside_another(self) -> None:
        (self.folder / "build").mkdir()
        with (self.folder / "build/lock").open("w") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            with self.assertRaises(SystemExit) as ended:
                self.run_on("")
        self.assertIn("found one", str(ended.exception))

    def test_refuse_a_folder_without_sources(self) -> None:
        self.assertIn("found none in docs", self.refusal("docs"))

    def test_refuse_to_try_nothing_at_a_time(self) -> None:
        self.assertIn("expected a number from 1 on, found 0", self.refusal("--jobs", "0"))

    def refusal(self, *options: str) -> str:
        with contextlib.redirect_stderr(io.StringIO()) as errors, self.assertRaises(SystemExit):
            self.run_on("", *options)
        return errors.getvalue()

    def test_choose_by_the_seed(self) -> None:
        places = mutants.mutants_of("a.cpp", "int x[] = {0, 1, 2, 3};")
        orders = [[place.after for place in sorted(places, key=lambda one: one.place_in_line(seed))]
                  for seed in (1, 1, 2)]
        self.assertEqual(orders[0], orders[1])
        self.assertNotEqual(orders[0], orders[2])


if __name__ == "__main__":
    unittest.main()
