"""The files that a tool of the kit writes: names, permissions, failures, signals, and other runs at the same time.

Set KELPLIB_PAIRS to run more pairs of tools at the same time.
"""

import fcntl
import os
import pathlib
import signal
import stat
import struct
import subprocess
import tempfile
import termios
import time
import unittest

import programs
from files_tool import PROGRAM, FilesTestCase, native_only

if not programs.ON_WINDOWS:
    import resource

ROOT = not programs.ON_WINDOWS and os.geteuid() == 0


class OutputTest(FilesTestCase):
    def test_new_files(self):
        self.assertEqual((0, b"", b""), self.tool("many", "a", "A", "b", "@70000", "c", "C"))
        self.assertEqual({"a": b"A", "b": b"x" * 70000, "c": b"C"}, self.contents())

    def test_bytes_are_kept(self):
        data = bytes(range(256)) * 1000 + b"\r\n\n\x1a"
        self.write("in", data)
        self.assertEqual((0, b"", b""), self.tool("copy", "out", "in"))
        self.assertEqual(data, self.contents()["out"])

    def test_standard_output(self):
        self.assertEqual((0, b"x" * 100000, b""), self.tool("one", "-", "@100000"))
        self.assertEqual({}, self.contents())

    def test_overwriting_needs_leave(self):
        self.write("a", b"old")
        self.write("c", b"old")
        self.check_refusal(b"a exists already", "one", "a", "new")
        self.check_refusal(b"a exists already; -f overwrites it", "one", "-a", "a", "new")
        self.check_refusal(b"c exists already", "many", "b", "new", "c", "new")
        self.assertEqual((0, b"", b""), self.tool("many", "-f", "a", "new a", "b", "new b"))
        self.assertEqual({"a": b"new a", "b": b"new b", "c": b"old"}, self.contents())

    def test_leftovers_are_named(self):
        for left, advice in [("a.unfinished", b"remove it unless another run is writing it"),
                             ("b.unfinished", b"remove it unless another run is writing it"),
                             ("a.replaced", b"move it away first"), ("b.replaced", b"move it away first")]:
            self.start_with({left: b"left"})
            for options in ([], ["-f"]):
                self.check_refusal(left.encode() + b" exists already; " + advice, "many", *options, "a", "A", "b", "B")

    def test_the_same_name_twice(self):
        self.check_refusal(b"a.unfinished exists already; remove it unless another run is writing it",
                           "many", "a", "1", "a", "2")
        self.check_refusal(b"a.unfinished exists already", "many", "a", "1", "a.unfinished", "2")

    def test_names_that_end_like_those_of_a_run(self):
        for words in (["a.replaced", "R", "a", "A"], ["a.unfinished", "R", "a", "A"]):
            self.start_with({"a": b"old"})
            self.assertEqual((0, b"", b""), self.tool("many", "-f", *words))
            self.assertEqual({"a": b"A", words[0]: b"R"}, self.contents())
        self.start_with({"a": b"old"})
        self.check_refusal(b"a.replaced exists already; move it away first", "many", "-f", "a", "A", "a.replaced", "R")

    def test_read_only_file_is_replaced(self):
        self.write("a", b"old")
        (self.folder / "a").chmod(0o400)
        self.assertEqual((0, b"", b""), self.tool("one", "-f", "a", "new"))
        self.assertEqual({"a": b"new"}, self.contents())

    def test_unpublished(self):
        self.write("a", b"old")
        self.assertEqual((0, b"", b""), self.tool("drop", "b", "@200000"))
        self.assertEqual({"a": b"old"}, self.contents())

    def test_folders(self):
        (self.folder / "a").mkdir()
        for options in ([], ["-f"]):
            self.check_refusal(b"a is a directory", "one", *options, "a", "new")
        self.check_refusal(b"cannot create none/a.unfinished: No such file or directory", "one", "none/a", "new")

    def test_input_that_is_the_output(self):
        self.write("a", b"precious")
        for other in ("a", "./a", "../" + self.folder.name + "/a"):
            self.check_refusal(other.encode() + b" is an input too; choose another name", "copy", "-f", other, "a")
        # Even without the check the input keeps its content until it has been read.
        self.assertEqual((0, b"", b""), self.tool("safecopy", "a", "a"))
        self.assertEqual({"a": b"copy of precious"}, self.contents())

    def test_copy_of_an_empty_input(self):
        self.write("in", b"")
        message = b"cannot write out: an input could not be read or was empty, or the output stream was in a failed state\n"
        self.assertEqual((1, b"", message), self.tool("copy", "out", "in"))

    def test_lines_of_an_input(self):
        self.write("in", b"one\r\n\n\x00\xff\r\nend")
        self.assertEqual((0, b"", b""), self.tool("lines", "a", "in"))
        end = b"" if programs.ON_WINDOWS else b"\r"
        self.assertEqual(b"1 one" + end + b"\n2 \n3 \x00\xff" + end + b"\n4 end\n", self.contents()["a"])

    @native_only
    def test_inputs_are_closed(self):
        self.write("in", b"one\ntwo\n")
        self.assertEqual((0, b"", b""), self.tool("often", "in", preexec_fn=lambda: resource.setrlimit(
            resource.RLIMIT_NOFILE, (50, 50))))

    def test_letters_of_any_language(self):
        environment = {**os.environ, "LC_ALL": "C.UTF-8"}
        for name in ("t\u00e4st", "\u65e5\u672c", "\u0436\u2192\U0001f600"):
            self.start_with({})
            self.assertEqual((0, b"", b""), self.tool("one", name, "text", env=environment))
            self.assertEqual({name: b"text"}, self.contents())
            self.check_refusal(name.encode() + b" exists already", "one", name, "text", env=environment)

    def test_noted_signal(self):
        # The signal is found when the text does not fit into memory, and before the file gets its name.
        self.write("a", b"old")
        for size in ("@0", "@1", "@1000000"):
            self.assertEqual((3 if programs.ON_WINDOWS else -signal.SIGTERM, b"", b"interrupted\n"),
                             self.tool("raise", "-f", "a", size))
            self.assertEqual({"a": b"old"}, self.contents())
        status, _, errors = self.tool("raise", "-", "text")
        self.assertEqual((3 if programs.ON_WINDOWS else -signal.SIGTERM, b"interrupted\n"), (status, errors))

    @native_only
    def test_names_that_cannot_be_looked_up(self):
        (self.folder / "loop").symlink_to("loop")
        self.check_refusal(b"cannot look at loop/a: Too many levels of symbolic links", "one", "loop/a", "new")

    @native_only
    def test_any_bytes_in_names(self):
        for name in (b"\xff", b"a\x1b[31m\n", b"-x", b" ", b"n" * 244):
            self.assertEqual((0, b"", b""), self.tool("one", name, "text"))
            with open(os.path.join(os.fsencode(self.folder), name), "rb") as file:
                self.assertEqual(b"text", file.read())
        for size in (245, 255):
            self.assertEqual((1, b"", b"cannot create " + b"n" * size + b".unfinished: File name too long\n"),
                             self.tool("one", b"n" * size, "text"))


