#!/usr/bin/env python3
"""The Python package in terminals, pipes and files: progress_test.py LIBRARY"""

import os
import subprocess
import tempfile
import unittest

from package_programs import command, elsewhere, environment, in_terminal, screen

BAR = (b"\rreading  25.0% ########                      | time left: 5 mins  \r"
       b"\rreading  50.0% ###############              | time left: 1 mins  \r"
       b"\rreading  75.0% #######################       | time left: 20 secs  \r"
       b"\rreading 100.0% ############################### done in: 1.7 mins  \r\r\n")
HALF = "reading  50.0% ###############              | time left: 1 mins"
FINISHED = "reading 100.0% ############################### done in: 1.7 mins"
HALF_FACE = [
    "     _____",
    "    /     \\         reading",
    "   /  . .  \\",
    "   >       <        50.0% ###############              |",
    "   \\  ---  /",
    "    \\_____/         time remaining: 1 mins",
]
FACE_OF_THREE = [
    "     _____",
    "    /     \\         reading",
    "   /  . .  \\",
    "   >       <        75.0% #######################       |",
    "   \\  \\_/  /",
    "    \\_____/         time remaining: 20 secs",
]
# The finished face leaves the bar of the frame before on the screen.
FINISHED_FACE = [
    "     _____",
    "    /     \\         reading",
    "   /  ^ ^  \\",
    "   > \\   / <       100.0% #######################       |",
    "   \\  \\_/  /",
    "    \\_____/         time spent:  1 mins",
]
FOUR = 'kelplib.progress("abcd", label="reading")'
FOUR_WITH_FACE = 'kelplib.progress("abcd", label="reading", smile=True)'
# Stops at the third of four items; two are done.
UNTIL_C = "for item in work(%s):\n    if item == 'c': "


class Screens(unittest.TestCase):
    maxDiff = None

    def check(self, code, expected, columns=80, rows=24, **options):
        self.assertEqual(screen(in_terminal(code, columns, rows, **options), columns, rows), expected)


