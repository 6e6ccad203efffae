"""The files that the fragment tool writes while other programs change the same folder, or while the process is killed.

Set KELPLIB_PAIRS to run more pairs of
tools at the same time.
"""

import collections
import os
import re
import stat
import subprocess
import tempfile
import unittest

import programs
from example_tool import PROGRAM, ToolTestCase, native_only, preloaded, pseudo_random

needs_steps = unittest.skipUnless("KELPLIB_AT_STEP" in os.environ, "this build cannot load at_step.c into the tool")

NEW = {"in": b"1234", "q_.count": b"fragments: 2\nbytes: 4\n", "q_0": b"12", "q_1": b"34"}
OLD = {"in": b"1234", "q_.count": b"old count", "q_0": b"old 0", "q_1": b"old 1"}
NAMES = ["q_.count", "q_0", "q_1"]
CUT = ["-n=2", "-o=q_", "in"]

# The number of calls that create, rename, synchronise or remove files. A cut into 3 files creates, synchronises and renames each.
# With -f it also renames 3 old files before, synchronises the folder, and removes the old files.
STEPS = 3 + 3 + 3
STEPS_WITH_FORCE = 3 + 3 + 2 * 3 + 1 + 3


class StepTestCase(ToolTestCase):
    def setUp(self):
        super().setUp()
        shims = tempfile.TemporaryDirectory()
        self.addCleanup(shims.cleanup)
        self.shims = shims.name

    def start_with(self, files):
        for name in self.contents():
            (self.folder / name).unlink()
        for name, data in files.items():
            self.write(name, data)

    def run_at(self, step, deed, *arguments):
        """Runs the tool and does the deed right before one of its steps; see at_step.c."""
        with tempfile.TemporaryDirectory(dir=self.shims) as folder:
            return self.tool(*arguments,
                             env=preloaded("KELPLIB_AT_STEP", folder, KELPLIB_STEP=str(step), KELPLIB_DEED=deed))

    def cut_at(self, step, deed, *options):
        return self.run_at(step, deed, *options, *CUT)

    def names_at(self, step, *options):
        """Returns the names in the folder right before a step of a cut."""
        self.assertEqual(0, self.cut_at(step, f"ls >{self.shims}/seen", *options)[0])
        with open(f"{self.shims}/seen", encoding="ascii") as seen:
            return seen.read().split()

    def check_kept(self, before, after, errors):
        """Checks that every old file still has its name, or another name that the tool prints."""
        for name, data in before.items():
            if after.get(name) != data:
                self.assertEqual(data, after.get(name + ".replaced"))
                self.assertRegex(errors, rb"; the file before is now called <here>/q_\S+\.replaced\n$")


