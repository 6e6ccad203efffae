"""Counts instructions with valgrind's callgrind in a fixed environment. The counts do not depend on the load of the machine."""

import pathlib
import re
import shutil
import subprocess
import tempfile

# Valgrind always loads a program at the same addresses; without address randomisation the stack has the same address too.
FIXED_ADDRESSES = ["setarch", "-R"]


def _prefix():
    works = subprocess.run([*FIXED_ADDRESSES, "true"], capture_output=True, check=False).returncode == 0
    return ["env", "-i", *(FIXED_ADDRESSES if works else [])]


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
