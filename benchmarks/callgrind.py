"""Counts instructions with valgrind's callgrind in a fixed environment. The counts do not depend on the load of the machine."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile

# Valgrind always loads a program at the same addresses; without address randomisation the stack has the same address too.
FIXED_ADDRESSES = ["setarch", "-R"]


def _fixed():
    works = subprocess.run([*FIXED_ADDRESSES, "true"], capture_output=True, check=False).returncode == 0
    return FIXED_ADDRESSES if works else []


def _prefix():
    return ["env", "-i", *_fixed()]


def _run(command, options, folder):
    done = subprocess.run(
        [*_prefix(), shutil.which("valgrind"), "--tool=callgrind", f"--callgrind-out-file={folder}/out", *options, *command],
        stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, stdin=subprocess.DEVNULL, cwd="/",
        text=True, check=False)
    if done.returncode != 0:
        raise SystemExit(f"{pathlib.Path(command[0]).name}: exit status {done.returncode}\n{done.stderr}")


def of_process(*command):
    """Returns the instructions of a whole process. Its exit status has to be 0."""
    with tempfile.TemporaryDirectory() as folder:
        _run(command, [], folder)
        return int(re.search(r"^totals: (\d+)$", pathlib.Path(folder, "out").read_text(), re.M)[1])


def of_compiler(command):
    """Returns the instructions of g++'s compiler proper. cachegrind without its cache counts in a third of callgrind's time."""
    with tempfile.TemporaryDirectory() as folder:
        wrapped = f"{shutil.which('valgrind')},-q,--tool=cachegrind,--cache-sim=no,--cachegrind-out-file={folder}/out"
        done = subprocess.run(["env", "-i", f"PATH={os.environ['PATH']}", *_fixed(), command[0], "-wrapper", wrapped, *command[1:],
                               "-o", f"{folder}/object.s"], capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise SystemExit(f"{command}: exit status {done.returncode}\n{done.stderr}")
        return int(re.search(r"^summary: (\d+)$", pathlib.Path(folder, "out").read_text(), re.M)[1])


def of_operations(*command):
    """Returns the instructions of each operation that the program names in its requests to callgrind."""
    with tempfile.TemporaryDirectory() as folder:
        _run(command, ["--instr-atstart=no"], folder)
        counts = {}
        for path in sorted(pathlib.Path(folder).glob("out.*")):
            text = path.read_text()
            name = re.search(r"^desc: Trigger: Client Request: (.*)$", text, re.M)[1]
            counts[name] = int(re.search(r"^totals: (\d+)$", text, re.M)[1])
        return counts
