"""What the fragment tool writes: names, sizes, bytes, and which files it overwrites."""

import os
import unittest

from example_tool import ToolTestCase, native_only, pseudo_random, windows_only

# Options, size of the file, sizes of the fragments by name, summary.
CUTS = [
    (["-n=1"], 1, {"in.part_0": 1}, b"fragments: 1, bytes: 1, first: in.part_0, last: in.part_0\n"),
    (["-n=1"], 2, {"in.part_0": 2}, b"fragments: 1, bytes: 2, first: in.part_0, last: in.part_0\n"),
    (["-n=2"], 2, {"in.part_0": 1, "in.part_1": 1}, b"fragments: 2, bytes: 2, first: in.part_0, last: in.part_1\n"),
    (["--number=3"], 7, {"in.part_0": 3, "in.part_1": 2, "in.part_2": 2},
     b"fragments: 3, bytes: 7, first: in.part_0, last: in.part_2\n"),
    (["-N=03"], 8, {"in.part_0": 3, "in.part_1": 3, "in.part_2": 2},
     b"fragments: 3, bytes: 8, first: in.part_0, last: in.part_2\n"),
    (["-s=1"], 2, {"in.part_0": 1, "in.part_1": 1}, b"fragments: 2, bytes: 2, first: in.part_0, last: in.part_1\n"),
    (["-s=3"], 6, {"in.part_0": 3, "in.part_1": 3}, b"fragments: 2, bytes: 6, first: in.part_0, last: in.part_1\n"),
    (["--Size=3"], 7, {"in.part_0": 3, "in.part_1": 3, "in.part_2": 1},
     b"fragments: 3, bytes: 7, first: in.part_0, last: in.part_2\n"),
    (["-s=6"], 7, {"in.part_0": 6, "in.part_1": 1}, b"fragments: 2, bytes: 7, first: in.part_0, last: in.part_1\n"),
    (["-s=7"], 7, {"in.part_0": 7}, b"fragments: 1, bytes: 7, first: in.part_0, last: in.part_0\n"),
    (["-s=8"], 7, {"in.part_0": 7}, b"fragments: 1, bytes: 7, first: in.part_0, last: in.part_0\n"),
    (["-s=9223372036854775807"], 7, {"in.part_0": 7}, b"fragments: 1, bytes: 7, first: in.part_0, last: in.part_0\n"),
    (["-n=10"], 10, dict.fromkeys(["in.part_0", "in.part_1", "in.part_2", "in.part_3", "in.part_4", "in.part_5",
                                   "in.part_6", "in.part_7", "in.part_8", "in.part_9"], 1),
     b"fragments: 10, bytes: 10, first: in.part_0, last: in.part_9\n"),
    (["-s=1", "-o=./p"], 11, dict.fromkeys(["p00", "p01", "p02", "p03", "p04", "p05", "p06", "p07", "p08", "p09", "p10"],
                                         1),
     b"fragments: 11, bytes: 11, first: <here>/./p00, last: <here>/./p10\n"),
    (["--output=sub/x=", "-n=2"], 5, {"sub/x=0": 3, "sub/x=1": 2},
     b"fragments: 2, bytes: 5, first: <here>/sub/x=0, last: <here>/sub/x=1\n"),
]

# The tool copies 65536 bytes at a time.
ROUND_TRIPS = [
    (1, "-n=1"), (65535, "-n=1"), (65536, "-n=1"), (65537, "-n=1"),
    (131072, "-n=2"), (131073, "-n=2"), (200000, "-s=65535"), (200000, "-s=65536"), (200000, "-s=65537"),
    (99, "-n=99"), (5000011, "-n=7"), (5000011, "-s=1000000"),
]


def note(fragments, size):
    """What a cut writes beside its fragments."""
    return f"fragments: {fragments}\nbytes: {size}\n".encode()


