"""Tests the keys of the mutants and the list of the explained ones. scripts/mutate runs it first."""

import contextlib
import io
import pathlib
import tempfile
import unittest

import explained
from mutants import mutants_of, set_keys

SOURCE = """\
namespace Kelp {
constexpr int limit = 2;
// Cuts the value off.
struct Range {
    bool holds(int value) const { return value < last && value < limit; }
    int last = 0;
};
int twice(int value) { return 2 * value; }
double twice(double value) { return 2 * value; }
template <class T>
bool isNegative(T value) { return !(value >= 0); }
}
"""
KEYS = """\
limit: `2 -> 1`
limit: `2 -> 3`
Range::holds: `&& -> ||`
Range::holds: `< -> <=` 1 of 2
Range::holds: `< -> false` 1 of 2
Range::holds: `< -> true` 1 of 2
Range::holds: `< -> <=` 2 of 2
Range::holds: `< -> false` 2 of 2
Range::holds: `< -> true` 2 of 2
Range::last: `0 -> 1`
twice(int): `return value + 1`
twice(int): `* -> /`
twice(int): `2 -> 1`
twice(int): `2 -> 3`
twice(double): `return value + 1`
twice(double): `* -> /`
twice(double): `2 -> 1`
twice(double): `2 -> 3`
isNegative: `>= -> >`
isNegative: `>= -> false`
isNegative: `>= -> true`
isNegative: `0 -> 1`
""".splitlines()


class Keys(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def mutants(self, **files):
        found = []
        for name, text in files.items():
            (self.root / f"{name}.cpp").write_text(text, encoding="ascii")
            found += mutants_of(self.root, f"{name}.cpp")
        set_keys(found)
        return found

    def keys(self, **files):
        return [mutant.key for mutant in self.mutants(**files)]

    def test_names_the_function_and_the_kind_and_numbers_equal_ones(self):
        self.assertEqual(sorted(self.keys(a=SOURCE)), sorted(KEYS))

    def test_comments_layout_locals_and_namespaces_do_not_count(self):
        reworded = SOURCE.replace("value", "number").replace("Cuts the", "Truncates\n// the").replace("Kelp", "Other")
        self.assertEqual(sorted(self.keys(b=reworded.replace(" && ", "\n    && "))), sorted(KEYS))

    def test_a_function_keeps_its_keys_in_another_file(self):
        lines = SOURCE.splitlines(keepends=True)
        moved = {"a": "".join(lines[:7]) + "}\n", "b": "namespace Kelp {\n" + "".join(lines[7:])}
        self.assertEqual(sorted(self.keys(**moved)), sorted(KEYS))

    def test_statements_are_named_after_their_call_or_operator(self):
        source = "void draw(); void run(int& count) { draw(); count += 2; ++count; throw count; }\n"
        left_out = [key for key in self.keys(a=source) if key.endswith("left out`")]
        self.assertEqual(left_out, ["run: `draw() left out`", "run: `+= left out`", "run: `++ left out`",
                                    "run: `throw left out`"])

    def outdated(self, mutants, text):
        path = self.root / "list.txt"
        path.write_text(text, encoding="utf-8")
        with contextlib.redirect_stdout(io.StringIO()) as output:
            count = explained.print_outdated(path, explained.read(path), mutants, self.root)
        return count, output.getvalue()

    def test_an_entry_of_the_list_matches_a_key(self):
        listed = ("# A heading.\n\nA reason\nof two lines.\n    limit: `2 -> 1`\n    limit: `2 -> 3`\n"
                  "Another.\n    Range::last: `0 -> 1`\n")
        self.assertEqual(self.outdated(self.mutants(a=SOURCE), listed), (0, ""))

    def test_another_number_of_changes_makes_an_entry_outdated(self):
        more = SOURCE.replace("value < limit", "value < limit && value < 9")
        self.assertEqual(self.outdated(self.mutants(a=more), "A reason.\n    Range::holds: `< -> <=` 2 of 2\n"), (1, """\
list.txt: outdated: Range::holds: `< -> <=` 2 of 2
    reason: A reason.
    candidate: Range::holds: `< -> <=` 1 of 3
        a.cpp:5: bool holds(int value) const { return value < last && value < limit && value < 9; }
    candidate: Range::holds: `< -> <=` 2 of 3
        a.cpp:5: bool holds(int value) const { return value < last && value < limit && value < 9; }
    candidate: Range::holds: `< -> <=` 3 of 3
        a.cpp:5: bool holds(int value) const { return value < last && value < limit && value < 9; }
1 of 1 entries are outdated
"""))

    def test_a_renamed_function_is_the_first_candidate(self):
        renamed = self.mutants(a=SOURCE.replace("holds", "contains"))
        count, output = self.outdated(renamed, "A reason.\n    Range::holds: `< -> <=` 2 of 2\n")
        self.assertEqual(count, 1)
        self.assertEqual(output.splitlines()[2], "    candidate: Range::contains: `< -> <=` 2 of 2")


if __name__ == "__main__":
    unittest.main()
