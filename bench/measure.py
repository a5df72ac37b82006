# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs commands in turn and tells what each took, as the kernel accounts for it."""
import os
import statistics
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path


@dataclass(frozen=True)
class Cost:
    wall: float  # seconds
    cpu: float  # seconds, user and system, all threads
    peak: float  # MiB resident


def say(text):
    print(f"==> {text}", file=sys.stderr, flush=True)


def run(command, log):
    """One run to its end; a failure stops the benchmark with the program's own words."""
    with open(log, "wb") as words:
        start = time.monotonic()
        process = subprocess.Popen([str(word) for word in command], stdin=subprocess.DEVNULL,
                                   stdout=words, stderr=subprocess.STDOUT)
        _, status, usage = os.wait4(process.pid, 0)
        wall = time.monotonic() - start
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        text = Path(log).read_text(errors="replace")[-3000:]
        raise SystemExit(f"failed with {process.returncode}: {' '.join(map(str, command))}\n{text}")
    return Cost(wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024)


def in_turn(jobs, runs, log):
    """Medians of `runs` runs of each job. The jobs alternate, so that what disturbs the machine disturbs all alike.

    A job is a name with its command and its output, which is removed before each run.
    """
    costs = {name: [] for name in jobs}
    for number in range(1, runs + 1):
        for name, (command, output) in jobs.items():
            if output is not None:
                Path(output).unlink(missing_ok=True)
            cost = run(command, log)
            costs[name].append(cost)
            say(f"  run {number} of {runs}, {name}: {cost.wall:.2f} s, cpu {cost.cpu:.2f} s, {cost.peak:.0f} MiB")
    return {name: median(list_of) for name, list_of in costs.items()}


def median(costs):
    return Cost(*(statistics.median(getattr(cost, field) for cost in costs) for field in ("wall", "cpu", "peak")))


def machine():
    model = "unknown processor"
    for line in Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            model = line.split(":", 1)[1].strip()
            break
    memory = int(Path("/proc/meminfo").read_text().split()[1]) / 1024 / 1024
    return f"{model}, {len(os.sched_getaffinity(0))} cores, {memory:.0f} GiB"