class CutTest(ToolTestCase):
    def test_names_and_sizes(self):
        (self.folder / "sub").mkdir()
        for options, size, sizes, summary in CUTS:
            with self.subTest(options=options, size=size):
                data = pseudo_random(size)
                self.write("in", data)
                self.check(summary, *options, "in")
                found = {name: data for name, data in self.contents().items() if data is not None}
                self.assertEqual(data, found.pop("in"))
                (counted,) = [name for name in found if name.endswith(".count")]
                self.assertEqual(next(iter(sizes)).rstrip("0123456789") + ".count", counted)
                self.assertEqual(note(len(sizes), size), found.pop(counted))
                (self.folder / counted).unlink()
                self.assertEqual(sizes, {name: len(fragment) for name, fragment in found.items()})
                self.assertEqual(data, b"".join(found[name] for name in sorted(found)))
                for name in found:
                    (self.folder / name).unlink()

    def test_many_fragments(self):
        self.write("in", pseudo_random(101))
        self.check(b"fragments: 101, bytes: 101, first: <here>/xy000, last: <here>/xy100\n", "-s=1", "-o=xy", "in")
        self.check(b"fragments: 101, bytes: 101, joined: <here>/back\n", "-j", "-o=back", "xy000")
        self.assertEqual(pseudo_random(101), self.contents()["back"])

    def test_verbose(self):
        self.write("in", b"1234567")
        self.check(b"in.part_0: 4 bytes\nin.part_1: 3 bytes\n"
                   b"fragments: 2, bytes: 7, first: in.part_0, last: in.part_1\n", "-n=2", "-v", "in")
        (self.folder / "in.part_.count").unlink()
        self.check(b"in.part_1: 3 bytes\nin.part_0: 4 bytes\nfragments: 2, bytes: 7, joined: <here>/out\n",
                   "--verbose", "-j", "-o=out", "in.part_1", "in.part_0")
        self.assertEqual(b"5671234", self.contents()["out"])

    def test_overwriting(self):
        self.write("in", b"123456")
        self.write("in.part_1", b"old")
        self.check_refusal(b"in.part_1 exists already; -f overwrites it", "-n=3", "in")
        self.check(b"fragments: 3, bytes: 6, first: in.part_0, last: in.part_2\n", "-n=3", "--force", "in")
        self.assertEqual({"in": b"123456", "in.part_.count": note(3, 6), "in.part_0": b"12", "in.part_1": b"34",
                          "in.part_2": b"56"}, self.contents())

    def test_fragments_of_a_longer_cut(self):
        self.write("in", b"abcdefghijkl")
        self.write("in.part_2", b"old")
        for here, *arguments in ((b"", "-n=2", "in"), (b"", "-f", "-n=2", "in"), (b"<here>/", "-f", "-s=6", "-o=in.part_", "in")):
            self.check_refusal(here + b"in.part_2 belongs to another cut; remove it and the fragments that follow it, "
                                      b"-f replaces only those of the new cut", *arguments)
        self.write("xy10", b"another number of digits")
        self.assertEqual((0, b""), self.tool("-n=10", "-o=xy", "in")[::2])

    def test_overwriting_the_input(self):
        self.write("in0", b"123456")
        for force in ([], ["-f"]):
            self.check_refusal(b"<here>/in0 is an input too; choose another name", "-n=2", "-o=in", *force, "in0")
        self.write("xy.count", b"123456")
        self.check_refusal(b"<here>/xy.count is an input too; choose another name", "-n=2", "-f", "-o=xy", "xy.count")

    @native_only
    def test_overwriting_the_input_by_another_name(self):
        self.write("data", b"123456")
        os.symlink("data", self.folder / "in1")
        os.link(self.folder / "data", self.folder / "hard0")
        for problem, *arguments in [
            (b"<here>/in1 is an input too; choose another name", "-f", "-n=2", "-o=in", "data"),
            (b"<here>/hard0 is an input too; choose another name", "-f", "-n=2", "-o=hard", "data"),
            (b"<here>/hard0 is an input too; choose another name", "-f", "-n=2", "-o=hard", "in1"),
            (b"<here>/data is an input too; choose another name", "-f", "-j", "-o=data", "in1", "in1"),
            (b"<here>/in1 is an input too; choose another name", "-f", "-j", "-o=in1", "data", "data"),
            (b"<here>/hard0 is an input too; choose another name", "-f", "-j", "-o=hard0", "data", "in1"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    @native_only
    def test_overwriting_a_link(self):
        self.write("in", b"12")
        self.write("elsewhere", b"mine")
        os.symlink("elsewhere", self.folder / "in.part_0")
        os.symlink("nowhere", self.folder / "in.part_1")
        self.check_refusal(b"in.part_0 exists already; -f overwrites it", "-n=2", "in")
        self.check_refusal(b"<here>/in.part_1 exists already; -f overwrites it", "-j", "-o=in.part_1", "in", "in")
        self.check(b"fragments: 2, bytes: 2, first: in.part_0, last: in.part_1\n", "-n=2", "-f", "in")
        self.assertEqual({"in": b"12", "elsewhere": b"mine", "in.part_.count": note(2, 2), "in.part_0": b"1",
                          "in.part_1": b"2"}, self.contents())


class JoinTest(ToolTestCase):
    def test_round_trips(self):
        for size, option in ROUND_TRIPS:
            with self.subTest(size=size, option=option):
                data = pseudo_random(size)
                self.write("in", data)
                status, _, problem = self.tool(option, "-f", "-o=f.", "in")
                self.assertEqual((0, b""), (status, problem))
                first = min(name for name in self.contents() if name.startswith("f.") and name != "f..count")
                status, _, problem = self.tool("-j", "-f", "-o=out", first)
                self.assertEqual((0, b""), (status, problem))
                self.assertEqual(data, self.contents()["out"])
                for name in self.contents():
                    (self.folder / name).unlink()

    def test_named_fragments(self):
        for name, data in [("b", b"bb"), ("a1", b"a"), ("a2", b"z"), ("c", b"\r\n\x1a\0c")]:
            self.write(name, data)
        self.check(b"fragments: 4, bytes: 10, joined: <here>/out\n", "c", "-j", "a1", "-o=out", "b", "b")
        self.assertEqual(b"\r\n\x1a\0cabbbb", self.contents()["out"])

    def test_overwriting(self):
        for name in ["a0", "a1", "out"]:
            self.write(name, name.encode())
        self.check_refusal(b"<here>/out exists already; -f overwrites it", "-j", "-o=out", "a0")
        self.check(b"fragments: 2, bytes: 4, joined: <here>/out\n", "-j", "-f", "-o=out", "a0")
        self.assertEqual({"a0": b"a0", "a1": b"a1", "out": b"a0a1"}, self.contents())
        for arguments in (["-o=a1", "a0", "a1"], ["-f", "-o=a1", "a1", "a0", "a1"]):
            self.check_refusal(b"<here>/a1 is an input too; choose another name", "-j", *arguments)

    def test_following_numbers(self):
        for case, names, first, fragments in [
            ("from the first", ["x0", "x1", "x2"], "x0", b"x0x1x2"),
            ("from the second", ["x0", "x1", "x2"], "x1", b"x1x2"),
            ("the last", ["x0", "x1", "x2"], "x2", b"x2"),
            ("lower numbers do not count", ["x1", "x3"], "x3", b"x3"),
            ("other digit counts", ["x08", "x09", "x10", "x7", "x011", "x11a"], "x08", b"x08x09x10"),
            ("no carry into a new digit", ["x8", "x9", "x10"], "x8", b"x8x9"),
            ("no gap behind the digit count", ["x9", "x11"], "x9", b"x9"),
            ("other names", ["x0", "x1", "y2", "xy3", "x-4"], "x0", b"x0x1"),
            ("only digits", ["007", "008", "010x"], "007", b"007008"),
            ("more digits than count", ["90000000000000000000000009", "90000000000000000000000010"],
             "90000000000000000000000009", b"9000000000000000000000000990000000000000000000000010"),
            ("in a folder", ["sub/x0", "sub/x1"], "sub/x0", b"sub/x0sub/x1"),
        ]:
            with self.subTest(case):
                (self.folder / "sub").mkdir(exist_ok=True)
                for name in names:
                    self.write(name, name.encode())
                status, _, problem = self.tool("-j", "-o=out", first)
                self.assertEqual((0, b""), (status, problem))
                self.assertEqual(fragments, self.contents()["out"])
                for name in [*names, "out"]:
                    (self.folder / name).unlink()

    def test_gaps(self):
        for names, first, problem, *output in [
            (["x0", "x2"], "x0", b"x1 is missing"),
            (["x0", "x1", "x9"], "x0", b"x2 is missing"),
            (["p_08", "p_09", "p_11", "p_99"], "p_08", b"p_10 is missing"),
            (["sub/x00", "sub/x02"], "sub/x00", b"sub/x01 is missing"),
            (["sub/x0"], "sub/x0", b"<here>/sub/x1 would count as one more fragment; choose another name", "sub/x1"),
            (["x0"], "./x0", b"<here>/sub/../x1 would count as one more fragment; choose another name", "sub/../x1"),
            (["name"], "name", b"name does not end in a number; name all the fragments"),
        ]:
            with self.subTest(names=names):
                (self.folder / "sub").mkdir(exist_ok=True)
                for name in names:
                    self.write(name, name.encode())
                self.check_refusal(problem, "-j", "-o=" + "".join(output or ["out"]), first)
                for name in names:
                    (self.folder / name).unlink()

    @windows_only
    def test_gap_in_other_letter_case(self):
        for name in ["X0", "X1", "X3"]:
            self.write(name, name.encode())
        self.check_refusal(b"x2 is missing", "-j", "-o=out", "x0")
        (self.folder / "X3").unlink()
        self.check(b"fragments: 2, bytes: 4, joined: <here>/out\n", "-j", "-o=out", "x0")


if __name__ == "__main__":
    unittest.main()