@native_only
class PermissionTest(FilesTestCase):
    def mode(self, name):
        return stat.S_IMODE((self.folder / name).stat().st_mode)

    def test_new_files(self):
        for mask in (0o022, 0o077, 0o002, 0):
            self.start_with({})
            self.assertEqual(0, self.tool("one", "a", "A", preexec_fn=lambda mask=mask: os.umask(mask))[0])
            self.assertEqual(0o666 & ~mask, self.mode("a"))

    def test_overwritten_files(self):
        for before, after in [(0o600, 0o600), (0o644, 0o644), (0o660, 0o660), (0o755, 0o755), (0o4755, 0o755), (0o2755, 0o755),
                              (0o1644, 0o644), (0o6777, 0o777), (0o400, 0o400)]:
            with self.subTest(oct(before)):
                self.start_with({"a": b"old"})
                (self.folder / "a").chmod(before)
                self.assertEqual(before, self.mode("a"))
                self.assertEqual(0, self.tool("one", "-f", "a", "new")[0])
                self.assertEqual(after, self.mode("a"))

    @unittest.skipUnless(ROOT, "only root gives files to any group")
    def test_overwritten_file_of_another_group(self):
        for before, after in [(0o640, 0o600), (0o664, 0o644), (0o670, 0o600), (0o677, 0o677)]:
            with self.subTest(oct(before)):
                self.start_with({"a": b"old"})
                os.chown(self.folder / "a", -1, os.getegid() + 4711)
                (self.folder / "a").chmod(before)
                self.assertEqual(0, self.tool("one", "-f", "a", "new")[0])
                self.assertEqual((after, os.getegid()), (self.mode("a"), (self.folder / "a").stat().st_gid))

    def test_overwritten_link(self):
        # The permissions are not those of its target, which stays.
        self.write("target", b"old")
        (self.folder / "target").chmod(0o666)
        (self.folder / "a").symlink_to("target")
        self.assertEqual(0, self.tool("one", "-f", "a", "new", preexec_fn=lambda: os.umask(0o077))[0])
        self.assertEqual((0o600, {"a": b"new", "target": b"old"}), (self.mode("a"), self.contents()))

    def test_overwritten_file_with_an_access_list(self):
        # The group permissions of the old file are those of the user 4711: its group has none.
        entries = [(1, 6, 0xffffffff), (2, 6, 4711), (4, 0, 0xffffffff), (16, 6, 0xffffffff), (32, 0, 0xffffffff)]
        self.write("a", b"old")
        try:
            os.setxattr(self.folder / "a", "system.posix_acl_access",
                        struct.pack("<I", 2) + b"".join(struct.pack("<HHI", *entry) for entry in entries))
        except OSError as error:
            self.skipTest(f"no access control lists here: {error}")
        self.assertEqual(0o660, self.mode("a"))
        self.assertEqual(0, self.tool("one", "-f", "a", "new")[0])
        self.assertEqual(0o600, self.mode("a"))

    @unittest.skipUnless(ROOT, "only root gives files away")
    def test_overwritten_file_of_another_owner(self):
        self.write("a", b"old")
        os.chown(self.folder / "a", 4711, 4711)
        (self.folder / "a").chmod(0o6755)
        self.assertEqual(0, self.tool("one", "-f", "a", "new")[0])
        found = (self.folder / "a").stat()
        self.assertEqual((os.geteuid(), os.getegid(), 0o755), (found.st_uid, found.st_gid, self.mode("a")))

    def test_unfinished_files_are_private(self):
        with subprocess.Popen([PROGRAM, "wait", "a", "ready"], cwd=self.folder, preexec_fn=lambda: os.umask(0),
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE) as tool:
            self.assertEqual(b"ready\n", tool.stdout.readline())
            self.assertEqual(0o600, self.mode("a.unfinished"))
            tool.kill()

    def test_folder_that_cannot_be_listed(self):
        def become_ordinary():
            if ROOT:
                os.setgroups([])
                os.setgid(65534)
                os.setuid(65534)
        (self.folder / "b").mkdir()
        self.write("b/a", b"old")
        self.folder.chmod(0o755)
        if ROOT:
            os.chown(self.folder / "b", 65534, 65534)
            os.chown(self.folder / "b/a", 65534, 65534)
        (self.folder / "b").chmod(0o300)
        try:
            result = self.tool("one", "-f", "b/a", "new", preexec_fn=become_ordinary)
        except PermissionError as error:
            self.skipTest(f"only root can run the tool: {error}")
        finally:
            (self.folder / "b").chmod(0o700)
        self.assertEqual((0, b"", b""), result)
        self.assertEqual(b"new", (self.folder / "b/a").read_bytes())
        self.assertEqual(1, len(list((self.folder / "b").iterdir())))

    def test_links(self):
        # A link is replaced, not its target. An existing target counts as the file that is overwritten.
        for target in ("victim", "nowhere"):
            self.start_with({"victim": b"precious"})
            os.symlink(target, self.folder / "a")
            self.check_refusal(b"a exists already", "one", "a", "new")
            self.assertEqual((0, b"", b""), self.tool("one", "-f", "a", "new"))
            self.assertEqual({"a": b"new", "victim": b"precious"}, self.contents())
        for end in (".unfinished", ".replaced"):
            self.start_with({"victim": b"precious"})
            os.symlink("nowhere", self.folder / ("a" + end))
            status, _, errors = self.tool("one", "-f", "a", "new")
            self.assertEqual((1, "a" + end), (status, self.run_until_named(errors)))
            self.assertEqual({"a" + end: "nowhere", "victim": b"precious"}, self.contents())

    def test_devices(self):
        os.symlink("/dev/null", self.folder / "a")
        os.mkfifo(self.folder / "b")
        for name in (b"a", b"b"):
            self.assertEqual((1, b"", name + b" is not a regular file\n"), self.tool("one", "-f", name, "new"))
        self.assertTrue(stat.S_ISFIFO((self.folder / "b").stat().st_mode))