@needs_steps
class StepTest(StepTestCase):
    def test_numbers_of_steps(self):
        for options, files, steps in [([], {"in": b"1234"}, STEPS), (["-f"], OLD, STEPS_WITH_FORCE)]:
            for step, result in [(steps, -9), (steps + 1, 0)]:
                self.start_with(files)
                self.assertEqual(result, self.cut_at(step, "kill", *options)[0])

    def test_foreign_files_at_every_step(self):
        # ln fails if the name is in use.
        for options, files, steps in [([], {"in": b"1234"}, STEPS), (["-f"], OLD, STEPS_WITH_FORCE)]:
            for step in range(1, steps + 1):
                for planted in [name + end for name in NAMES for end in ("", ".unfinished", ".replaced")]:
                    with self.subTest(options=options, step=step, planted=planted):
                        self.start_with({"precious": b"precious", **files})
                        before = self.contents()
                        result = self.cut_at(step, f"ln precious {planted} && touch done; true", *options)
                        self.check_planted(result, before, planted, bool(options))

    def check_planted(self, result, before, planted, force):
        status, _, errors = result
        after = self.contents()
        if after.pop("done", None) is None:
            self.assertEqual((0, NEW), (status, {name: data for name, data in after.items() if name != "precious"}))
        elif status == 0:
            # With -f a file that appears before its name is checked is replaced like any old file.
            found = {name: data for name, data in after.items() if name not in ("precious", planted)}
            self.assertEqual({name: data for name, data in NEW.items() if name != planted}, found)
            self.assertIn(after[planted], [b"precious", NEW[planted]] if force and planted in NEW else [b"precious"])
        else:
            self.assertEqual(1, status)
            self.check_kept({**before, planted: b"precious"}, after, errors)
            self.assertEqual([], [name for name in after.keys() - before.keys() - {planted}
                                  if not name.endswith(".replaced") or after[name] != before[name.removesuffix(".replaced")]])

    def test_links_at_every_step(self):
        for step in range(1, STEPS + 1):
            for planted in [name + end for name in NAMES for end in ("", ".unfinished")]:
                with self.subTest(step=step, planted=planted):
                    self.start_with({"in": b"1234", "victim": b"precious"})
                    self.cut_at(step, f"ln -s victim {planted}; true")
                    self.assertEqual(b"precious", self.contents()["victim"])

    def test_folder_instead_of_an_old_file(self):
        self.start_with(OLD)
        status, _, errors = self.cut_at("renameat2 1", "rm q_1 && mkdir q_1", "-f")
        self.assertEqual((1, b"fragment: <here>/q_1.replaced is a directory\n"), (status, errors))
        self.assertEqual({**OLD, "q_1": None}, self.contents())
        os.rmdir(self.folder / "q_1")

    def test_messages(self):
        for options, files, step, deed, message in [
            ([], {"in": b"1234"}, "open 2", "touch q_0.unfinished",
             b"<here>/q_0.unfinished exists already; remove it unless another run is writing it"),
            ([], {"in": b"1234"}, "renameat2 2", "touch q_0", b"<here>/q_0 exists already; -f overwrites it"),
            ([], {"in": b"1234"}, "open 2", "touch q_0", b"<here>/q_0 exists already; -f overwrites it"),
            ([], {"in": b"1234"}, "open 3", "rm q_0.unfinished",
             b"<here>/q_0.unfinished was removed or replaced meanwhile"),
            ([], {"in": b"1234"}, "open 3", "touch x && mv x q_0.unfinished",
             b"<here>/q_0.unfinished was removed or replaced meanwhile"),
            ([], {"in": b"1234"}, "open 1", "touch q_2",
             b"<here>/q_2 belongs to another cut; remove it and the fragments after it "
             b"(-f replaces only fragments of the new cut)"),
            (["-f"], OLD, "renameat2 1", "touch q_1.replaced", b"<here>/q_1.replaced exists already; move it away first"),
            (["-f"], OLD, "renameat2 2", "touch q_1",
             b"<here>/q_1 exists already; another program created it meanwhile; "
             b"the file before is now called <here>/q_1.replaced"),
            (["-f"], OLD, "renameat2 1", "fail", b"cannot rename <here>/q_1: Input/output error"),
            (["-f"], OLD, "renameat2 2", "fail", b"cannot rename <here>/q_1.unfinished: Input/output error; "
             b"the file before is now called <here>/q_1.replaced"),
            (["-f"], OLD, "renameat2 4", "fail", b"cannot rename <here>/q_0.unfinished: Input/output error; "
             b"the file before is now called <here>/q_1.replaced"),
            (["-f"], OLD, "fsync 2", "fail", b"cannot write <here>/q_0: Input/output error"),
            (["-f"], OLD, "fsync 4", "fail", b"cannot remove <here>/q_.count.replaced: Input/output error"),
            (["-f"], OLD, "unlink 1", "fail", b"cannot remove <here>/q_.count.replaced: Input/output error"),
        ]:
            with self.subTest(step=step, deed=deed):
                self.start_with(files)
                self.assertEqual((1, b"", b"fragment: " + message + b"\n"), self.cut_at(step, deed, *options))

    def test_failures_at_every_step(self):
        for step in range(1, STEPS_WITH_FORCE + 1):
            with self.subTest(step=step):
                self.start_with(OLD)
                status, output, errors = self.cut_at(step, "fail", "-f")
                self.assertEqual((1, b""), (status, output))
                after = self.contents()
                self.check_nothing_lost(after)
                for name in after:
                    if name.endswith(".replaced"):
                        self.assertRegex(errors, rb" <here>/q_\S+\.replaced")

    def test_killed_at_every_step(self):
        for step in range(1, STEPS_WITH_FORCE + 1):
            with self.subTest(step=step):
                self.start_with(OLD)
                self.assertEqual(-9, self.cut_at(step, "kill", "-f")[0])
                left = self.contents()
                self.check_nothing_lost(left)
                self.check_next_run(left, step)

    def check_nothing_lost(self, found):
        """Checks that every old file exists, unless all new files do."""
        if {name: found.get(name) for name in NEW} != NEW:
            for name, data in OLD.items():
                self.assertIn(data, (found.get(name), found.get(name + ".replaced")))

    def check_next_run(self, left, step):
        """Checks that the next run succeeds if the killed run left nothing, and otherwise names a file that it left."""
        status, _, errors = self.tool("-f", *CUT)
        if step == 1:
            self.assertEqual((0, NEW), (status, self.contents()))
        else:
            named = re.fullmatch(rb"fragment: <here>/(q_\S+\.(?:unfinished|replaced)) exists already; .*\n", errors)
            self.assertIn(named[1].decode(), left)
            self.assertEqual((1, left), (status, self.contents()))
            self.tool("-j", "-o=out", "q_0")
            self.assertNotIn("out", self.contents())

    def test_file_system_without_renaming_that_never_replaces(self):
        for options, files in [([], {"in": b"1234"}), (["-f"], OLD)]:
            self.start_with(files)
            self.assertEqual((0, b""), self.cut_at("renameat2 1", "refuse", *options)[::2])
            self.assertEqual(NEW, self.contents())

    def test_synchronised_before_old_files_are_removed(self):
        # New files are synchronised while the old files have their names, the folder while the old files exist.
        for step, left in [
            ("fsync 1", [*OLD, "q_.count.unfinished"]),
            ("fsync 3", [*OLD, *(name + ".unfinished" for name in NAMES)]),
            ("fsync 4", [*OLD, *(name + ".replaced" for name in NAMES)]),
        ]:
            self.start_with(OLD)
            self.assertEqual(sorted(left), sorted(self.names_at(step, "-f")))

    def test_order_of_names(self):
        # The first file is created first and gets its name last.
        for step, left in [
            ("open 2", ["in", "q_.count.unfinished"]),
            ("open 3", ["in", "q_.count.unfinished", "q_0.unfinished"]),
            ("renameat2 2", ["in", "q_.count.unfinished", "q_0.unfinished", "q_1"]),
            ("renameat2 3", ["in", "q_.count.unfinished", "q_0", "q_1"]),
        ]:
            self.start_with({"in": b"1234"})
            self.assertEqual(left, sorted(self.names_at(step)))

    def test_name_in_use_before_its_file_is_started(self):
        # The second fragment is not started.
        self.start_with({"in": b"1234"})
        self.assertEqual((1, b"<here>/q_0: 2 bytes\n", b"fragment: <here>/q_0 exists already; -f overwrites it\n"),
                         self.cut_at("open 2", "touch q_0", "-v"))

    def test_foreign_files_instead_of_own_ones(self):
        # A run that fails only removes files that it has created itself.
        for step, deed in [("open 3", "mv precious q_0.unfinished"), ("renameat2 2", "touch q_0 && mv precious q_1")]:
            with self.subTest(step):
                self.start_with({"in": b"1234", "precious": b"precious"})
                self.assertEqual(1, self.cut_at(step, deed)[0])
                taken = deed.split()[-1]
                self.assertEqual({"in": b"1234", taken: b"precious"},
                                 {name: data for name, data in self.contents().items() if data})

    def test_join_of_fragments_that_change(self):
        new = {"in": b"5678", **{name: data for name, data in NEW.items() if name != "in"}}
        for deed, problem in [
            ("cp q_0 x && mv x q_0", b"the fragments were replaced while they were read"),
            ("cp q_1 x && mv x q_1", b"the fragments were replaced while they were read"),
            ("touch q_1.unfinished", b"q_1.unfinished belongs to a run that is in progress or was interrupted; "
             b"the fragments may come from different cuts"),
            ("touch q_.count.unfinished", b"q_.count.unfinished belongs to a run that is in progress or was interrupted; "
             b"the fragments may come from different cuts"),
            ("touch q_2", b"q_2 belongs to another cut; q_.count counts 2 fragments"),
            ("touch q_2; rm q_.count", b"the fragments were replaced while they were read"),
        ]:
            with self.subTest(deed):
                self.start_with(new)
                self.assertEqual((1, b"", b"fragment: " + problem + b"\n"),
                                 self.run_at("open 1", deed, "-j", "-o=out", "q_0"))
                self.assertNotIn("out", self.contents())


