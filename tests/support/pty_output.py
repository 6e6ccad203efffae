"""Captures what a program writes to a terminal, byte for byte."""

import os
import pty
import subprocess
import termios
import threading

END = b"\0the program has ended\0"


def written_to_terminal(words, columns=80, rows=24, started=None, **options):
    """Runs a program with a terminal as its standard output. Returns its exit status, its output, and its standard error if
    the options make that a pipe.

    Calls `started` with the process once it runs. `options` are passed to subprocess.Popen; stderr=STDOUT sends standard
    error to the terminal too.
    """
    reader, writer = pty.openpty()
    termios.tcsetwinsize(writer, (rows, columns))
    with subprocess.Popen(words, stdin=subprocess.DEVNULL, stdout=writer, **options) as process:
        marker = threading.Thread(target=_mark_end, args=[process, writer])
        marker.start()
        if started:
            started(process)
        output = b""
        while END not in output:
            output += os.read(reader, 65536)
        marker.join()
        errors = process.stderr.read() if process.stderr else b""
    os.close(writer)
    os.close(reader)
    return process.returncode, output.partition(END)[0], errors


def _mark_end(process, writer):
    """Marks the end of the output. Closing the last writer instead could drop output that has not been read."""
    process.wait()
    os.write(writer, END)