class Loops(Screens):
    def test_every_byte_of_a_bar(self):
        self.assertEqual(in_terminal(f"for item in work({FOUR}): pass"), BAR)

    def test_the_items(self):
        self.check(f'taken = list(work({FOUR}))\n_display._SECONDS_BEFORE_FIRST_DRAW = 30\n'
                   'print("".join(taken), sum(kelplib.progress(range(10 ** 6))))',
                   [FINISHED, "abcd 499999500000"])

    def test_without_a_label(self):
        self.check('for item in work(kelplib.progress("abcd")): pass', [FINISHED.removeprefix("reading ")])

    def test_face(self):
        self.check(f'for item in work({FOUR_WITH_FACE}): pass\nprint("later")', [*FINISHED_FACE, "later"])

    def test_bar_where_msystem_is_set(self):
        self.check(f'for item in work({FOUR_WITH_FACE}): pass\nprint("later")', [FINISHED, "later"], MSYSTEM="")

    def test_without_a_total(self):
        for smile in ("", ", smile=True"):
            items = f'kelplib.progress(iter("abcd"), label="reading"{smile})'
            self.check(f"for item in work({items}): pass", ["reading 4 done in: 1.7 mins"])
            self.check(UNTIL_C % items + "break", ["reading 2 time spent: 1 mins"])

    def test_every_byte_without_a_total(self):
        output = in_terminal('for item in work(kelplib.progress(iter("ab"), label="reading")): pass')
        self.assertEqual(output, b"\rreading 1 time spent: 1 mins  \r\rreading 2 done in: 1.7 mins   \r\r\n")

    def test_fewer_items_than_the_total(self):
        self.check('for item in work(kelplib.progress("ab", total=4, label="reading")): pass', [HALF])

    def test_more_items_than_the_total(self):
        self.check('for count, item in enumerate(kelplib.progress("abcdefgh", total=4, label="reading")):\n'
                   "    long_ago()\n    if count == 2: shown(2)", [FINISHED])

    def test_several_loops(self):
        self.check(f'display = {FOUR}\nfor item in work(display): pass\nfor item in work(display): pass', [FINISHED, FINISHED])

    def test_nested_loops_draw_the_outer_one(self):
        inner = f"    for letter in {FOUR_WITH_FACE}:\n        with {FOUR_WITH_FACE} as third: third.update()\n"
        self.assertEqual(in_terminal(f"for item in work({FOUR}):\n{inner}"), BAR)

    def test_the_same_object_in_a_nested_loop(self):
        self.assertEqual(in_terminal(f'display = {FOUR}\nfor item in work(display): list(display)'), BAR)

    def test_a_long_pause_after_fast_items(self):
        # What is reached is drawn while the pause lasts.
        self.check('for item in kelplib.progress(range(4_000_000), label="reading"):\n'
                   "    if item == 2_000_000: shown(2_000_000); long_ago(); break", [HALF])

    def test_text_before_a_frame_precedes_it(self):
        # Without its newline the text is still in Python's buffer.
        code = f'for item in work({FOUR}):\n    if item == "a": sys.stdout.write("text")'
        self.assertEqual(in_terminal(code), b"text" + BAR)

    def test_at_most_ten_redraws_a_second(self):
        output = in_terminal("_display._SECONDS_BEFORE_FIRST_DRAW, _display._SECONDS_BETWEEN_DRAWS = defaults\n"
                             "start = time.monotonic()\n"
                             "for item in kelplib.progress(iter(int, 1), 1e9, label='reading'):\n"
                             "    if time.monotonic() > start + 1.25: break\n"
                             "print('\\n', time.monotonic() - start)")
        *_, seconds = output.decode().split()
        frames = output.count(b"reading")
        # One more when the work ends.
        self.assertLessEqual(frames, (float(seconds) - 0.5) * 10 + 2)
        self.assertGreaterEqual(frames, 2)

    def test_short_work_draws_nothing(self):
        self.assertEqual(in_terminal("_display._SECONDS_BEFORE_FIRST_DRAW = 30\nlist(kelplib.progress(range(10 ** 6)))"), b"")

    def test_nothing_to_do(self):
        self.assertEqual(in_terminal('assert list(kelplib.progress([])) == []\nassert kelplib.progress([]).label == ""'), b"")

    def test_wrong_calls(self):
        for code, message in (
                ("for item in kelplib.progress(total=3): pass",
                 'TypeError: progress() without items cannot be iterated over; use it with "with", and call update()'),
                ("kelplib.progress(total=-1)", "ValueError: total is not a number of 0 or more: -1"),
                ("kelplib.progress([], float('nan'))", "ValueError: total is not a number of 0 or more: nan"),
                ("kelplib.progress([], float('inf'))", "ValueError: total is not a number of 0 or more: inf"),
                ("kelplib.progress([], 10 ** 400)", f"ValueError: total is not a number of 0 or more: {10 ** 400}"),
                ("kelplib.progress([], label=None)", "TypeError: label is not a string: None"),
                ("kelplib.progress([], label=b'x')", "TypeError: label is not a string: b'x'"),
                ("kelplib.progress([]).label = 5", "TypeError: label is not a string: 5"),
                ("for item in kelplib.progress(3): pass", "TypeError: 'int' object is not iterable")):
            with self.subTest(code):
                self.assertEqual(in_terminal(code, status=1, errors=message), b"")
                # Elsewhere it is the same mistake.
                status, output, errors = elsewhere(code)
                self.assertEqual((status, output, errors.splitlines()[-1]), (1, b"", message))

    def test_lengths_that_cannot_be_asked_for(self):
        for length in ("raise ValueError", "raise NotImplementedError", "return -1", "return 1 << 70"):
            with self.subTest(length):
                self.check(f"class Items:\n    def __len__(self): {length}\n    def __iter__(self): return iter('abcd')\n"
                           "for item in work(kelplib.progress(Items(), label='reading')): pass", ["reading 4 done in: 1.7 mins"])