@native_only
class FailureTest(FilesTestCase):
    def test_limit_of_file_sizes(self):
        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (100000, 100000))
        self.write("a", b"old")
        for work in ("one", "stubborn"):
            self.check_refusal(b"cannot write b: File too large", work, "b", "@200000", preexec_fn=limit)
        self.write("in", b"x" * 200000)
        self.check_refusal(b"cannot write b: File too large", "copy", "b", "in", preexec_fn=limit)
        self.check_refusal(b"cannot write a: File too large", "one", "-f", "a", "@200000", preexec_fn=limit)
        self.check_refusal(b"cannot write c: File too large", "many", "-f", "a", "@1", "b", "@1", "c", "@100001",
                           preexec_fn=limit)
        with open(self.folder / "out", "wb") as out:
            done = subprocess.run([PROGRAM, "one", "-", "@200000"], stdout=out, stderr=subprocess.PIPE, preexec_fn=limit,
                                  timeout=60, check=False)
        # Standard output has no unfinished file, so nothing handles the signal.
        self.assertEqual(-signal.SIGXFSZ, done.returncode)

    def test_failed_read(self):
        # libc++'s own stream would take the failure for the end of the file.
        self.check_refusal(b"cannot read /proc/self/mem: Input/output error", "lines", "a", "/proc/self/mem")

    def test_link_among_the_devices(self):
        # In a file system of its own, because an error would replace the link of the whole system.
        script = "mount -t tmpfs tmpfs /dev && ln -s /proc/self/fd/1 /dev/stdout || exit 77; " \
                 '"$0" one -f /dev/stdout new; cd /dev; "$0" one -f stdout new; ls /dev'
        with open(self.folder / "out", "wb") as out:
            done = subprocess.run(["unshare", "-rm", "sh", "-c", script, PROGRAM], stdout=out, stderr=subprocess.PIPE, timeout=60,
                                  check=False)
        if done.returncode in (1, 77):
            self.skipTest("this user cannot mount a file system")
        self.assertEqual((b"/dev/stdout is in the folder of the devices\nstdout is in the folder of the devices\n", b"stdout\n"),
                         (done.stderr, self.contents()["out"]))

    def test_full_disk(self):
        mounted = f"mount -t tmpfs -o size=64k tmpfs {self.folder} && cd {self.folder} && "
        if subprocess.run(["unshare", "-rm", "sh", "-c", mounted + "true"], stderr=subprocess.DEVNULL, check=False).returncode:
            self.skipTest("this user cannot mount a small file system")
        script = mounted + 'printf old >a; for word in one stubborn; do "$0" $word -f a @200000; echo $?; ls; cat a; done'
        done = subprocess.run(["unshare", "-rm", "sh", "-c", script, PROGRAM], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              timeout=60, check=False)
        self.assertEqual(b"cannot write a: No space left on device\n1\na\nold" * 2, done.stdout)

    def test_full_standard_output(self):
        for size in ("@0", "@1", "@100000"):
            with self.subTest(size), open("/dev/full", "wb") as full:
                done = subprocess.run([PROGRAM, "both", "a", size], cwd=self.folder, stdout=full, stderr=subprocess.PIPE,
                                      timeout=60, check=False)
                if size == "@0":
                    self.assertEqual((0, b""), (done.returncode, done.stderr))
                    self.assertEqual({"a": b""}, self.contents())
                    self.start_with({})
                else:
                    self.assertEqual((1, b"cannot write standard output: No space left on device\n"),
                                     (done.returncode, done.stderr))
                    self.assertEqual({}, self.contents())

    def test_failed_standard_output_stays_failed(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, "stubborn", "-", "@1"], stdout=full, stderr=subprocess.PIPE, timeout=60, check=False)
        self.assertEqual((1, b"cannot write standard output: No space left on device\n"), (done.returncode, done.stderr))

    def test_closed_streams(self):
        for closed in ("2>&-", "<&- 2>&-"):
            self.start_with({})
            done = subprocess.run(["sh", "-c", f'"$0" noisy a text {closed}', PROGRAM], cwd=self.folder, timeout=60, check=False)
            self.assertEqual((0, {"a": b""}), (done.returncode, self.contents()), closed)
        # A file does not take the place of a closed stream, which would write into it.
        for closed in (">&-", "2>&-", "<&- >&- 2>&-"):
            self.start_with({})
            done = subprocess.run(["sh", "-c", f'"$0" both a text {closed}', PROGRAM], cwd=self.folder, stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, timeout=60, check=False)
            self.assertEqual(0 if closed == "2>&-" else 1, done.returncode, closed)
            self.assertEqual({"a": b""} if closed == "2>&-" else {}, self.contents(), closed)


