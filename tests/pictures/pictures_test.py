#!/usr/bin/env python3
"""Checks that the tools still print what the pictures in the documentation show: pictures_test.py PICTURES TOOLS

PICTURES is the folder of the recordings, TOOLS the folder of the built tools. scripts/pictures renews the pictures.
"""

import contextlib
import hashlib
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest

import pty_output
import recordings
import typed_shell

TOOLS = pathlib.Path(sys.argv.pop()).resolve()
PICTURES = pathlib.Path(sys.argv.pop()).resolve()
NAMES = ("bar", "face", "help", "tab")

# Files for the tools. Their contents do not change any frame. The bars are 30 and 37 characters wide; a size that is not a
# multiple of either gives each bar its full width.
FILES = {"archive.tar": 1_000_001, "text": 200_000_001}

# A fast machine would finish before a frame is due. So each run is stopped repeatedly while its clock continues.
HOLDS, RUN_SECONDS, HOLD_SECONDS = 60, 0.01, 0.05

BIGGEST_PICTURE = 150_000


def hold_up(process):
    """Stops the process and its children repeatedly, for a moment each time."""
    for _ in range(HOLDS):
        time.sleep(RUN_SECONDS)
        if process.poll() is not None:
            return
        for number in (signal.SIGSTOP, signal.SIGCONT):
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, number)
            time.sleep(HOLD_SECONDS if number == signal.SIGSTOP else 0)


def run_again(recording):
    """Runs the recorded command in a terminal of the same size. Returns its output."""
    settings = {name: value for name, value in os.environ.items() if name != "MSYSTEM"}
    settings["PATH"] = f"{TOOLS}{os.pathsep}{settings['PATH']}"
    with tempfile.TemporaryDirectory() as folder:
        for name, size in FILES.items():
            with open(os.path.join(folder, name), "wb") as file:
                file.truncate(size)
        _, output, _ = pty_output.written_to_terminal(
            ["sh", "-c", f'PS4="$ "; set -x; {recording.command}'], recording.columns, recording.rows, cwd=folder,
            env=settings, stderr=subprocess.STDOUT, start_new_session=True,
            started=lambda process: threading.Thread(target=hold_up, args=[process]).start())
    return output.decode()


def recorded(name):
    return recordings.Recording(PICTURES / f"{name}.cast")


def screens_of(recording, output=None):
    # Wide, so that no line wraps: where the last one does depends on the number of bytes.
    return recordings.screens(recording.output if output is None else output, 200, recording.rows)