class Blocks(Screens):
    def test_fractions(self):
        # The sum of ten times 0.1 is less than 1.
        self.check('with kelplib.progress(total=1, label="reading") as display:\n    long_ago()\n'
                   "    for count in range(10):\n        display.update(0.1)\n        if count == 4: shown(0.5)", [FINISHED])

    def test_fractions_without_a_total(self):
        self.check('with kelplib.progress(label="reading") as display:\n    long_ago()\n'
                   "    for count in range(10): display.update(0.1)\n    while not _display._current._drawn: pass",
                   ["reading 1 done in: 1.7 mins"])

    def test_loops_in_a_block(self):
        self.check('with kelplib.progress("ab", total=8, label="reading") as display:\n    long_ago()\n'
                   "    for item in display: pass\n    shown(2)\n    for item in display: break\n    shown(2)\n"
                   "    display.update(2)", [HALF])

    def test_a_block_that_ends_before_its_total(self):
        self.check('with kelplib.progress(total=4, label="reading") as display:\n    long_ago()\n    display.update(2)\n'
                   "    shown(2)\nprint('later')", [HALF, "later"])

    def test_new_label(self):
        # It overwrites the longer one.
        self.check('with kelplib.progress(total=4, label="reading it all") as display:\n    long_ago()\n    display.update()\n'
                   '    shown(1)\n    display.label = "reading"\n    assert display.label == "reading"\n    display.update()',
                   [HALF.replace("reading", "reading       ")])

    def test_numbers_of_other_types(self):
        self.check("import decimal\nwith kelplib.progress(total=decimal.Decimal(4), label='reading') as display:\n    long_ago()\n"
                   "    display.update(decimal.Decimal(2))\n    shown(2)", [HALF])

    def test_amounts_that_are_no_numbers(self):
        for amount in ("float('nan')", "10 ** 5000", "1j"):
            for total in ("None", "4"):
                # The display goes on once the sum is a number again. Without a total, the last text says so.
                with self.subTest(amount, total=total):
                    self.check(f"with kelplib.progress(total={total}, label='reading') as display:\n    long_ago()\n"
                               f"    display.update({amount}); time.sleep(0.01)\n    display._done = 0\n"
                               "    display.update(2)\n    shown(2)",
                               [HALF if total == "4" else "reading 2 done in: 1.7 mins"])

    def test_copies(self):
        # The end of a copy does not close the display.
        self.check('import copy\nwith kelplib.progress(total=4, label="reading") as display:\n    long_ago()\n'
                   "    copy.copy(display)\n    display.update(2)\n    shown(2)", [HALF])

    def test_several_threads(self):
        self.check("sys.setswitchinterval(1e-6)\n"
                   'with kelplib.progress(total=320_000, label="reading") as display:\n    long_ago()\n'
                   "    def add():\n        for count in range(40_000): display.update()\n"
                   "    threads = [threading.Thread(target=add) for count in range(4)]\n"
                   "    for thread in threads: thread.start()\n    for thread in threads: thread.join()\n    shown(160_000)",
                   [HALF])

    def test_updates_outside_count_for_nothing(self):
        self.check('display = kelplib.progress(total=4, label="reading")\ndisplay.update(3)\n'
                   "with display:\n    long_ago()\n    display.update(2)\n    shown(2)\ndisplay.update()", [HALF])


