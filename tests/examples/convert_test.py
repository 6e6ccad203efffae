"""The convert tool: its numbers, its refusals, and errors of the system."""

import unittest

from example_tool import ToolTestCase, native_only


class ConvertTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.write("heights", b"1 2.5\n -3e2\t.5\r\n100\n")

    def test_units(self):
        for arguments, lines in [
            (["-f=ft"], b"0.3048\n0.762\n-91.44\n0.1524\n30.48\n"),
            (["-f=m", "-t=m"], b"1\n2.5\n-300\n0.5\n100\n"),
            (["--from=KM", "--to=mm"], b"1000000\n2500000\n-300000000\n500000\n100000000\n"),
            (["-f=mi", "-t=KM"], b"1.609344\n4.02336\n-482.8032\n0.804672\n160.9344\n"),
        ]:
            with self.subTest(arguments=arguments):
                self.check(lines, *arguments, "heights")

    def test_output_file(self):
        self.check(b"", "-f=cm", "-o=r", "heights")
        self.assertEqual(b"0.01\n0.025\n-3\n0.005\n1\n", self.contents()["r"])
        self.check_refusal(b"<here>/r exists already", "-f=cm", "-o=r", "heights")

    def test_empty_file(self):
        self.write("empty", b" \n")
        self.check(b"", "-f=cm", "empty")

    def test_refusals(self):
        for arguments, problem in [
            ([], b"FILE is missing"),
            (["heights"], b"-f: say which unit the numbers have, as in -f=ft"),
            (["-f=foot", "heights"], b"-f=foot: not one of mm, cm, m, km, in, ft, yd, mi"),
            (["-f=ft", "-t=", "heights"], b"-t=: not one of mm, cm, m, km, in, ft, yd, mi"),
            (["-f", "ft", "heights"], b"-f needs its value attached: -f=ft"),
            (["-f=ft", "heights", "more"], b"\"more\": one argument too many"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_usage(problem, *arguments)

    def test_bad_numbers(self):
        for word in (b"3x", b"0x10", b"nan", b"1,5"):
            with self.subTest(word=word):
                self.write("text", b"1\n" + word + b"\n2\n")
                self.check_refusal(b"text: \"" + word + b"\" is not a number from -1e+300 to 1e+300", "-f=ft", "-o=out", "text")

    def test_length_without_end(self):
        self.write("text", b"1\n1e308\n")
        self.check_refusal(b"text: \"1e308\" is not a number from -1e+300 to 1e+300", "-f=km", "-o=out", "text")
        for digits in (998, 999, 1000, 100000):
            self.write("text", b"0" * digits + b"7 8")
            if digits < 999:
                self.check(b"7\n8\n", "-f=m", "text")
            else:
                self.check_refusal(b"text contains a word of 1000 characters or more", "-f=m", "-o=out", "text")
        self.write("text", b"1\0")
        self.check_refusal(b"text: \"1\\x00\" is not a number from -1e+300 to 1e+300", "-f=m", "-o=out", "text")

    def test_files(self):
        self.check_refusal(b"cannot read nowhere: No such file or directory", "-f=ft", "-o=out", "nowhere")
        self.check_refusal(b". is a directory", "-f=ft", ".")

    @native_only
    def test_unreadable_file(self):
        self.check_refusal(b"cannot read /proc/self/mem: Input/output error", "-f=ft", "-o=out", "/proc/self/mem")


if __name__ == "__main__":
    unittest.main()
