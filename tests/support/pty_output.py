"""What a program writes to a terminal, byte for byte: written_to_terminal(words, columns, rows)."""

import os
import pty
import subprocess
import termios
import threading

END = b"\0the program has ended\0"


def written_to_terminal(words, columns=80, rows=24, started=None, **options):
    """Runs a program with a terminal as its standard output. Returns its exit status, what it wrote there, and the bytes of
    its standard error, if the options ask for a pipe.

    `started` is called with the process once it runs; `options` are those of subprocess.Popen. With stderr=STDOUT the
    terminal takes both.
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
    """A terminal that nobody holds open for writing any more may drop what was not read yet, so its end is written."""
    process.wait()
    os.write(writer, END)
