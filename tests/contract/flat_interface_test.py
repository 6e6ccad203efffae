#!/usr/bin/env python3
"""Drives every function of the flat interface from Python: flat_interface_test.py LIBRARY

Each case runs in a separate Python process, because the library writes to the process's standard output and a negative value
ends the process. Under an emulator there is no Python that could load the library; there the C example is the test.
"""

import ctypes
import os
import subprocess
import sys
import unittest

LIBRARY = sys.argv.pop(1)

PREAMBLE = """
import ctypes, os, sys
library = ctypes.CDLL(sys.argv[1])

class GlobalProgress(ctypes.Structure):
    _fields_ = [("total", ctypes.c_double), ("width", ctypes.c_int), ("text", ctypes.c_char * 128),
                ("start_time", ctypes.c_double), ("last_blink", ctypes.c_double), ("smile", ctypes.c_int),
                ("terminal_env", ctypes.c_char_p)]

data = GlobalProgress.in_dll(library, "KELP_GlobalProgress")
for name, result, *arguments in [
        ("KELP_progress", ctypes.c_int, ctypes.c_double, ctypes.c_double, ctypes.c_int, ctypes.c_char_p, ctypes.c_double),
        ("KELP_time_stamp", ctypes.c_double), ("KELP_sleep", None, ctypes.c_uint),
        ("KELP_rewind_cursor", ctypes.c_int, ctypes.c_uint),
        ("KELP_progress_global_init", ctypes.c_int, ctypes.c_double, ctypes.c_int, ctypes.c_char_p, ctypes.c_int),
        ("KELP_progress_global_set_text", None, ctypes.c_char_p, ctypes.c_size_t),
        ("KELP_progress_global", ctypes.c_int, ctypes.c_double), ("KELP_progress_smile", ctypes.c_int, ctypes.c_double)]:
    function = getattr(library, name)
    function.restype, function.argtypes = result, arguments
    globals()[name] = function

def show(*values):
    print(*values, file=sys.stderr)
"""

FACE = (b"     _____\n    /     \\         face\n   /  %s  \\\n   > %s <%s\n   \\  %s  /\n"
        b"    \\_____/         time %s\n")


def run(code, **environment):
    """Runs code in a new Python process. Returns its exit status, its standard output and its standard error."""
    clean = {name: value for name, value in os.environ.items() if name not in ("MSYSTEM", "PYTHONUNBUFFERED")}
    done = subprocess.run([sys.executable, "-c", PREAMBLE + code, LIBRARY], stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, stdin=subprocess.DEVNULL, env={**clean, **environment}, timeout=60,
                          check=False)
    return done.returncode, done.stdout, done.stderr.decode()


class FlatInterface(unittest.TestCase):
    def test_the_object_starts_at_zero(self):
        code = "show(bytes(data) == bytes(176), ctypes.sizeof(data))"
        self.assertEqual(run(code), (0, b"", "True 176\n"))

    def test_draws_the_bar(self):
        code = "show(KELP_progress(5, 100, 20, b'Reading', 0), KELP_progress(100, 100, 20, None, -1))"
        self.assertEqual(run(code), (0, b"Reading  5.0% #                  |\r100.0% #####################\r", "0 0\n"))

    def test_refuses_a_negative_value(self):
        code = "KELP_progress(-0.5, 100, 20, b'x', 0); show('not reached')"
        self.assertEqual(run(code), (0, b"KELP_progress() ERROR: 0.0 is not a valid progress, must be >= 0!\n", ""))

    def test_the_clock_runs_while_it_sleeps(self):
        code = "a = KELP_time_stamp(); KELP_sleep(20); KELP_sleep(0); show(0.02 <= KELP_time_stamp() - a < 10)"
        self.assertEqual(run(code), (0, b"", "True\n"))

    def test_the_cursor_stays_in_a_pipe(self):
        self.assertEqual(run("show(KELP_rewind_cursor(6), KELP_rewind_cursor(0))"), (0, b"", "0 0\n"))

    def test_closed_standard_output_is_returned_as_an_error(self):
        code = ("os.close(1)\nKELP_progress_global_init(10, 5, b'face', 1)\n"
                "show(KELP_rewind_cursor(1), KELP_progress(1, 10, 5, b'x', 0), KELP_progress_smile(1) < 0)")
        self.assertEqual(run(code), (0, b"", "-1 -1 True\n"))
        # The bar returns the result of flushing, and without a buffer there is nothing to flush.
        self.assertEqual(run(code, PYTHONUNBUFFERED="1"), (0, b"", "-1 0 True\n"))

    def test_reads_and_writes_the_object(self):
        code = ("a = KELP_time_stamp()\nshow(KELP_progress_global_init(50, 10, b'a' * 200, 7))\n"
                "show(data.total, data.width, data.text == b'a' * 127, a <= data.start_time <= KELP_time_stamp(),\n"
                "     data.last_blink, data.smile, data.terminal_env)\n"
                "KELP_progress_global_set_text(b'0123456789' * 3, 20)\nshow(data.text)\n"
                "KELP_progress_global_set_text(b'x' * 128, 1000)\nshow(data.text == b'x' * 61 + b'...' + b'x' * 64)\n"
                "data.total, data.width, data.text, data.start_time = 10, 4, b'set', 0\nshow(KELP_progress_global(5))")
        self.assertEqual(run(code), (0, b"set 50.0% ## |\r", "0\n50.0 10 True True 0.0 7 None\n"
                                      "b'0123456...0123456789'\nTrue\n0\n"))

    def test_a_label_that_fills_its_field_is_drawn_whole(self):
        code = ("KELP_progress_global_init(10, 4, b'', 0)\nKELP_progress_global_set_text(b'y' * 130, 128)\n"
                "data.start_time = 0\nKELP_progress_global(5)")
        self.assertEqual(run(code), (0, b"y" * 61 + b"..." + b"y" * 64 + b" 50.0% ## |\r", ""))

    def test_draws_the_face(self):
        code = ("KELP_progress_global_init(10, 5, b'face', 1)\ndata.last_blink = KELP_time_stamp()\n"
                "data.start_time = KELP_time_stamp() - 100\nshow(KELP_progress_global(9))\n"
                "data.start_time = KELP_time_stamp() - 7200\nshow(KELP_progress_smile(10))")
        running = FACE % (b"* *", b"     ", b"        90.0% #####|  ", b"\\_/", b"remaining: 5 secs      ")
        happy = FACE % (b"^ ^", b"\\   /", b"       100.0%", b"\\_/", b"spent:  2 hours     ")
        closed = happy.replace(b"^ ^", b"_ _")
        self.assertEqual(run(code), (0, running + happy + closed + happy, f"{len(running)}\n{len(happy)}\n"))

    def test_the_bar_replaces_the_face_where_msystem_is_set(self):
        code = ("KELP_progress_global_init(10, 4, b'x', 1)\nshow(data.smile, data.terminal_env)\n"
                "data.start_time = 0\nKELP_progress_global(5)")
        for value in ("MINGW64", ""):
            self.assertEqual(run(code, MSYSTEM=value), (0, b"x 50.0% ## |\r", f"0 {value.encode()}\n"), value)


if __name__ == "__main__":
    unittest.main()
