"""The fragment tool when something goes wrong on the way: what it says, and that nothing is lost or left behind."""

import functools
import os
import pathlib
import signal
import subprocess
import tempfile
import unittest

import programs
from example_tool import PROGRAM, ToolTestCase, native_only, preloaded, pseudo_random, windows_only

if not programs.ON_WINDOWS:
    import resource


IN_USE = b".unfinished exists already; remove it unless another run is writing it"


def limited(kind, limit):
    """Options for a run with a limit of the system."""
    return {"preexec_fn": lambda: resource.setrlimit(kind, (limit, limit))}


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


class InterruptedTest(ToolTestCase):
    """The tool stops in its trace output, which does not fit into the pipe, until somebody reads it."""

    def setUp(self):
        super().setUp()
        self.name = "n" * 200
        self.data = pseudo_random(400000)
        self.write(self.name, self.data)

    def start(self, *arguments, **options):
        return subprocess.Popen(programs.command(PROGRAM, "-v", *arguments), cwd=self.folder, bufsize=0, pipesize=4096,
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, **options)

    def start_cut(self, **options):
        """A cut into 50 fragments that has opened its input and cannot end."""
        tool = self.start("-s=8000", "-o=" + self.name + ".", self.name, **options)
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

    def test_name_taken_meanwhile(self):
        tool = self.start_cut()
        self.write(self.name + ".49", b"precious")
        self.check_problem(tool, f"<here>/{self.name}.49 exists already; -f overwrites it", ".49")

    def test_unfinished_name_taken_meanwhile(self):
        tool = self.start_cut()
        self.write(self.name + ".49.unfinished", b"precious")
        self.check_problem(tool, f"<here>/{self.name}.49{IN_USE.decode()}", ".49.unfinished")

    def check_problem(self, tool, problem, suffix):
        """The tool stops with the problem; nothing is there but its input and the precious file of somebody else."""
        _, told = tool.communicate()
        self.assertEqual((1, f"fragment: {problem}\n".encode()),
                         (tool.returncode, self.without_folder(programs.plain_line_ends(told))))
        self.assertEqual({self.name: self.data, self.name + suffix: b"precious"}, self.contents())

    @native_only
    def test_ending_signals(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(number):
                tool = self.start_cut()
                tool.send_signal(number)
                # It ends though nobody reads on.
                self.assertEqual(-number, tool.wait(timeout=30))
                self.assertEqual(b"fragment: interrupted\n", tool.communicate()[1])
                self.assertEqual({self.name: self.data}, self.contents())

    @unittest.skipUnless("KELPLIB_LATE_SIGNAL" in os.environ, "this build loads nothing before the tool")
    def test_signal_just_before_the_tool_waits(self):
        shims = tempfile.TemporaryDirectory()
        self.addCleanup(shims.cleanup)
        shim = preloaded("KELPLIB_LATE_SIGNAL", shims.name, PIPE="4096")
        tool = self.start("-s=8000", "-o=" + self.name + ".", self.name, env=shim)
        self.assertEqual(-signal.SIGTERM, tool.wait(timeout=30))
        self.assertEqual(b"fragment: interrupted\n", tool.communicate()[1])
        self.assertEqual({self.name: self.data}, self.contents())

    @native_only
    def test_signals_ignored_from_the_start(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(number):
                tool = self.start_cut(preexec_fn=functools.partial(signal.signal, number, signal.SIG_IGN))
                tool.send_signal(number)
                _, problem = tool.communicate()
                self.assertEqual((0, b""), (tool.returncode, problem))
                for name in self.contents().keys() - {self.name}:
                    (self.folder / name).unlink()

    @native_only
    def test_reader_that_goes_away(self):
        tool = self.start_cut()
        tool.stdout.close()
        self.assertEqual(b"fragment: interrupted\n", tool.stderr.read())
        self.assertEqual(-signal.SIGPIPE, tool.wait())
        self.assertEqual({self.name: self.data}, self.contents())
        tool.stderr.close()

    @native_only
    def test_killed(self):
        tool = self.start_cut()
        tool.kill()
        tool.communicate()
        left = self.contents()
        self.assertEqual(self.data, left.pop(self.name))
        self.assertIn(self.name + ".00.unfinished", left)
        self.assertEqual([], [name for name in left if not name.endswith(".unfinished")])


class LeftoverTest(ToolTestCase):
    def test_files_of_an_interrupted_run(self):
        for name, data in [("in", b"1234"), ("in.part_1", b"old"), ("a.part_1.unfinished", b"half"),
                           ("in.part_1.replaced", b"kept")]:
            self.write(name, data)
        for problem, *arguments in [
            (b"<here>/a.part_1" + IN_USE, "-n=2", "-o=a.part_", "in"),
            (b"<here>/a.part_1" + IN_USE, "-f", "-n=2", "-o=a.part_", "in"),
            (b"in.part_1.replaced exists already; move it away first", "-f", "-n=2", "in"),
            (b"<here>/in.part_1.replaced exists already; move it away first", "-f", "-j", "-o=in.part_1", "in", "in"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    def test_fragments_beside_leftovers(self):
        problem = b" belongs to a run that is at work or was interrupted; the fragments may be of different cuts"
        for name in ["f0", "f1", "f2"]:
            self.write(name, name.encode())
        for name in ["f0.replaced", "f2.unfinished", "f3.unfinished"]:
            with self.subTest(name):
                self.write(name, b"left over")
                self.check_refusal(name.encode() + problem, "-j", "-o=out", "f0")
                (self.folder / name).unlink()
        self.write("f1.replaced", b"left over")
        self.check_refusal(b"f1.replaced" + problem, "-j", "-o=out", "f0", "f1")
        self.check(b"fragments: 1, bytes: 2, joined: <here>/out\n", "-j", "-o=out", "f2")

    @native_only
    def test_link_under_the_unfinished_name(self):
        self.write("in", b"1234")
        os.symlink("/dev/full", self.folder / "out.unfinished")
        self.check_refusal(b"<here>/out" + IN_USE, "-f", "-j", "-o=out", "in", "in")

    @windows_only
    def test_old_file_that_cannot_be_removed(self):
        for name in ["in0", "in1", "in2"]:
            self.write(name, b"old")
        self.write("in", b"123")
        (self.folder / "in1").chmod(0o444)
        self.assertEqual((1, b"", b"fragment: cannot remove <here>/in1.replaced: Permission denied\n"),
                         self.tool("-f", "-n=3", "-o=in", "in"))
        self.assertEqual({"in": b"123", "in.count": b"fragments: 3\nbytes: 3\n", "in0": b"1", "in1": b"2", "in2": b"3",
                          "in1.replaced": b"old"}, self.contents())


@native_only
class SystemErrorTest(ToolTestCase):
    def test_file_size_limit(self):
        self.write("in", pseudo_random(400000))
        self.write("in.part_0", b"old")
        self.write("small", b"s" * 1001)
        for problem, *arguments in [
            (b"cannot write in.part_0: File too large", "-f", "-n=2", "in"),
            (b"cannot write <here>/xy0: File too large", "-s=100001", "-o=xy", "in"),
            (b"cannot write <here>/out: File too large", "-j", "-o=out", "in.part_0", "in"),
            (b"cannot write <here>/small: File too large", "-f", "-j", "-o=small", "in.part_0", "in"),
            # So little that it is written when the file is closed.
            (b"cannot write <here>/xy0: File too large", "-n=1", "-o=xy", "small"),
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

    def test_full_standard_output(self):
        self.write("in", b"1234")
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, "-n=2", "in"], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=full,
                                  stderr=subprocess.PIPE, timeout=60, check=False)
        self.assertEqual((1, b"fragment: all files are written, but standard output cannot be\n"),
                         (done.returncode, done.stderr))
        self.assertEqual({"in": b"1234", "in.part_.count": b"fragments: 2\nbytes: 4\n", "in.part_0": b"12",
                          "in.part_1": b"34"}, self.contents())

    def test_closed_standard_output(self):
        for name in ["f0", "f1"]:
            self.write(name, name.encode())
        for arguments in (["-j", "-v", "-o=out", "f0"], ["-n=2", "f0"]):
            done = subprocess.run(["sh", "-c", 'exec "$0" "$@" >&-', PROGRAM, *arguments], cwd=self.folder, timeout=60,
                                  stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
            self.assertEqual((1, b"fragment: standard output is closed\n"), (done.returncode, done.stderr))
        self.assertEqual({"f0": b"f0", "f1": b"f1"}, self.contents())

    def test_program_path_that_looks_like_a_flag(self):
        self.write("in", b"1234")
        done = subprocess.run(["-o=evil.", "-n=2", "-o=good.", "in"], executable=PROGRAM, cwd=self.folder, timeout=60,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
        self.assertEqual((0, b""), (done.returncode, done.stderr))
        self.assertEqual({"in": b"1234", "good..count": b"fragments: 2\nbytes: 4\n", "good.0": b"12", "good.1": b"34"},
                         self.contents())

    def test_output_among_the_fragments_by_another_way(self):
        for name in ["f0", "f1"]:
            self.write(name, name.encode())
        os.symlink(".", self.folder / "lnk")
        self.check_refusal(b"<here>/lnk/f2 would count as one more fragment; choose another name",
                           "-j", "-o=lnk/f2", "f0")

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
        self.assertEqual(b"fragment: cannot write <here>/disk/x3: No space left on device\n", self.without_folder(problem))

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
