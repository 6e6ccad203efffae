"""Measures programs of Google Benchmark, whole processes and compilations. Every figure is a median."""

import concurrent.futures
import json
import os
import pathlib
import re
import resource
import statistics
import subprocess
import sys
import tempfile
import typing

import callgrind

ROOT = pathlib.Path(__file__).resolve().parent.parent
PROGRAMS = ROOT / "build/bench/bin"
UNITS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3}


# glibc gives large blocks back to the system when they are freed, and takes them again page by page. Raised for every library:
# 1 GiB until a block has a mapping of its own, 4 GiB until free memory goes back.
MEMORY_KEPT = "glibc.malloc.mmap_threshold=1073741824:glibc.malloc.trim_threshold=4294967296"


class Effort(typing.NamedTuple):
    """The number and length of the measurements."""
    repetitions: int
    seconds: float  # the minimum per repetition
    compilations: int


COMPILE = ["g++", "-std=c++17", "-O2", f"-I{ROOT}/include", f"-I{ROOT}/kit/include"]
FULL = Effort(9, 0.05, 3)
QUICK = Effort(3, 0.01, 1)


class Figure(typing.NamedTuple):
    seconds: float  # for one round of the work
    items: float  # tokens, values or redraws in one round
    allocations: float

    @property
    def per_item(self):
        return self.seconds / self.items


def log(text):
    print(text, file=sys.stderr, flush=True)


class Measured(dict):
    """Figures of Google Benchmark programs by name. Each part of a program runs once."""

    def __init__(self, effort):
        super().__init__()
        self._effort = effort
        self._done = set()

    def run(self, program, names):
        """Measures the benchmarks whose names begin with one of `names`, interleaved in random order, so that a disturbance
        affects all of them."""
        names = [name for name in names if (program, name) not in self._done]
        self._done.update((program, name) for name in names)
        if not names:
            return
        log(f"  {program}: {', '.join(names)}")
        with tempfile.TemporaryDirectory() as folder:
            out = pathlib.Path(folder, "out.json")
            subprocess.run(
                [PROGRAMS / program, f"--benchmark_filter=^({'|'.join(names)})/", f"--benchmark_out={out}",
                 "--benchmark_out_format=json", f"--benchmark_repetitions={self._effort.repetitions}",
                 f"--benchmark_min_time={self._effort.seconds}", "--benchmark_enable_random_interleaving=true"],
                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL, check=True,
                env={**os.environ, "GLIBC_TUNABLES": MEMORY_KEPT})
            self._take(json.loads(out.read_text(encoding="utf-8"))["benchmarks"])

    def _take(self, entries):
        for entry in entries:
            if entry.get("error_occurred"):
                raise SystemExit(f"{entry['name']}: {entry['error_message']}")
            if entry.get("aggregate_name") == "median":
                # Wall clock time for redraws and for benchmarks that prepare their input, otherwise processor time.
                name, is_wall_clock = re.subn("/(real|manual)_time$", "", entry["run_name"])
                time = entry["real_time" if is_wall_clock else "cpu_time"] * UNITS[entry["time_unit"]]
                self[name] = Figure(time, entry.get("items", 1), entry.get("allocations", 0))


def processor_seconds(command):
    """Runs a command. Returns its user and system time, including child processes."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run(command, check=True, stdin=subprocess.DEVNULL)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime


def compile_seconds(sources, effort):
    """Compiles the sources (name to path) in alternating order. Returns the median of the seconds for each."""
    times = {name: [] for name in sources}
    with tempfile.TemporaryDirectory() as folder:
        for turn in range(effort.compilations):
            log(f"  round {turn + 1} of {effort.compilations}")
            for name in sources if turn % 2 == 0 else reversed(sources):
                times[name].append(processor_seconds(
                    [*COMPILE, "-c", sources[name], "-o", f"{folder}/object.o"]))
    return {name: statistics.median(list_of_times) for name, list_of_times in times.items()}


def compile_instructions(sources, _):
    """Returns the compiler's instructions for each source (name to path), which do not depend on the load of the machine."""
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return dict(zip(sources, pool.map(lambda path: callgrind.of_compiler([*COMPILE, "-S", path]), sources.values())))


def stripped_size(program):
    """Returns the size of a program without its symbols, in bytes."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["strip", "-o", f"{folder}/stripped", PROGRAMS / program], check=True)
        return pathlib.Path(folder, "stripped").stat().st_size


def tqdm_seconds(effort):
    """Returns the seconds of one redraw of tqdm's bar."""
    done = subprocess.run(["/usr/bin/python3", "-B", ROOT / "benchmarks/redraw/redraw_tqdm.py", str(effort.repetitions)],
                          stdout=subprocess.PIPE, text=True, check=True)
    return float(done.stdout)


def draw(name, title, items, unit, lines):
    """Draws a plot into docs: lines (name to points) on logarithmic axes."""
    blocks = "".join(f"$line{i} << END\n" + "".join(f"{x} {y:.4g}\n" for x, y in points) + "END\n"
                     for i, points in enumerate(lines.values()))
    curves = ", ".join(f"$line{i} with linespoints linewidth 2 pointtype 7 pointsize 0.5 title '{line}'"
                       for i, line in enumerate(lines))
    script = f"""{blocks}
set terminal svg size 760,480 font 'sans-serif,13' background '#ffffff'
set output '{ROOT}/docs/{name}'
set title '{title}'
set xlabel '{items}'
set ylabel '{unit}'
set logscale xy
set format x '10^{{%T}}'
set grid
set key outside right noenhanced
plot {curves}
"""
    subprocess.run(["gnuplot"], input=script, text=True, check=True)
