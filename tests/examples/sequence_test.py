"""The sequence tool, which needs no input file: its help screen, its names and its refusals."""

import unittest

from example_tool import ToolTestCase

SCREEN = (
    b"\n"
    b"\033[34m####################################\033[0m\n"
    b"\033[37m\tsequence\033[0m\n"
    b"\033[37m     Numbered names\033[0m\n"
    b"\033[34m####################################\033[0m\n"
    b"\n"
    b"\033[36mPrints numbered names, one a line.\033[0m\n"
    b"\033[36mUsage:\033[0m\n"
    b"  sequence [-r=RANGE] [-s=STEP] [-w=WIDTH] [-b=BEFORE] [-a=AFTER] [-o=OUTPUT]\n"
    b"\n"
    b"\033[36mOptions:\033[0m\n"
    b"  \033[34m-a, --after:\033[0m the text after the number\n"
    b"\n"
    b"  \033[34m-b, --before:\033[0m the text before the number\n"
    b"\n"
    b"  \033[34m-h, --help:\033[0m shows this help\n"
    b"\n"
    b"  \033[34m-o, --output:\033[0m writes the names to this file\n"
    b"\n"
    b"  \033[34m-r, --range:\033[0m the first and the last number (default: 1:10)\n"
    b"\n"
    b"  \033[34m-s, --step:\033[0m the distance between two numbers (default: 1)\n"
    b"\n"
    b"  \033[34m-w, --width:\033[0m the least number of digits, up to 9 (default: as many as the last number has)\n"
    b"\n"
    b"\n"
    b"\033[36mArguments:\033[0m\n"
    b"\n"
    b"\033[36mExample:\033[0m\n"
    b"  \033[34msequence\033[0m -r=1:31 -b=2026-12- -a=.log\n")


class SequenceTest(ToolTestCase):
    def test_help(self):
        self.check_help(SCREEN, ["-h"], ["--help", "-r=x", "-r=y"], ["-S=0", "/?"])

    def test_names(self):
        for arguments, lines in [
            ([], b"01\n02\n03\n04\n05\n06\n07\n08\n09\n10\n"),
            (["-r=0:2", "-b=log.", "-a=.txt"], b"log.0.txt\nlog.1.txt\nlog.2.txt\n"),
            (["--range=5:100", "--step=50"], b"005\n055\n"),
            (["-r=8:10", "-w=1"], b"8\n9\n10\n"),
            (["-r=7:7", "-w=9", "-b=-", "-a="], b"-000000007\n"),
            (["-r=999999998:999999999", "-s=999999999"], b"999999998\n"),
        ]:
            with self.subTest(arguments=arguments):
                self.check(lines, *arguments)

    def test_output_file(self):
        self.check(b"", "-r=1:2", "-o=names")
        self.assertEqual({"names": b"1\n2\n"}, self.contents())
        self.check_refusal(b"<here>/names exists already", "-o=names")

    def test_refusals(self):
        for arguments, problem in [
            (["10"], b"\"10\": no arguments are expected"),
            (["-r=10:1"], b"-r=10:1: not a range FROM:TO of whole numbers from 0 to 999999999, the lower one first"),
            (["-r=1:1000000000"],
             b"-r=1:1000000000: not a range FROM:TO of whole numbers from 0 to 999999999, the lower one first"),
            (["-s=0"], b"-s=0: not a whole number from 1 to 999999999"),
            (["-s=-1"], b"-s=-1: not a whole number from 1 to 999999999"),
            (["-w=10"], b"-w=10: not a whole number from 1 to 9"),
            (["-n=3"], b"-n: no such option"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_usage(problem, *arguments)


if __name__ == "__main__":
    unittest.main()