@native_only
class SignalTest(FilesTestCase):
    def start(self, *arguments, **options):
        tool = subprocess.Popen([PROGRAM, *arguments], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, **options)
        self.addCleanup(tool.wait)
        self.addCleanup(tool.stdout.close)
        self.addCleanup(tool.stderr.close)
        self.addCleanup(tool.kill)
        return tool

    def check_ended(self, tool, number):
        _, errors = tool.communicate(timeout=60)
        self.assertEqual((-number, b"interrupted\n", {}), (tool.returncode, errors, self.contents()))

    def test_signals_remove_unfinished_files(self):
        def prepare():
            # The test may run with ignored signals, as under nohup.
            for number in numbers:
                signal.signal(number, signal.SIG_DFL)
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        numbers = (signal.SIGHUP, signal.SIGINT, signal.SIGPIPE, signal.SIGQUIT, signal.SIGTERM, signal.SIGXCPU)
        for number in numbers:
            with self.subTest(number):
                tool = self.start("wait", "a", "ready", preexec_fn=prepare)
                self.assertEqual(b"ready\n", tool.stdout.readline())
                self.assertEqual({"a.unfinished": b""}, self.contents())
                tool.send_signal(number)
                self.check_ended(tool, number)

    def test_signal_before_the_next_write(self):
        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (1, 1))
        self.assertEqual((-signal.SIGTERM, b"", b"interrupted\n"), self.tool("raise", "a", "@1000000", preexec_fn=limit))
        self.assertEqual({}, self.contents())

    def test_ignored_signals_stay_ignored(self):
        tool = self.start("wait", "a", "ready", preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN))
        self.assertEqual(b"ready\n", tool.stdout.readline())
        tool.send_signal(signal.SIGHUP)
        tool.send_signal(signal.SIGTERM)
        self.check_ended(tool, signal.SIGTERM)

    def disturb(self, tool):
        """Sends a waiting tool a signal that asks for no end: the kit handles it, so that a write fails instead."""
        stat_file = pathlib.Path(f"/proc/{tool.pid}/stat")
        while stat_file.read_text().rpartition(")")[2].split()[0] != "S":
            self.assertIsNone(tool.poll())
        tool.send_signal(signal.SIGXFSZ)
        # A call that can go on when the signal arrives is not cut short.
        status_file = pathlib.Path(f"/proc/{tool.pid}/status")
        while status_file.read_text().split("ShdPnd:")[1].split()[0].strip("0"):
            time.sleep(0.001)

    def test_input_that_goes_on_after_a_signal(self):
        os.mkfifo(self.folder / "pipe")
        tool = self.start("lines", "a", "pipe")
        while not (self.folder / "a.unfinished").exists():
            self.assertIsNone(tool.poll())
        self.disturb(tool)
        with open(self.folder / "pipe", "r+b", buffering=0) as writer:
            writer.write(b"one\n")
            while struct.unpack("i", fcntl.ioctl(writer, termios.FIONREAD, bytes(4)))[0] > 0:
                self.assertIsNone(tool.poll())
            self.disturb(tool)
            writer.write(b"two\n")
        self.assertEqual(0, tool.wait(60))
        self.assertEqual(b"1 one\n2 two\n", (self.folder / "a").read_bytes())

    def test_input_that_waits(self):
        with tempfile.TemporaryDirectory() as folder:
            pipe = os.path.join(folder, "pipe")
            os.mkfifo(pipe)
            for text in (None, b"a line and a half"):
                with self.subTest(text):
                    tool = self.start("lines", "a", pipe)
                    while "a.unfinished" not in self.contents():
                        self.assertIsNone(tool.poll())
                    writer = None if text is None else os.open(pipe, os.O_WRONLY)
                    if writer is not None:
                        os.write(writer, text)
                    tool.send_signal(signal.SIGTERM)
                    self.check_ended(tool, signal.SIGTERM)
                    if writer is not None:
                        os.close(writer)

    def test_closed_pipe(self):
        tool = self.start("both", "a", "@1000000")
        tool.stdout.read(1)
        tool.stdout.close()
        tool.wait(60)
        self.assertEqual((-signal.SIGPIPE, b"interrupted\n", {}), (tool.returncode, tool.stderr.read(), self.contents()))

    @unittest.skipIf("KELPLIB_DELAYED_SIGNALS" in os.environ, "ThreadSanitizer delays the signal until after the write")
    def test_blocked_output(self):
        tool = self.start("both", "a", "@1000000", pipesize=4096, bufsize=0)
        waiting = 0
        while waiting < 4096:
            self.assertIsNone(tool.poll())
            waiting = struct.unpack("i", fcntl.ioctl(tool.stdout, termios.FIONREAD, b"\0" * 4))[0]
        tool.send_signal(signal.SIGTERM)
        tool.wait(60)
        self.assertEqual((-signal.SIGTERM, b"interrupted\n", {}), (tool.returncode, tool.stderr.read(), self.contents()))