@native_only
class PermissionTest(StepTestCase):
    def mode(self, name):
        return stat.S_IMODE((self.folder / name).stat().st_mode)

    def test_permissions_of_new_files(self):
        for mask in (0o022, 0o077, 0o002, 0):
            self.start_with({"in": b"1234"})
            self.assertEqual(0, self.tool(*CUT, preexec_fn=lambda mask=mask: os.umask(mask))[0])
            self.assertEqual([0o666 & ~mask] * 3, [self.mode(name) for name in NAMES])

    def test_permissions_of_overwritten_files(self):
        # A set-user-ID or set-group-ID bit would let a program run with the rights of its new owner.
        for before, after in [(0o600, 0o600), (0o644, 0o644), (0o755, 0o755), (0o4755, 0o755), (0o2755, 0o755), (0o1644, 0o644),
                              (0o6777, 0o777), (0o400, 0o400)]:
            with self.subTest(oct(before)):
                self.start_with(OLD)
                (self.folder / "q_0").chmod(before)
                self.assertEqual(before, self.mode("q_0"))
                self.assertEqual(0, self.tool("-f", *CUT)[0])
                self.assertEqual(after, self.mode("q_0"))

    @unittest.skipUnless(not programs.ON_WINDOWS and os.geteuid() == 0, "only root gives files to any group")
    def test_overwritten_file_of_another_group(self):
        for before, after in [(0o640, 0o600), (0o664, 0o644), (0o670, 0o600), (0o677, 0o677)]:
            with self.subTest(oct(before)):
                self.start_with(OLD)
                os.chown(self.folder / "q_0", -1, os.getegid() + 4711)
                (self.folder / "q_0").chmod(before)
                self.assertEqual(0, self.tool("-f", *CUT)[0])
                self.assertEqual(after, self.mode("q_0"))

    def test_unfinished_files_are_private(self):
        # The tool blocks in its trace output, which does not fit into the pipe, after it has started the first fragment.
        self.write("in", pseudo_random(100))
        base = "./" * 1000 + "q_"
        with subprocess.Popen([PROGRAM, "-v", "-n=100", "-o=" + base, "in"], cwd=self.folder, bufsize=0, pipesize=4096,
                              preexec_fn=lambda: os.umask(0), stdin=subprocess.DEVNULL, stdout=subprocess.PIPE) as tool:
            tool.stdout.read(2100)
            # Before it blocks, it may have finished a file and not yet created the next one.
            modes = set()
            while 0o600 not in modes:
                self.assertIsNone(tool.poll())
                modes = {self.mode(name) for name in self.contents() if name.endswith(".unfinished")}
            tool.kill()
            tool.stdout.read()
        self.assertLessEqual(modes, {0o600, 0o666})