class Ends(Screens):
    """Ways to leave a loop. Each leaves the last state, and the cursor below it."""

    def test_break(self):
        self.check(UNTIL_C % FOUR + "break\nprint('later')", [HALF, "later"])
        self.check(UNTIL_C % FOUR_WITH_FACE + "break\nprint('later')", [*HALF_FACE, "later"])

    def test_exception(self):
        for items, shown in ((FOUR, [HALF]), (FOUR_WITH_FACE, HALF_FACE)):
            code = UNTIL_C % items
            self.check(code + "raise OSError('bad')", shown, status=1, errors="OSError: bad")
            caught = "try:\n" + "".join(f"    {line}\n" for line in (code + "raise OSError").split("\n"))
            self.check(caught + "except OSError: print('bad')", [*shown, "bad"])

    def test_exception_in_a_block(self):
        self.check('with kelplib.progress(total=4, label="reading") as display:\n    long_ago()\n    display.update(2)\n'
                   "    shown(2)\n    raise OSError('bad')", [HALF], status=1, errors="OSError: bad")

    def test_exception_of_the_items(self):
        self.check("def items():\n    yield from 'abc'\n    raise OSError('bad')\n"
                   "for item in work(kelplib.progress(items(), 4, label='reading')): pass", [HALF], status=1,
                   errors="OSError: bad")

    def test_keyboard_interrupt(self):
        self.check(UNTIL_C % FOUR + "os.kill(os.getpid(), signal.SIGINT); time.sleep(30)", [HALF], status=-2,
                   errors="KeyboardInterrupt")
        # The terminal shows "^C" where the cursor is.
        self.check(UNTIL_C % FOUR + "os.write(1, b'^C'); raise KeyboardInterrupt", [HALF], status=-2,
                   errors="KeyboardInterrupt")

    def test_keyboard_interrupt_in_the_cheer(self):
        # The face cheers for 0.3 seconds.
        self.check("def interrupt():\n    while _display._current is None or _display._current._drawn < 4: time.sleep(0.001)\n"
                   "    time.sleep(0.1)\n    os.kill(os.getpid(), signal.SIGINT)\nthreading.Thread(target=interrupt).start()\n"
                   f"for item in work({FOUR_WITH_FACE}): pass", FINISHED_FACE, status=-2, errors="KeyboardInterrupt")

    def test_keyboard_interrupt_before_the_cheer(self):
        self.check("rewind = _library.rewind_cursor\ndef interrupted(lines):\n"
                   "    if _display._current._drawn == 4: raise KeyboardInterrupt\n    return rewind(lines)\n"
                   "_library.rewind_cursor = interrupted\n"
                   f"for item in work({FOUR_WITH_FACE}): pass", FACE_OF_THREE, status=-2, errors="KeyboardInterrupt")

    def test_keyboard_interrupt_after_opening(self):
        # The next display opens all the same.
        for name in ("_progress.open_for", "_progress.itertools.compress"):
            self.check(f"from kelplib import _progress\ncalled = {name}\ndef interrupted(*words):\n    {name} = called\n"
                       "    called(*words)\n    raise KeyboardInterrupt\n"
                       f"{name} = interrupted\ntry:\n    for item in {FOUR}: pass\nexcept KeyboardInterrupt: pass\n"
                       f"for item in work({FOUR}): pass", [FINISHED])

    def test_keyboard_interrupt_before_closing(self):
        self.check(f"display = {FOUR}\nclose = display._close\ndef interrupted(complete):\n    display._close = close\n"
                   "    raise KeyboardInterrupt\ndisplay._close = interrupted\n"
                   "try:\n    for item in work(display): pass\nexcept KeyboardInterrupt: pass\n"
                   "print('later')\nassert _display._current is None", [FINISHED, "later"])

    def test_exit(self):
        self.check(UNTIL_C % FOUR + "sys.exit(3)", [HALF], status=3)

    def test_end_of_a_program_that_keeps_the_iterator(self):
        self.check(f"items = iter({FOUR})\nlong_ago()\nnext(items); next(items); next(items); shown(2)\n"
                   "sys.exit(3)", [HALF], status=3)

    def test_generators(self):
        self.check(f"def letters():\n    yield from work({FOUR})\nitems = letters()\nnext(items); next(items); next(items)\n"
                   "items.close()\nprint('later')", [HALF, "later"])

    def test_a_loop_after_one_that_was_left(self):
        self.check(UNTIL_C % FOUR + f"break\nfor item in work({FOUR}): pass", [HALF, FINISHED])

    def test_fork(self):
        # The child draws nothing, and the parent goes on.
        self.check(f"for item in work({FOUR}):\n    if item == 'b':\n        child = os.fork()\n        if not child: break\n"
                   "if not child: os._exit(5)\nassert os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]) == 5", [FINISHED])

    def test_fork_of_a_program_that_ends_normally(self):
        self.check(f"for item in work({FOUR}):\n    if item == 'b':\n        child = os.fork()\n        if not child: sys.exit()\n"
                   "        os.waitpid(child, 0)", [FINISHED])

    def test_a_child_can_open_a_display(self):
        self.check(f"for item in work({FOUR}):\n    if item == 'c': break\nif not os.fork():\n"
                   f"    for item in work({FOUR}): pass\n    sys.exit()\nos.wait()\nprint('later')", [HALF, FINISHED, "later"])

    def test_every_item_forks(self):
        self.check("_display._SECONDS_BETWEEN_DRAWS = 0.02\n"
                   'for item in kelplib.progress(range(400), label="reading"):\n    if not os.fork(): os._exit(0)\n'
                   "    os.wait()\n    if item == 200: shown(200); long_ago(); break", [HALF])

    def test_no_thread_is_left(self):
        self.check(f"for item in work({FOUR}): pass\nassert threading.active_count() == 1", [FINISHED])

    def test_replaced_standard_output(self):
        # The newline goes to the terminal all the same.
        self.check("text = io.StringIO()\nwith contextlib.redirect_stdout(text):\n"
                   f"    for item in {FOUR}: time.sleep(0.01)\n    assert text.getvalue() == ''", [])
        self.check(f"text = io.StringIO()\nfor item in work({FOUR}):\n    if item == 'c':\n"
                   "        sys.stdout = text\n        break\nsys.stdout = sys.__stdout__\nprint('later', repr(text.getvalue()))",
                   [HALF, "later ''"])


    def test_odd_standard_output(self):
        odd = "class Odd:\n    encoding = 'nonsense'\n    def fileno(self): %s\n    def flush(self): raise KeyError\n"
        for fileno, expected in (("return 1", FINISHED), ("raise NotImplementedError", "")):
            with self.subTest(fileno):
                self.check(odd % fileno + f"terminal, sys.stdout = sys.stdout, Odd()\nfor item in {FOUR}:\n    long_ago()\n"
                           "    time.sleep(0.2)\nsys.stdout = terminal", [expected] if expected else [])

    def test_a_file_in_the_place_of_the_terminal(self):
        with tempfile.NamedTemporaryFile() as file:
            in_terminal(UNTIL_C % FOUR + f"os.dup2(os.open({file.name!r}, os.O_WRONLY), 1); break")
            self.assertEqual(file.read(), b"")

    def test_subinterpreters(self):
        # Those without daemon threads draw nothing.
        code = ("import sys\nsys.path = %r\nimport kelplib\nprint(*kelplib.progress('abcd'))")
        self.check("try:\n    import _interpreters as interpreters\nexcept ImportError:\n"
                   "    import _xxsubinterpreters as interpreters\n"
                   f"assert not interpreters.run_string(interpreters.create(), {code!r} % sys.path)", ["a b c d"])


