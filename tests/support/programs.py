"""Running the programs under test, natively or under wine, from a test script."""

import functools
import os
import subprocess

# Set by the build for programs of another system or processor: the command that runs one of them.
EMULATOR = [os.environ["KELPLIB_EMULATOR"]] if os.environ.get("KELPLIB_EMULATOR") else []
ON_WINDOWS = [os.path.basename(word) for word in EMULATOR] == ["run-under-wine"]


def command(program, *arguments):
    """The whole command line of a program."""
    return [*EMULATOR, program, *arguments]


def plain_line_ends(output):
    """What the program itself wrote: a Windows program's standard output turns every line end into CR LF."""
    return output.replace(b"\r\n", b"\n") if ON_WINDOWS else output


def run(program, *arguments, timeout=60, **options):
    """Runs a program to its end. Returns its exit status and the bytes of its standard output and standard error."""
    options.setdefault("stdin", subprocess.DEVNULL)
    done = subprocess.run(command(program, *arguments), stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          timeout=timeout, check=False, **options)
    return done.returncode, plain_line_ends(done.stdout), plain_line_ends(done.stderr)


@functools.cache
def windows_path(folder):
    """A folder of this machine as wine's programs see it."""
    return run("winepath", "-w", folder)[1].removesuffix(b"\n")
