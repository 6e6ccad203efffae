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
        for arguments, joined in [(["q_0"], b"12345678"), (["q_1"], b"45678"), (["q_2"], b"78"), (self.files, b"12345678"),
                                  (["q_2", "q_.count", "q_0", "q_1"], b"78123456"), (["q_0", "q_1"], b"123456")]:
            with self.subTest(arguments=arguments):
                status, _, problem = self.tool("-j", "-o=out", *arguments)
                self.assertEqual((0, b"", joined), (status, problem, self.contents()["out"]))
                (self.folder / "out").unlink()

    def test_two_sets(self):
        self.check(b"fragments: 2, bytes: 8, first: <here>/p_0, last: <here>/p_1\n", "-n=2", "-o=p_", "in")
        both = ["p_.count", "p_0", "p_1", *self.files]
        self.check(b"fragments: 5, bytes: 16, joined: <here>/out\n", "-j", "-o=out", *both)
        self.check_refusal(b"p_.count counts 5 fragments, but 4 are named", "-j", "-o=new", *both[:-1])

    def test_missing_fragments(self):
        (self.folder / "q_2").unlink()
        for first in ("q_0", "q_1"):
            self.check_refusal(b"q_2 is missing; q_.count counts 3 fragments", "-j", "-o=out", first)
        self.check_refusal(b"q_.count counts 3 fragments, but 2 are named", "-j", "-o=out", *self.files[:-1])
        self.check(b"fragments: 2, bytes: 6, joined: <here>/out\n", "-j", "-o=out", "q_0", "q_1")

    def test_wrong_sizes(self):
        self.write("q_2", b"7")
        problem = b"the fragments have 7 bytes, but q_.count counts 8"
        self.check_refusal(problem, "-j", "-o=out", "q_0")
        self.check_refusal(problem, "-j", "-o=out", *self.files)
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
        self.check_refusal(b"<here>/q_.count is an input too; choose another name", "-j", "-f", "-o=q_.count", "q_0")

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