class Sizes(Screens):
    def test_sizes_that_suffice(self):
        narrow = "reading  50.0% #####    | time left: 1 mins"
        for items, columns, rows, shown in (
                (FOUR, 72, 3, [HALF]), (FOUR, 52, 24, [narrow]), (FOUR_WITH_FACE, 61, 8, HALF_FACE)):
            with self.subTest(columns=columns, rows=rows):
                self.check(UNTIL_C % items + "break\nprint('later')", [*shown, "later"], columns, rows)

    def test_sizes_that_do_not(self):
        for items, columns, rows in ((FOUR, 51, 24), (FOUR, 80, 1), (FOUR_WITH_FACE, 60, 24), (FOUR_WITH_FACE, 80, 6),
                                     (FOUR, 0, 0), ("kelplib.progress(iter('abcd'), label='reading')", 25, 24)):
            with self.subTest(columns=columns, rows=rows):
                self.assertEqual(in_terminal(f"for item in {items}: time.sleep(0.01)", columns, rows), b"")

    def test_dumb_terminal(self):
        self.assertEqual(in_terminal(f"for item in {FOUR}: time.sleep(0.01)", TERM="dumb"), b"")

    def test_a_terminal_that_becomes_narrower(self):
        # The later frame is narrower, too.
        output = in_terminal(UNTIL_C % FOUR + "break\n    if item == 'b': termios.tcsetwinsize(1, (24, 52))")
        self.assertEqual(output.count(b"reading  50.0% #####    | time left: 1 mins  \r"), output.count(b"50.0%"))

    def test_a_frame_that_the_terminal_has_wrapped(self):
        # Too narrow for another frame. The cursor leaves the rows that the last one now takes.
        for items, columns, rows in ((FOUR, 40, 2), (FOUR, 20, 4), (FOUR_WITH_FACE, 40, 9), (FOUR_WITH_FACE, 25, 12)):
            with self.subTest(items=items, columns=columns):
                output = in_terminal(UNTIL_C % items + f"termios.tcsetwinsize(1, (24, {columns})); break")
                self.assertRegex(output, b"[^\n](\r\n){%d}$" % rows)

