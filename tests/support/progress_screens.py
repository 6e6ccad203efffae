"""The screens of 80 columns and 24 rows that progress_tool leaves, the same in every terminal.

Each case has the tool's arguments, the rows of the screen, the cursor's column and row, and the results of the calls.
"""

EMPTY_ROW = ""


def fillers(first, last):
    return [f"filler line {number}" for number in range(first, last + 1)]


FINISHED_BAR = ["Reading100.0% #####################", "later output"]
UNFINISHED_BAR = ["Reading 50.0% ##########         |"]

# The finished face overwrites the percentage of the frame before with "100.0%" and leaves that frame's bar on the screen.
FINISHED_FACE = [
    "     _____",
    "    /     \\         the label",
    "   /  ^ ^  \\",
    "   > \\   / <       100.0% ###################|",
    "   \\  \\_/  /",
    "    \\_____/         time spent:  10 hours",
    "later output",
]
UNFINISHED_FACE = [
    "     _____",
    "    /     \\         the label",
    "   /  . .  \\",
    "   >       <        50.0% ##########         |",
    "   \\  ---  /",
    "    \\_____/         time remaining: 8 hours",
]

BAR_RESULTS = b"0\n0\n0\n0\n0\n"
FACE_RESULTS = b"167\n166\n165\n165\n166\n166\n140\n"

CASES = [
    (["bar", "0"], FINISHED_BAR + 22 * [EMPTY_ROW], (0, 2), BAR_RESULTS),
    (["bar", "23"], fillers(3, 23) + FINISHED_BAR + [EMPTY_ROW], (0, 23), BAR_RESULTS),
    (["bar", "100"], fillers(80, 100) + FINISHED_BAR + [EMPTY_ROW], (0, 23), BAR_RESULTS),
    (["unfinished-bar", "0"], UNFINISHED_BAR + 23 * [EMPTY_ROW], (0, 0), b"0\n"),
    (["unfinished-bar", "23"], fillers(1, 23) + UNFINISHED_BAR, (0, 23), b"0\n"),
    (["face", "0"], FINISHED_FACE + 17 * [EMPTY_ROW], (0, 7), FACE_RESULTS),
    (["face", "16"], fillers(1, 16) + FINISHED_FACE + [EMPTY_ROW], (0, 23), FACE_RESULTS),
    (["face", "18"], fillers(3, 18) + FINISHED_FACE + [EMPTY_ROW], (0, 23), FACE_RESULTS),
    (["face", "23"], fillers(8, 23) + FINISHED_FACE + [EMPTY_ROW], (0, 23), FACE_RESULTS),
    (["face", "100"], fillers(85, 100) + FINISHED_FACE + [EMPTY_ROW], (0, 23), FACE_RESULTS),
    (["unfinished-face", "0"], UNFINISHED_FACE + 18 * [EMPTY_ROW], (0, 0), b"167\n165\n"),
    (["unfinished-face", "23"], fillers(7, 23) + UNFINISHED_FACE + [EMPTY_ROW], (0, 17), b"167\n165\n"),
]

# The frames that an unfinished face writes: closed eyes for the blink, open eyes, and a later frame.
CLOSED_EYES = (
    b"     _____\n"
    b"    /     \\         the label\n"
    b"   /  _ _  \\\n"
    b"   >   _   <        10.0% ##                 |  \n"
    b"   \\  / \\  /\n"
    b"    \\_____/         time remaining: 112 hours     \n")
OPEN_EYES = CLOSED_EYES.replace(b"_ _", b"* *")
HALF = (
    b"     _____\n"
    b"    /     \\         the label\n"
    b"   /  . .  \\\n"
    b"   >       <        50.0% ##########         |  \n"
    b"   \\  ---  /\n"
    b"    \\_____/         time remaining: 8 hours     \n")