class Pictures(unittest.TestCase):
    maxDiff = None

    def test_recordings_show_nothing_of_the_machine(self):
        for name in NAMES:
            with self.subTest(name):
                self.assertEqual(sorted(recorded(name).header), ["height", "title", "version", "width"])
                self.assertEqual(recorded(name).pause, "\r")
                for suffix in (".cast", ".svg"):
                    text = (PICTURES / name).with_suffix(suffix).read_text(encoding="utf-8")
                    self.assertNotRegex(text, r"/(?:tmp|home|root|work|var|usr)/")

    def test_pictures_belong_to_their_recordings(self):
        lines = (PICTURES / "SHA256SUMS").read_text(encoding="utf-8").splitlines()
        files = sorted(path for path in PICTURES.iterdir() if path.suffix in (".cast", ".svg"))
        self.assertEqual([path.name for path in files], [f"{name}.{kind}" for name in NAMES for kind in ("cast", "svg")])
        self.assertEqual(lines, [f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {path.name}" for path in files])

    def test_pictures_without_motion_show_the_end(self):
        for name in NAMES:
            with self.subTest(name):
                picture = (PICTURES / f"{name}.svg").read_text(encoding="utf-8")
                ends = re.findall(r"to[{](transform:translateX[(]-\d+px[)])[}]", picture)
                self.assertEqual(len(ends), 0 if name == "help" else 1)
                for end in ends:
                    self.assertIn(f"@keyframes e{{0%{{{end}}}", picture)
                    self.assertIn(f'class="moving" style="{end};animation-', picture)
                    self.assertIn("@media print,(prefers-reduced-motion:reduce){.moving{animation:none!important}}", picture)

    def test_pictures_are_small(self):
        for path in PICTURES.glob("*.svg"):
            with self.subTest(path.name):
                self.assertLessEqual(path.stat().st_size, BIGGEST_PICTURE)

    def test_help_screen_is_the_same_byte_for_byte(self):
        recording = recorded("help")
        self.assertEqual(recording.output, run_again(recording))

    @unittest.skipUnless(shutil.which("zsh"), "zsh is not installed")
    def test_tab_completes_the_same_words(self):
        recording = recorded("tab")
        again = typed_shell.typed(TOOLS, next(TOOLS.parent.glob("examples/documents/share/zsh/*/_convert")).parent)
        shown = [recordings.display(text, recording.columns, recording.rows)
                 for text in (recording.output, "".join(text for _, text in again))]
        self.assertEqual(shown[0], shown[1])

    def test_progress_is_drawn_the_same_way(self):
        for name in ("bar", "face"):
            with self.subTest(name):
                recording = recorded(name)
                again = screens_of(recording, run_again(recording))
                self.assertEqual("\n".join(recordings.differences(screens_of(recording), again)), "")
                self.assertTrue(any(look.unfinished for look in again), "no frame was drawn")


class Recordings(unittest.TestCase):
    """What the pictures show."""

    def test_face_goes_through_all_expressions(self):
        looks = [look.shape.split("\n") for look in screens_of(recorded("face")) if not look.blinks()]
        frames = recordings.without_repeats((rows[3], rows[5]) for rows in looks if "_____" in rows[1])
        frown, flat, smile = "   \\  / \\  /", "   \\  ---  /", "   \\  \\_/  /"
        self.assertEqual(frames, [
            ("   /  * *  \\", frown), ("   /  * *  \\", flat), ("   /  . .  \\", flat), ("   /  . .  \\", smile),
            ("   /  o o  \\", smile), ("   /  * *  \\", smile),
            ("   /  ^ ^  \\", smile), ("   /  _ _  \\", smile), ("   /  ^ ^  \\", smile)])


    def test_tab_shows_choices_and_options(self):
        recording = recorded("tab")
        self.assertIn("cm  ft  in  km  m   mi  mm  yd", re.sub(r"\x1b\[\d*[A-Za-z]", "", recording.output))
        self.assertEqual(recordings.display(recording.output, recording.columns, recording.rows), [
            "$ convert --from=ft heights.txt -",
            "--from=    -f=  -- the unit of FILE: mm, cm, m, km, in, ft",
            "--help     -h   -- shows this help",
            "--output=  -o=  -- writes the numbers to this file, one a",
            "--to=      -t=  -- the unit to convert into (default: m)",
            ""])


class Comparison(unittest.TestCase):
    """The comparison notices changed texts and nothing else."""

    def check(self, changes, noticed):
        for name, old, new in changes:
            with self.subTest(f"{name}: {old!r} becomes {new!r}"):
                recording = recorded(name)
                self.assertIn(old, recording.output)
                changed = screens_of(recording, recording.output.replace(old, new))
                self.assertEqual(recordings.differences(screens_of(recording), changed) != [], noticed)

    def test_changed_texts_are_noticed(self):
        self.check([
            ("bar", "time left", "time to go"), ("bar", "time left: ", "time left:"), ("bar", "done in", "done after"),
            ("bar", "#", "="), ("bar", "|", "]"), ("bar", "% #", "% ##"), ("bar", " secs", " s"),
            ("bar", "outside ASCII: 0", "outside ASCII: 1"), ("bar", "$ flat", "$ ./flat"),
            ("bar", "text ", "text: "), ("face", "remaining", "left"), ("face", "spent: ", "spent:"),
            ("face", "cutting", "Cutting"), ("face", "/  * *", "/  o o"), ("face", "---", "-_-"), ("face", "_ _", "- -"),
            ("face", "> \\   / <", ">       <"), ("face", "fragments: 1000", "fragments: 999"),
            ("face", "   >   _   <", "   >       <"), ("face", "\x1b[6A", "\x1b[5A"), ("face", " secs", " sec"),
        ], True)

    def test_other_times_are_not_noticed(self):
        self.check([
            ("bar", " secs  ", " hours "), ("bar", "left: ", "left: 1"), ("bar", "done in: ", "done in: 1"),
            ("face", " secs ", " hours"), ("face", "remaining: ", "remaining: 1"), ("face", "spent:  ", "spent:  1"),
            ("face", "bytes: ", "bytes: 1"),
        ], False)

    def test_other_frames_are_not_noticed(self):
        for name in ("bar", "face"):
            looks = screens_of(recorded(name))
            halved = [look for number, look in enumerate(looks) if number % 2 or look.blinks() or not look.unfinished
                      or looks[number - 1].blinks()]
            self.assertLess(len(halved), len(looks))
            self.assertEqual(recordings.differences(looks, halved), [], name)

    def test_other_boundaries_are_noticed(self):
        for name, factor in (("face", 1.1), ("face", 0.9), ("bar", 1.1), ("bar", 0.9)):
            with self.subTest(f"{name}: {factor}"):
                looks, moved = screens_of(recorded(name)), screens_of(recorded(name))
                for look in moved:
                    look.percentage *= factor
                self.assertNotEqual(recordings.differences(looks, moved), [])


if __name__ == "__main__":
    unittest.main()
