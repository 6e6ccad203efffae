"""What a program writes to a terminal, byte for byte: written_to_terminal(words, columns, rows)."""

import os
import pty
import subprocess
import termios


def written_to_terminal(words, columns=80, rows=24, started=None, **options):
    """Runs a program with a terminal as its standard output. Returns its exit status, what it wrote there, and the bytes of
    its standard error, if the options ask for a pipe.

    `started` is called with the process once it runs; `options` are those of subprocess.Popen. With stderr=STDOUT the
    terminal takes both.
    """
    reader, writer = pty.openpty()
    termios.tcsetwinsize(writer, (rows, columns))
    with subprocess.Popen(words, stdin=subprocess.DEVNULL, stdout=writer, **options) as process:
        os.close(writer)
        if started:
            started(process)
        output = b"".join(iter(lambda: _read(reader), b""))
        errors = process.stderr.read() if process.stderr else b""
    os.close(reader)
    return process.returncode, output, errors


def _read(terminal):
    try:
        return os.read(terminal, 65536)
    except OSError:
        # A terminal that nobody holds open for writing any more cannot be read.
        return b""
