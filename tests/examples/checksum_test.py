"""The checksum tool: its sums, its progress and its refusals."""

import os
import signal
import unittest

from example_tool import ToolTestCase, native_only


class ChecksumTest(ToolTestCase):
    def test_sums(self):
        for data, line in [
            (b"", b"00000000 data\n"),
            (b"a", b"e8b7be43 data\n"),
            (b"123456789", b"cbf43926 data\n"),
            (bytes(range(256)) * 1024, b"c790bff6 data\n"),
        ]:
            with self.subTest(size=len(data)):
                self.write("data", data)
                self.check(line, "data")

    def test_several_files(self):
        self.write("one", b"123456789")
        self.write("two", b"a")
        self.check(b"cbf43926 one\ne8b7be43 two\ncbf43926 ./one\n", "one", "two", "./one")

    def test_refusals(self):
        self.check_usage(b"FILE is missing")
        self.check_usage(b"-v: no such option", "-v", "one")
        self.write("one", b"1")
        self.check_refusal(b"cannot read nowhere: No such file or directory", "one", "nowhere")
        self.check_refusal(b". is a directory", "one", ".")

    @native_only
    def test_files_of_the_system(self):
        self.check_refusal(b"/dev/null is not a regular file", "/dev/null")
        self.check_refusal(b"cannot read /proc/self/mem: Input/output error", "/proc/self/mem")

    @native_only
    @unittest.skipIf("KELPLIB_DELAYED_SIGNALS" in os.environ, "ThreadSanitizer may delay the signal for ever")
    def test_interrupted_in_a_terminal(self):
        # A file without bytes on the disk, so large that no machine has read it before the signal.
        with open(self.folder / "large", "wb") as file:
            file.truncate(2**40)
        tool, reader = self.start_in_terminal("large")
        drawn = b""
        while b"reading" not in drawn or b"time remaining" not in drawn:
            drawn += os.read(reader, 4096)
        tool.send_signal(signal.SIGTERM)
        self.assertEqual(b"checksum: interrupted\n", tool.stderr.read())
        self.assertEqual(-signal.SIGTERM, tool.wait())


if __name__ == "__main__":
    unittest.main()
