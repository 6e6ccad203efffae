"""Instruction counts: valgrind's callgrind over a program in a fixed environment. They repeat, whatever else the machine does."""

import pathlib
import re
import shutil
import subprocess
import tempfile

# Valgrind places a program the same every time; without the system's own shuffling the stack comes out the same too.
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
    """The instructions of a whole process, which has to end with exit status 0."""
    with tempfile.TemporaryDirectory() as folder:
        _run(command, [], folder)
        return int(re.search(r"^totals: (\d+)$", pathlib.Path(folder, "out").read_text(), re.M)[1])


def of_operations(*command):
    """The instructions of each operation that a program names in its requests to callgrind."""
    with tempfile.TemporaryDirectory() as folder:
        _run(command, ["--instr-atstart=no"], folder)
        counts = {}
        for path in sorted(pathlib.Path(folder).glob("out.*")):
            text = path.read_text()
            name = re.search(r"^desc: Trigger: Client Request: (.*)$", text, re.M)[1]
            counts[name] = int(re.search(r"^totals: (\d+)$", text, re.M)[1])
        return counts