class ConcurrentTest(FilesTestCase):
    """Pairs of runs that start at the same time. They leave the files that one of them alone would leave."""

    PAIRS = int(os.environ.get("KELPLIB_PAIRS", 6 if programs.ON_WINDOWS else 40))

    def run_both(self, *options):
        tools = []
        for letter in "AZ":
            words = [word for number in range(12) for word in (f"f{number}", letter * 100)]
            tools.append(subprocess.Popen(programs.command(PROGRAM, "many", *options, *words), cwd=self.folder,
                                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE))
        results = []
        for tool in tools:
            _, errors = tool.communicate(timeout=60)
            results.append(tool.returncode)
            if tool.returncode != 0:
                self.assertRegex(programs.plain_line_ends(errors), rb"^f\d+(\.unfinished|\.replaced)? exists already.*\n$")
        return results

    @staticmethod
    def files_of(letter):
        return {f"f{number}": letter.encode() * 100 for number in range(12)}

    def test_new_files(self):
        for _ in range(self.PAIRS):
            self.start_with({})
            results = self.run_both()
            self.assertEqual([0, 1], sorted(results))
            self.assertEqual(self.files_of("AZ"[results.index(0)]), self.contents())

    def test_overwritten_files(self):
        for _ in range(self.PAIRS):
            self.start_with(self.files_of("O"))
            results = self.run_both("-f")
            self.assertIn(self.contents(), [self.files_of(letter) for letter, result in zip("AZ", results) if result == 0])


if __name__ == "__main__":
    unittest.main()