class ConcurrentTest(ToolTestCase):
    """Pairs of runs that start at the same time. They leave the files that one of them alone would leave."""

    PAIRS = int(os.environ.get("KELPLIB_PAIRS", 6 if programs.ON_WINDOWS else 60))
    REFUSAL = re.compile(rb"fragment: (<here>/)?(?:\S+ exists already; .*|\S+ belongs to .*|.* replaced while .*|"
                       rb".* changed while it was read|\S+ is missing; .*|"
                       rb"the fragments have .*|cannot read .*|\S+ was removed or replaced meanwhile|\S+ is missing)\n")

    def setUp(self):
        super().setUp()
        self.data = {"A": b"A" * 70001, "Z": b"Z" * 90001}
        self.refusals = collections.Counter()
        for name, data in self.data.items():
            self.write(name, data)

    def run_both(self, *lines):
        tools = [subprocess.Popen(programs.command(PROGRAM, *line), cwd=self.folder, stdin=subprocess.DEVNULL,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE) for line in lines]
        results = []
        for tool in tools:
            _, errors = tool.communicate(timeout=60)
            results.append(tool.returncode)
            if tool.returncode != 0:
                errors = self.without_folder(programs.plain_line_ends(errors))
                self.assertRegex(errors, self.REFUSAL)
                self.refusals[re.sub(rb"[0-9]+", b"N", errors)] += 1
        return results

    def pieces(self, name, count):
        """Returns the files of a cut in the form of clear()."""
        size, longer = divmod(len(self.data[name]), count)
        width = len(str(count - 1))
        return {"q_.count": f"fragments: {count}\nbytes: {len(self.data[name])}\n",
                **{f"q_{index:0{width}}": f"{size + (index < longer)} {name}" for index in range(count)}}

    def clear(self):
        """Removes the files that the tools have written. Returns the length and the letter of each file, or its text."""
        found = {}
        for name, data in self.contents().items():
            if name not in self.data:
                (self.folder / name).unlink()
                letters = "".join(letter for letter in "AZ" if letter.encode() in data)
                found[name] = f"{len(data)} {letters}" if letters else data.decode()
        return found

    def test_cuts(self):
        for pair in range(self.PAIRS):
            counts = {"A": 3 + pair % 40, "Z": 3 + pair * 7 % 40 if pair % 2 else 3 + pair % 40}
            with self.subTest(counts=counts):
                results = self.run_both(*([f"-n={counts[name]}", "-o=q_", name] for name in "AZ"))
                self.assertEqual([0, 1], sorted(results))
                winner = "AZ"[results.index(0)]
                self.assertEqual(self.pieces(winner, counts[winner]), self.clear())

    def test_overwriting_cuts(self):
        for pair in range(self.PAIRS):
            counts = {"A": 11 + pair % 10, "Z": 11 + pair * 7 % 10}
            with self.subTest(counts=counts):
                self.assertEqual(0, self.tool("-n=11", "-o=q_", "Z")[0])
                results = self.run_both(*(["-f", f"-n={counts[name]}", "-o=q_", name] for name in "AZ"))
                self.assertIn(0, results)
                self.assertIn(self.clear(), [self.pieces(name, counts[name])
                                             for name, result in zip("AZ", results) if result == 0])

    def test_join_during_a_replacing_cut(self):
        for pair in range(self.PAIRS):
            before, after = 11 + pair % 10, 11 + pair * 7 % 10 if pair % 2 else 11 + pair % 10
            with self.subTest(before=before, after=after):
                self.assertEqual(0, self.tool(f"-n={before}", "-o=q_", "A")[0])
                joined = self.run_both(["-f", f"-n={after}", "-o=q_", "Z"], ["-j", "-o=out", "q_00"])[1]
                self.assertIn(self.clear().get("out"), ["70001 A", "90001 Z"] if joined == 0 else [None])

    def test_joins(self):
        for pair in range(self.PAIRS):
            with self.subTest(pair):
                force = ["-f"] if pair % 2 else []
                results = self.run_both(*(["-j", *force, "-o=out", name, name] for name in "AZ"))
                self.assertIn(0, results)
                self.assertIn(self.clear(), [{"out": f"{2 * len(self.data[name])} {name}"}
                                             for name, result in zip("AZ", results) if result == 0])

    def tearDown(self):
        if "KELPLIB_PAIRS" in os.environ:
            print(f"{self.id()}: {self.PAIRS} pairs, runs refused:", *self.refusals.most_common(), sep="\n    ")


if __name__ == "__main__":
    unittest.main()
