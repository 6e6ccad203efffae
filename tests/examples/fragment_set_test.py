"""The note that a cut writes beside its fragments: a join notices with it that fragments are missing."""

import unittest

from example_tool import ToolTestCase

NOTE = b"fragments: 3\nbytes: 8\n"


class NoteTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.write("in", b"12345678")
        self.check(b"fragments: 3, bytes: 8, first: <here>/q_0, last: <here>/q_2\n", "-n=3", "-o=q_", "in")
        self.files = ["q_.count", "q_0", "q_1", "q_2"]

    def test_text(self):
        self.assertEqual({"in": b"12345678", "q_.count": NOTE, "q_0": b"123", "q_1": b"456", "q_2": b"78"}, self.contents())

    def test_whole_sets(self):
        for arguments in (["q_0"], ["q_0", "q_1", "q_2"], self.files, ["q_0", "q_1", "q_.count", "q_2"]):
            with self.subTest(arguments=arguments):
                self.check(b"fragments: 3, bytes: 8, joined: <here>/out\n", "-j", "-o=out", *arguments)
                self.assertEqual(b"12345678", self.contents()["out"])
                (self.folder / "out").unlink()

    def test_parts_of_a_set(self):
        for absent, *arguments in [(b"q_0", "q_1"), (b"q_0", "q_2"), (b"q_2", "q_0", "q_1"), (b"q_1", "q_0", "q_2"),
                                   (b"q_0", "q_2", "q_1"), (b"q_1", "q_.count", "q_0"), (b"q_2", *self.files[:-1])]:
            with self.subTest(arguments=arguments):
                self.check_refusal(absent + b" is not named; q_.count counts 3 fragments", "-j", "-o=out", *arguments)

    def test_fragments_named_twice(self):
        for twice, *arguments in [(b"q_1", "q_0", "q_1", "q_1"), (b"q_0", "q_0", "q_0"), (b"q_2", "q_0", "q_1", "q_2", "q_2"),
                                  (b"q_0", "q_0", "q_1", "q_2", "q_0")]:
            with self.subTest(arguments=arguments):
                self.check_refusal(twice + b" is named twice; q_.count counts 3 fragments", "-j", "-o=out", *arguments)

    def test_fragments_out_of_order(self):
        for found, expected, *arguments in [(b"q_2", b"q_0", "q_2", "q_1", "q_0"), (b"q_2", b"q_1", "q_0", "q_2", "q_1"),
                                            (b"q_2", b"q_0", "q_2", "q_.count", "q_0", "q_1")]:
            with self.subTest(arguments=arguments):
                self.check_refusal(found + b" is out of order; name " + expected + b" before it", "-j", "-o=out", *arguments)

    def test_named_fragments_of_no_set(self):
        self.write("q_00", b"x")
        for arguments, joined in [(["q_2", "in"], b"7812345678"), (["in", "q_2"], b"1234567878"), (["q_2", "q_00"], b"78x")]:
            with self.subTest(arguments=arguments):
                status, _, problem = self.tool("-j", "-o=out", *arguments)
                self.assertEqual((0, b"", joined), (status, problem, self.contents()["out"]))
                (self.folder / "out").unlink()
        self.check_refusal(b"q_.count counts 3 fragments, but 1 is named", "-j", "-o=out", "q_.count", "in")
        self.check_refusal(b"q_.count counts 3 fragments, but 2 are named", "-j", "-o=out", "q_.count", "in", "q_1")
        (self.folder / "q_.count").unlink()
        self.check(b"fragments: 3, bytes: 8, joined: <here>/out\n", "-j", "-o=out", "q_2", "q_1", "q_1")
        self.assertEqual(b"78456456", self.contents()["out"])

    def test_one_fragment(self):
        self.write("p_1", b"x")
        self.write("p_0", b"x")
        self.write("p_.count", b"fragments: 1\nbytes: 1\n")
        self.check_refusal(b"p_1 is of another cut; p_.count counts 1 fragment", "-j", "-o=out", "p_0", "p_1")
        self.check(b"fragments: 1, bytes: 1, joined: <here>/out\n", "-j", "-o=out", "p_.count", "p_0")

    def test_two_sets(self):
        self.check(b"fragments: 2, bytes: 8, first: <here>/p_0, last: <here>/p_1\n", "-n=2", "-o=p_", "in")
        both = ["p_.count", "p_0", "p_1", *self.files]
        self.check(b"fragments: 5, bytes: 16, joined: <here>/out\n", "-j", "-o=out", *both)
        self.check_refusal(b"the notes count 5 fragments, but 4 are named", "-j", "-o=new", *both[:-1])

    def test_missing_fragments(self):
        (self.folder / "q_2").unlink()
        for arguments in (["q_0"], ["q_0", "q_1"], self.files[:-1]):
            self.check_refusal(b"q_2 is missing; q_.count counts 3 fragments", "-j", "-o=out", *arguments)

    def test_wrong_sizes(self):
        self.write("q_2", b"7")
        problem = b"the fragments have 7 bytes, but q_.count counts 8"
        self.check_refusal(problem, "-j", "-o=out", "q_0")
        self.check_refusal(problem, "-j", "-o=out", *self.files)
        self.check_refusal(problem, "-j", "-o=out", *self.files[1:])
        self.write("q_2", b"789")
        self.check_refusal(b"the fragments have 9 bytes, but q_.count counts 8", "-j", "-o=out", "q_0")

    def test_fragments_of_other_cuts(self):
        self.write("q_3", b"x")
        for first in ("q_0", "q_3"):
            self.check_refusal(b"q_3 is of another cut; q_.count counts 3 fragments", "-j", "-o=out", first)
        self.write("q_00", b"y")
        self.check_refusal(b"q_00 is of another cut; q_.count counts 3 fragments", "-j", "-o=out", "q_00")

    def test_other_files_of_this_name(self):
        # Without a note the names have to do.
        (self.folder / "q_2").unlink()
        for text in (b"", b"1\n", b"fragments: 3\n", b"fragments: 3\r\nbytes: 8\r\n", NOTE + b"\n", b"fragments: 03\nbytes: 8\n",
                     b"fragments: -3\nbytes: 8\n", b"fragments: 99999999999999999999\nbytes: 8\n", NOTE * 9):
            with self.subTest(text=text):
                self.write("q_.count", text)
                self.check(b"fragments: 2, bytes: 6, joined: <here>/out\n", "-j", "-f", "-o=out", "q_0")
        self.write("q_.count", b"text")
        self.check(b"fragments: 3, bytes: 10, joined: <here>/out\n", "-j", "-f", "-o=out", "q_0", "q_.count", "q_1")
        (self.folder / "q_.count").unlink()
        self.check(b"fragments: 2, bytes: 6, joined: <here>/out\n", "-j", "-f", "-o=out", "q_0")
        (self.folder / "q_.count").mkdir()
        self.check(b"fragments: 2, bytes: 6, joined: <here>/out\n", "-j", "-f", "-o=out", "q_0")

    def test_note_of_a_run_at_work(self):
        for end in (b".unfinished", b".replaced"):
            self.write("q_.count" + end.decode(), b"")
            self.check_refusal(b"q_.count" + end + b" belongs to a run that is at work or was interrupted; "
                               b"the fragments may be of different cuts", "-j", "-o=out", "q_0")
            (self.folder / ("q_.count" + end.decode())).unlink()

    def test_joining_into_the_note(self):
        for names in (["q_0"], self.files[1:]):
            self.check_refusal(b"<here>/q_.count is an input too; choose another name", "-j", "-f", "-o=q_.count", *names)

    def test_cutting_again(self):
        self.check_refusal(b"<here>/q_.count exists already; -f overwrites it", "-n=3", "-o=q_", "in")
        self.check_refusal(b"<here>/q_2 belongs to another cut; remove it and the fragments that follow it, "
                           b"-f replaces only those of the new cut", "-f", "-n=2", "-o=q_", "in")
        self.write("long", b"x" * 11)
        self.check_refusal(b"<here>/q_0 belongs to another cut; remove it and the fragments that follow it, "
                           b"-f replaces only those of the new cut", "-f", "-n=11", "-o=q_", "long")
        self.check(b"fragments: 4, bytes: 8, first: <here>/q_0, last: <here>/q_3\n", "-f", "-n=4", "-o=q_", "in")
        self.assertEqual(b"fragments: 4\nbytes: 8\n", self.contents()["q_.count"])


if __name__ == "__main__":
    unittest.main()
