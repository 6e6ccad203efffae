"""The files that a tool of the kit writes while other programs change the same folder, the disk fails or the process is killed, at
each of the calls that create, write, rename or remove a file; see at_file_step.c."""

import errno
import os
import resource
import shlex
import subprocess
import tempfile
import unittest

from files_tool import PROGRAM, FilesTestCase

NAMES = ["a", "b", "c"]
OLD = {"a": b"old a", "b": b"old b", "c": b"old c"}
NEW = {"a": b"new a", "b": b"new b", "c": b"new c"}
WRITE = ["a", "new a", "b", "new b", "c", "new c"]
OTHER = {"a": b"other a", "b": b"other b", "c": b"other c"}

# What happens to the files, in order. The first file is created first and gets its name last.
WRITTEN = ["open", "write", "fchmod", "fsync", "close"] * 3
CALLS = WRITTEN + ["renameat2"] * 3
CALLS_WITH_FORCE = WRITTEN + ["renameat2"] * 6 + ["fsync"] + ["unlink"] * 3
RUNS = [([], {}, len(CALLS)), (["-f"], OLD, len(CALLS_WITH_FORCE))]


@unittest.skipUnless("KELPLIB_AT_FILE_STEP" in os.environ, "this build cannot load at_file_step.c into the tool")
class StepsTest(FilesTestCase):
    def setUp(self):
        super().setUp()
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        # LD_PRELOAD splits its value at blanks.
        self.scratch = scratch.name
        self.shim = self.scratch + "/shim.so"
        os.symlink(os.path.realpath(os.environ["KELPLIB_AT_FILE_STEP"]), self.shim)

    def doing(self, deed, step):
        """Returns the environment of a tool that does the deed right before a step."""
        return {**os.environ, "LD_PRELOAD": self.shim, "KELPLIB_STEP": str(step), "KELPLIB_DEED": deed}

    def seen(self):
        with open(self.scratch + "/seen", encoding="utf-8") as seen:
            return seen.read().split()

    def at(self, step, deed, *options, **settings):
        """Writes the new files, and does the deed right before a step. Returns exit status and errors."""
        status, output, errors = self.tool("many", *options, *WRITE, env={**self.doing(deed, step), **settings})
        self.assertEqual(b"", output)
        return status, errors

    def check_nothing_lost(self, before, after, errors=None):
        """Checks that every old file still exists unless all new ones do. After a failure, it has its name or the one that the
        message prints."""
        if errors is None and all(after.get(name) == NEW[name] for name in before):
            return
        for name, data in before.items():
            if after.get(name) == data:
                continue
            self.assertEqual(data, after.get(name + ".replaced"), name)
            if errors is None:
                self.assertIn(after.get(name), (None, NEW[name]))
            else:
                self.assertRegex(errors, rb"; the file before is now called [abc]\.replaced\n$")

    def test_calls(self):
        for (options, files, _), calls in zip(RUNS, (CALLS, CALLS_WITH_FORCE)):
            self.start_with(files)
            seen = self.scratch + "/seen"
            with open(seen, "wb"):
                pass
            self.assertEqual((0, b""), self.at("", "list", *options, KELPLIB_LIST=seen))
            self.assertEqual(calls, self.seen())
            self.assertEqual(NEW, self.contents())

    def test_calls_without_publish(self):
        # The file is closed before it is removed.
        with open(self.scratch + "/seen", "wb"):
            pass
        environment = {**self.doing("list", ""), "KELPLIB_LIST": self.scratch + "/seen"}
        self.assertEqual((0, b"", b""), self.tool("drop", "a", "text", env=environment))
        self.assertEqual(["open", "close", "unlink"], self.seen())

    def test_folder_of_the_file_is_synchronised(self):
        (self.folder / "b").mkdir()
        self.write("b/a", b"old")
        environment = self.doing(f"readlink /proc/$PPID/fd/* >{self.scratch}/seen; true", "fsync 2")
        self.assertEqual((0, b"", b""), self.tool("one", "-f", "b/a", "new", env=environment))
        self.assertIn(os.path.realpath(self.folder / "b"), self.seen())

    def test_order(self):
        for options, step, names in [
            ([], "open 2", ["a.unfinished"]),
            ([], "open 3", ["a.unfinished", "b.unfinished"]),
            ([], "fsync 3", ["a.unfinished", "b.unfinished", "c.unfinished"]),
            ([], "renameat2 1", ["a.unfinished", "b.unfinished", "c.unfinished"]),
            ([], "renameat2 2", ["a.unfinished", "b.unfinished", "c"]),
            ([], "renameat2 3", ["a.unfinished", "b", "c"]),
            (["-f"], "fsync 3", ["a", "a.unfinished", "b", "b.unfinished", "c", "c.unfinished"]),
            (["-f"], "renameat2 2", ["a", "a.unfinished", "b", "b.unfinished", "c.replaced", "c.unfinished"]),
            (["-f"], "renameat2 6", ["a.replaced", "a.unfinished", "b", "b.replaced", "c", "c.replaced"]),
            (["-f"], "fsync 4", ["a", "a.replaced", "b", "b.replaced", "c", "c.replaced"]),
            (["-f"], "unlink 2", ["a", "b", "b.replaced", "c", "c.replaced"]),
        ]:
            with self.subTest(options=options, step=step):
                self.start_with(OLD if options else {})
                self.assertEqual((0, b""), self.at(step, f"ls >{self.scratch}/seen", *options))
                self.assertEqual(names, self.seen())

    def test_failures(self):
        for options, files, steps in RUNS:
            for deed in ("fail", "once", "full"):
                for step in range(1, steps + 1):
                    with self.subTest(options=options, deed=deed, step=step):
                        self.start_with(files)
                        self.check_failed(files, step, deed, options)

    def check_failed(self, files, step, deed, options):
        status, errors = self.at(step, deed, *options)
        after = self.contents()
        call = (CALLS_WITH_FORCE if options else CALLS)[step - 1]
        removed = step > len(WRITTEN) + 6
        if deed == "once" and call == "fchmod":
            self.assertEqual((0, b"", NEW), (status, errors, after))
        elif removed:
            # The new files have their names. Only the old ones may be left, and the first of them is named.
            self.assertEqual((1, NEW), (status, {name: after[name] for name in NAMES}))
            left = sorted(after.keys() - set(NAMES))
            if call == "fsync":
                self.assertEqual([name + ".replaced" for name in NAMES], left)
            self.assertTrue(errors.startswith(b"cannot remove " + left[0].encode() + b": "), (errors, left))
            self.assertLessEqual(set(left), {name + ".replaced" for name in NAMES})
        else:
            self.assertEqual(1, status)
            self.assertRegex(errors, rb"^cannot (create|write|rename) [abc]")
            self.assertRegex(errors, rb": No space left" if deed == "full" else rb": Input/output error")
            self.check_nothing_lost(files, after, errors)
            if deed == "once":
                self.assertEqual(files, after)

    def test_failed_write_is_not_forgotten(self):
        self.assertEqual((1, b"", b"cannot write a: Input/output error\n"),
                         self.tool("stubborn", "a", "@200000", env=self.doing("once", "write 1")))
        for call in ("write", "publish"):
            self.assertEqual((1, b"", b"cannot write a: Input/output error\n"),
                             self.tool("again", call, "a", "@200000", env=self.doing("once", "write 1")))
        self.assertEqual({}, self.contents())

    def test_interrupted_calls_are_repeated(self):
        for options, files, _ in RUNS:
            for step in ("open 2", "write 1", "fsync 3", "close 2"):
                with self.subTest(options=options, step=step):
                    self.start_with(files)
                    self.assertEqual((0, b"", NEW), (*self.at(step, "signal", *options), self.contents()))

    def test_short_write_is_continued(self):
        self.start_with({})
        self.assertEqual((0, b"", NEW), (*self.at("write 2", "short"), self.contents()))

    def test_signal_during_a_copy(self):
        self.write("in", b"x" * 200000)
        environment = self.doing("kill -TERM $PPID", "write 1")
        self.assertEqual((-15, b"", b"interrupted\n"), self.tool("copy", "out", "in", env=environment))
        self.assertEqual(["in"], list(self.contents()))

    def test_killed(self):
        for options, files, steps in RUNS:
            for step in range(1, steps + 1):
                with self.subTest(options=options, step=step):
                    self.start_with(files)
                    self.assertEqual((-9, b""), self.at(step, "kill", *options))
                    left = self.contents()
                    self.check_nothing_lost(files, left)
                    status, _, errors = self.tool("many", "-f", *WRITE)
                    if left == files:
                        self.assertEqual(0, status)
                    else:
                        self.assertIn(self.run_until_named(errors), left)
                        self.assertEqual((1, left), (status, self.contents()))

    def test_foreign_files(self):
        # ln fails if the name is in use.
        for options, files, steps in RUNS:
            for step in range(1, steps + 1):
                for planted in [name + end for name in NAMES for end in ("", ".unfinished", ".replaced")]:
                    with self.subTest(options=options, step=step, planted=planted):
                        self.start_with({"precious": b"precious", **files})
                        status, errors = self.at(step, f"ln precious {planted} 2>&- && touch done; true", *options)
                        self.check_planted(status, errors, files, planted, bool(options))

    def check_planted(self, status, errors, files, planted, force):
        after = self.contents()
        self.assertEqual(b"precious", after.pop("precious"))
        if after.pop("done", None) is None:
            self.assertEqual((0, NEW), (status, after))
        elif status == 0:
            # With -f a file that appears before its name is given is replaced like any old file.
            found = after.pop(planted)
            self.assertIn(found, [b"precious", NEW[planted]] if force and planted in NEW else [b"precious"])
            self.assertEqual({name: data for name, data in NEW.items() if name != planted}, after)
        else:
            self.assertEqual(1, status)
            self.assertEqual(b"precious", after[planted])
            self.check_nothing_lost({name: data for name, data in files.items() if name != planted}, after, errors)
            self.assertEqual([], [name for name in after if name != planted and after[name] not in OLD.values()])

    def test_links(self):
        for step in range(1, len(CALLS) + 1):
            for planted in [name + end for name in NAMES for end in ("", ".unfinished")]:
                for target in ("victim", "nowhere"):
                    with self.subTest(step=step, planted=planted, target=target):
                        self.start_with({"victim": b"precious"})
                        self.at(step, f"ln -s {target} {planted} 2>&-; true")
                        self.assertEqual(b"precious", self.contents()["victim"])
                        self.assertNotIn("nowhere", self.contents())

    def test_another_run(self):
        # The second run starts and ends between two calls of the first.
        for options, files, steps in RUNS:
            for step in range(1, steps + 1):
                with self.subTest(options=options, step=step):
                    self.start_with(files)
                    words = " ".join(f"{name} 'other {name}'" for name in NAMES)
                    second = (f"{shlex.quote(PROGRAM)} many {' '.join(options)} {words} 2>{self.scratch}/errors; "
                              f"echo $? >{self.scratch}/status")
                    status, errors = self.at(step, second, *options)
                    with open(self.scratch + "/status", encoding="ascii") as other:
                        results = (status, int(other.read()))
                    with open(self.scratch + "/errors", "rb") as other:
                        messages = errors + other.read()
                    self.check_one_won(results, messages, bool(options))

    def check_one_won(self, results, messages, force):
        self.assertIn(results, [(0, 1), (1, 0), (0, 0)])
        self.assertEqual(NEW if results[0] == 0 else OTHER, self.contents())
        if results == (0, 0):
            # The second ended before the first began, or began after the first had finished.
            self.assertEqual((True, b""), (force, messages))
        else:
            self.assertRegex(messages, rb"^[abc](\.unfinished|\.replaced)? exists already.*\n$")

    def test_own_files_that_disappear(self):
        # A run that fails removes only files that it has created itself.
        for step, deed, message, kept in [
            ("open 3", "rm b.unfinished", b"b.unfinished was removed or replaced meanwhile", "precious"),
            ("open 3", "mv precious b.unfinished", b"b.unfinished was removed or replaced meanwhile", "b.unfinished"),
            ("renameat2 1", "mv precious c.unfinished; touch c", b"c exists already", "c.unfinished"),
            ("renameat2 2", "touch b && mv precious c", b"b exists already", "c"),
        ]:
            with self.subTest(deed):
                self.start_with({"precious": b"precious"})
                self.assertEqual((1, message + b"\n"), self.at(step, deed))
                self.assertEqual({kept: b"precious"}, {name: data for name, data in self.contents().items() if data})

    def test_only_the_own_old_file_is_taken_back(self):
        self.start_with({"precious": b"precious", **OLD})
        self.assertEqual(1, self.at("renameat2 2", "mv precious c.replaced; rm c.unfinished", "-f")[0])
        self.assertEqual({"a": b"old a", "b": b"old b", "c.replaced": b"precious"}, self.contents())

    def test_only_the_own_old_file_is_removed(self):
        self.start_with({"precious": b"precious", **OLD})
        self.assertEqual((0, b""), self.at("fsync 4", "mv precious b.replaced", "-f"))
        self.assertEqual({**NEW, "b.replaced": b"precious"}, self.contents())

    def test_signals(self):
        # A signal counts until the first name is given.
        for options, files, steps in RUNS:
            for step in range(1, steps + 1):
                with self.subTest(options=options, step=step):
                    self.start_with(files)
                    result = self.at(step, "kill -TERM $PPID", *options)
                    if step <= len(WRITTEN):
                        self.assertEqual(((-15, b"interrupted\n"), files), (result, self.contents()))
                    else:
                        self.assertEqual(((0, b""), NEW), (result, self.contents()))

    def test_messages(self):
        for options, step, deed, message in [
            ([], "open 2", "touch b.unfinished", b"b.unfinished exists already; remove it unless another run is writing it"),
            ([], "renameat2 2", "touch b", b"b exists already; -f overwrites it"),
            ([], "open 2", "touch b", b"b exists already; -f overwrites it"),
            # The names are checked again before a file is written, and before the next one is created.
            ([], "open 1", "touch a b.unfinished", b"a exists already; -f overwrites it"),
            (["-f"], "open 1", "touch a.replaced b.unfinished", b"a.replaced exists already; move it away first"),
            ([], "fsync 2", "fail", b"cannot write b: Input/output error"),
            ([], "close 2", "once", b"cannot write b: Input/output error"),
            (["-f"], "renameat2 1", "touch c.replaced", b"c.replaced exists already; move it away first"),
            (["-f"], "renameat2 1", "rm c && mkdir c", b"c.replaced is a directory"),
            (["-f"], "renameat2 2", "touch c", b"c exists already; another program created it meanwhile; "
             b"the file before is now called c.replaced"),
            (["-f"], "renameat2 1", "fail", b"cannot rename c: Input/output error"),
            (["-f"], "renameat2 2", "fail", b"cannot rename c.unfinished: Input/output error; "
             b"the file before is now called c.replaced"),
            (["-f"], "renameat2 4", "fail", b"cannot rename b.unfinished: Input/output error; "
             b"the file before is now called c.replaced"),
            (["-f"], "fsync 4", "fail", b"cannot remove a.replaced: Input/output error"),
            # The folder cannot be opened.
            (["-f"], "renameat2 6", "prlimit --pid $PPID --nofile=3:3", b"cannot remove a.replaced: Too many open files"),
            (["-f"], "unlink 1", "fail", b"cannot remove a.replaced: Input/output error"),
        ]:
            with self.subTest(step=step, deed=deed):
                self.start_with(OLD if options else {})
                self.assertEqual((1, message + b"\n"), self.at(step, deed, "-a", *options))

    def test_failure_without_old_files(self):
        self.start_with({})
        self.assertEqual((1, b"cannot rename c.unfinished: Input/output error\n"), self.at("renameat2 2", "fail", "-f"))
        self.assertEqual({}, self.contents())

    def test_files_that_cannot_be_synchronised(self):
        for options, files, _ in RUNS:
            self.start_with(files)
            self.assertEqual((0, b"", NEW), (*self.at("fsync 1", "refuse", *options), self.contents()))

    def test_other_file_systems(self):
        # Without a rename that never replaces, and without links too. Names in use are still refused.
        for reasons in [(errno.EINVAL, 0, 0), (errno.ENOSYS, errno.EPERM, 0), (errno.EINVAL, errno.EOPNOTSUPP, 0),
                        (errno.EINVAL, errno.ENOSYS, 0)]:
            for options, files, _ in RUNS:
                self.start_with(files)
                self.assertEqual((0, b""), self.at("%d %d %d" % reasons, "forbid", *options))
                self.assertEqual(NEW, self.contents())
            # The name comes into use when all names have been checked.
            self.start_with({"a": b"old"})
            self.assertEqual((1, b"", b"a.replaced exists already; move it away first\n"),
                             self.tool("many", "-f", "a", "A", "a.replaced", "R", env=self.doing("forbid", "%d %d %d" % reasons)))
            self.assertEqual({"a": b"old"}, self.contents())
        for reasons in [(errno.EINVAL, errno.EIO, 0, 0), (errno.EINVAL, errno.EPERM, errno.EIO, 0), (errno.EIO, 0, 0, 0),
                        (errno.EINVAL, 0, 0, errno.EIO)]:
            for options, files, _ in RUNS:
                self.start_with(files)
                status, errors = self.at("%d %d %d %d" % reasons, "forbid", *options)
                self.assertRegex(errors, rb"^cannot rename c(\.unfinished)?: Input/output error\n$")
                self.assertEqual((1, files), (status, self.contents()))

    def test_descriptors_are_closed(self):
        # Those of placeholders and of folders too.
        words = []
        for number in range(20):
            (self.folder / str(number)).mkdir()
            self.write(f"{number}/a", b"old")
            words += [f"{number}/a", "new"]
        done = subprocess.run(["sh", "-c", 'ulimit -n 12; exec "$0" many -f "$@"', PROGRAM, *words], cwd=self.folder, timeout=60,
                              env=self.doing("forbid", f"{errno.EINVAL} {errno.EPERM} 0"), stderr=subprocess.PIPE, check=False)
        self.assertEqual((0, b""), (done.returncode, done.stderr))

    def test_file_without_a_free_descriptor(self):
        # A sanitizer's start-up needs more descriptors, so this is no test of new_files_test.py.
        def close_the_input():
            os.close(0)
            resource.setrlimit(resource.RLIMIT_NOFILE, (3, 3))
        self.assertEqual((1, b"", b"cannot create a.unfinished: Invalid argument\n"),
                         self.tool("one", "a", "text", preexec_fn=close_the_input))
        self.assertEqual({}, self.contents())

    def test_mask_of_new_files_is_kept(self):
        environment = self.doing(f"umask >{self.scratch}/seen", "renameat2 1")
        self.assertEqual(0, self.tool("one", "a", "new", env=environment, preexec_fn=lambda: os.umask(0o027))[0])
        self.assertEqual(["0027"], self.seen())

    def test_permissions_that_cannot_be_set(self):
        self.start_with({})
        self.assertEqual((0, b""), self.at("fchmod 1", "fail"))
        self.assertEqual([0o600] * 3, [(self.folder / name).stat().st_mode & 0o777 for name in NAMES])


if __name__ == "__main__":
    unittest.main()