class Labels(Screens):
    def label(self, label, expected, **changed):
        output = in_terminal(f"for item in work(kelplib.progress('abcd', label={label!r})):\n    if item == 'b': break",
                             **changed)
        self.assertEqual(output.split(b"\r")[1].split(b" 25.0%")[0], expected)

    def test_labels(self):
        for label, expected in (
                ("exactly twenty cells", b"exactly twenty cells "),
                ("more than twenty cells", b"more tha...ty cells "),
                ("twenty-one characters", b"twenty-o...aracters "),
                ("größer", "größer ".encode()),
                ("漢字漢字漢字漢字漢字漢", "漢字漢字...字漢字漢 ".encode()),
                ("a\x1b[2J\nb\udce9\0", b"a?[2J?b?? ")):
            with self.subTest(label):
                self.label(label, expected)

    def test_other_encodings(self):
        self.label("größer", b"gr\xf6\xdfer ", PYTHONIOENCODING="latin-1")
        self.label("größer", b"gr??er ", PYTHONIOENCODING="ascii")


class Elsewhere(unittest.TestCase):
    LOOPS = (f"for item in {FOUR}: time.sleep(0.01)\nfor item in {FOUR_WITH_FACE}: time.sleep(0.01)\n"
             "with kelplib.progress(total=3) as display: display.update(); time.sleep(0.01)\nprint('later')\n"
             "assert threading.active_count() == 1 and _display._current is None")

    def test_pipe(self):
        for changed in ({}, {"MSYSTEM": "MSYS"}, {"PYTHONUNBUFFERED": "1"}):
            self.assertEqual(elsewhere(self.LOOPS, **changed), (0, b"later\n", ""))

    def test_file(self):
        with tempfile.TemporaryFile() as file:
            self.assertEqual(elsewhere(self.LOOPS, file), (0, None, ""))
            file.seek(0)
            self.assertEqual(file.read(), b"later\n")

    def test_full_disk(self):
        with open("/dev/full", "wb") as full:
            self.assertEqual(elsewhere(f"for item in {FOUR}: time.sleep(0.01)", full), (0, None, ""))

    def test_closed_output(self):
        done = subprocess.run(["sh", "-c", 'exec "$@" >&-', "sh", *command(f"for item in {FOUR}: time.sleep(0.01)")],
                              stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, env=environment(), timeout=60, check=False)
        self.assertEqual((done.returncode, done.stderr), (0, b""))

    def test_a_loop_that_draws_nothing_costs_nothing(self):
        # It runs over the iterator of the items itself.
        self.assertEqual(elsewhere(f"print(type(iter({FOUR})) is type(iter('')))"), (0, b"True\n", ""))
        self.assertEqual(in_terminal("print(type(iter(kelplib.progress('ab', show=False))) is type(iter('')))"), b"True\r\n")

    def test_the_names(self):
        self.assertEqual(elsewhere("print(kelplib.__all__)"), (0, b"['Progress', 'progress']\n", ""))


if __name__ == "__main__":
    os.environ.setdefault("TERM", "xterm")
    unittest.main()
