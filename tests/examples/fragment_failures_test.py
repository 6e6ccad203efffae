"""The fragment tool when something goes wrong on the way: what it says, and that nothing is lost or left behind."""

import os
import pathlib
import subprocess
import unittest

import programs
from fragment_tool import FragmentTestCase, PROGRAM, native_only, pseudo_random, windows_only

if not programs.ON_WINDOWS:
    import resource


def limited(kind, limit):
    """Options for a run with a limit of the system. A write beyond the file size limit is told as an error."""
    return {"preexec_fn": lambda: resource.setrlimit(kind, (limit, limit)), "restore_signals": False}


def own_mounts(script, *arguments):
    """Runs a shell script, with the arguments, that may mount what it likes: nobody else sees it."""
    return programs.run("unshare", "--user", "--map-root-user", "--mount", "sh", "-e", "-c", script, "sh", *arguments)


def may_mount():
    try:
        return own_mounts("mount -t tmpfs none /mnt")[0] == 0
    except OSError:
        return False


needs_mounts = unittest.skipUnless(not programs.ON_WINDOWS and may_mount(), "this system lets nobody mount")


def grow(path):
    with open(path, "ab") as file:
        file.write(b"+")


class InterruptedTest(FragmentTestCase):
    """The tool stops in its trace output, which does not fit into the pipe, until somebody reads it."""

    def setUp(self):
        super().setUp()
        self.name = "n" * 200
        self.data = pseudo_random(400000)
        self.write(self.name, self.data)

    def start(self, *arguments):
        return subprocess.Popen(programs.command(PROGRAM, "-v", *arguments), cwd=self.folder, bufsize=0, pipesize=4096,
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def start_cut(self):
        """A cut into 50 fragments that has opened its input and cannot end."""
        tool = self.start("-s=8000", "-o=" + self.name + ".", self.name)
        for _ in range(2 * len(self.name)):  # into the line of the second fragment
            tool.stdout.read(1)
        return tool

    def check_change(self, tool, name, change):
        change(self.folder / self.name)
        changed = (self.folder / self.name).read_bytes()
        _, problem = tool.communicate()
        self.assertEqual(1, tool.returncode)
        self.assertEqual(b"fragment: " + name.encode() + b" changed while it was read\n",
                         programs.plain_line_ends(problem))
        self.assertEqual({self.name: changed}, self.contents())

    def test_nothing(self):
        tool = self.start_cut()
        trace, problem = tool.communicate()
        self.assertEqual((0, b"", 50), (tool.returncode, problem, trace.count(b"\n")))

    def test_grown_input(self):
        self.check_change(self.start_cut(), self.name, grow)

    def test_shrunk_input(self):
        self.check_change(self.start_cut(), self.name, lambda path: os.truncate(path, 8000))

    @native_only
    def test_grown_fragment(self):
        # One line of this trace is more than the pipe holds, so the tool is in the middle of the first fragment.
        name = "./" * 1945 + self.name
        tool = self.start("-j", "-o=out", name, name)
        tool.stdout.read(1)
        self.check_change(tool, name, grow)

    @native_only
    def test_killed(self):
        tool = self.start_cut()
        tool.kill()
        tool.communicate()
        left = self.contents()
        self.assertEqual(self.data, left.pop(self.name))
        self.assertIn(self.name + ".00.unfinished", left)
        self.assertEqual([], [name for name in left if not name.endswith(".unfinished")])


class LeftoverTest(FragmentTestCase):
    def test_files_of_an_interrupted_run(self):
        for name, data in [("in", b"1234"), ("in.part_1", b"old"), ("a.part_1.unfinished", b"half"),
                           ("in.part_1.replaced", b"kept")]:
            self.write(name, data)
        for problem, *arguments in [
            (b"a.part_1.unfinished exists already; remove it first", "-n=2", "-o=a.part_", "in"),
            (b"a.part_1.unfinished exists already; remove it first", "-f", "-n=2", "-o=a.part_", "in"),
            (b"in.part_1.replaced exists already; move it away first", "-f", "-n=2", "in"),
            (b"in.part_1.replaced exists already; move it away first", "-f", "-j", "-o=in.part_1", "in", "in"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    @native_only
    def test_link_under_the_unfinished_name(self):
        self.write("in", b"1234")
        os.symlink("/dev/full", self.folder / "out.unfinished")
        self.check_refusal(b"out.unfinished exists already; remove it first", "-f", "-j", "-o=out", "in", "in")

    @windows_only
    def test_old_file_that_cannot_be_removed(self):
        for name in ["in0", "in1", "in2"]:
            self.write(name, b"old")
        self.write("in", b"123")
        (self.folder / "in1").chmod(0o444)
        self.assertEqual((1, b"", b"fragment: cannot remove in1.replaced: Permission denied\n"),
                         self.tool("-f", "-n=3", "-o=in", "in"))
        self.assertEqual({"in": b"123", "in0": b"1", "in1": b"2", "in2": b"3", "in1.replaced": b"old"},
                         self.contents())


@native_only
class SystemErrorTest(FragmentTestCase):
    def test_file_size_limit(self):
        self.write("in", pseudo_random(400000))
        self.write("in.part_0", b"old")
        self.write("small", b"s" * 1001)
        for problem, *arguments in [
            (b"cannot write in.part_0: File too large", "-f", "-n=2", "in"),
            (b"cannot write x0: File too large", "-s=100001", "-o=x", "in"),
            (b"cannot write out: File too large", "-j", "-o=out", "in.part_0", "in"),
            (b"cannot write in: File too large", "-f", "-j", "-o=in", "in.part_0", "in"),
            # So little that it is written when the file is closed.
            (b"cannot write x0: File too large", "-n=1", "-o=x", "small"),
            # Missing fragments are told before anything is written.
            (b"cannot read nowhere: No such file or directory", "-j", "-o=out", "in", "nowhere"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments, **limited(resource.RLIMIT_FSIZE, 1000))

    def test_memory_limit(self):
        # The names alone take more than this.
        limit = limited(resource.RLIMIT_AS, 24 * 2**20)
        self.write("in", b"i" * 100000)
        if self.tool("-j", "-o=out", "in", "in", **limit)[0] != 0:
            self.skipTest("this build needs more memory for everything")
        self.check_refusal(b"out of memory", "-n=100000", "-o=" + "x" * 200, "in", **limit)

    def test_refused_read(self):
        device = "/sys/class/net/lo/speed"
        if not pathlib.Path(device).exists():
            self.skipTest("no " + device)
        self.write("in", b"1234")
        self.check_refusal(b"cannot read /sys/class/net/lo/speed: Invalid argument", "-j", "-o=out", "in", device)

    def test_fewer_bytes_than_the_size_says(self):
        device = "/sys/devices/system/cpu/online"
        if not pathlib.Path(device).exists():
            self.skipTest("no " + device)
        self.write("in", b"1234")
        self.check_refusal(b"/sys/devices/system/cpu/online changed while it was read", "-j", "-o=out", "in", device)

    @needs_mounts
    def test_full_disk(self):
        self.write("in", pseudo_random(1600000))
        (self.folder / "disk").mkdir()
        status, output, problem = own_mounts(
            'cd "$1"; shift; mount -t tmpfs -o size=1m none disk; printf old >disk/x2; '
            'status=0; "$@" || status=$?; ls -A disk; cat disk/x2; exit $status',
            str(self.folder), PROGRAM, "-f", "-s=327680", "-o=disk/x", "in")
        self.assertEqual((1, b"x2\nold"), (status, output))
        self.assertEqual(b"fragment: cannot write disk/x3: No space left on device\n", problem)

    @needs_mounts
    def test_file_that_cannot_be_replaced(self):
        # Nothing can be moved onto a mount point. The fragments before it are in place by then, and taken back.
        for name in ["in", "in.part_0", "in.part_2", "in.part_3"]:
            self.write(name, b"old " + name.encode())
        before = self.contents()
        self.assertEqual(
            (1, b"", b"fragment: cannot rename in.part_2: Device or resource busy\n"),
            own_mounts('cd "$1"; shift; mount --bind in.part_2 in.part_2; exec "$@"', str(self.folder), PROGRAM,
                       "-f", "-n=4", "in"))
        self.assertEqual(before, self.contents())


if __name__ == "__main__":
    unittest.main()
