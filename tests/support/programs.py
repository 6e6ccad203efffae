"""Runs the programs under test, natively or under an emulator such as wine."""

import functools
import os
import subprocess

# The build sets this to the command that runs programs of another system or processor.
EMULATOR = [os.environ["KELPLIB_EMULATOR"]] if os.environ.get("KELPLIB_EMULATOR") else []
ON_WINDOWS = [os.path.basename(word) for word in EMULATOR] == ["run-under-wine"]

# The status of a program that wine's server has killed because it took longer than a second to end, as on a busy machine.
KILLED_BY_WINE = -9 if ON_WINDOWS else None


def command(program, *arguments):
    """The whole command line that runs a program."""
    return [*EMULATOR, program, *arguments]


def command_without_output(windows_helper, program, *arguments):
    """The whole command line that runs a program with standard output closed. On Windows the program `windows_helper` does so,
    elsewhere a shell."""
    if ON_WINDOWS:
        return command(windows_helper, program, *arguments)
    return ["sh", "-c", 'exec "$0" "$@" >&-', program, *arguments]


def plain_line_ends(output):
    """Undoes the CR LF that the standard output of a Windows program writes for every line end."""
    return output.replace(b"\r\n", b"\n") if ON_WINDOWS else output


def run(program, *arguments, timeout=60, **options):
    """Runs a program to its end. Returns its exit status and the bytes of its standard output and standard error."""
    options.setdefault("stdin", subprocess.DEVNULL)

    def once():
        return subprocess.run(command(program, *arguments), stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              timeout=timeout, check=False, **options)
    done = once()
    # On a busy machine about one of 1,500 starts of wine (seen with 8.0) ends silently with status 1 before the program runs.
    if done.returncode == KILLED_BY_WINE or (ON_WINDOWS and (done.returncode, done.stdout, done.stderr) == (1, b"", b"")):
        done = once()
    return done.returncode, plain_line_ends(done.stdout), plain_line_ends(done.stderr)


@functools.cache
def windows_path(folder):
    """The path of a folder of this machine under wine."""
    return run("winepath", "-w", folder)[1].removesuffix(b"\n")
