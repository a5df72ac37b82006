# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures the application in its window. Run by script/bench window, which tells the options."""
import argparse
import datetime
import os
import statistics
import subprocess
import time
from pathlib import Path

import measure
import report
import sources
from measure import say

ROOT = Path(__file__).resolve().parent.parent
FOLDER = ROOT / "build" / "bench"
BENCH = ROOT / "build" / "release" / "bench" / "window-bench"

GOAL_START = 700.0  # ms from the start of the process to the answer of the Start button
# The recordings are drawn for ten seconds and repeated, because drawing them takes long.
DRAWN_SECONDS = 10


def surroundings():
    """A user who has just been given this machine; what is cached stays."""
    words = dict(os.environ)
    for name in ("CONFIG", "DATA", "CACHE"):
        folder = FOLDER / "home" / name.lower()
        folder.mkdir(parents=True, exist_ok=True)
        words[f"XDG_{name}_HOME"] = str(folder)
    return words


def bench(*words):
    told = subprocess.run([BENCH, *map(str, words)], check=True, stdout=subprocess.PIPE, text=True, env=surroundings())
    return told.stdout


def tables(text):
    """The log of the application goes to the same place."""
    return "\n".join(line for line in text.splitlines() if line.startswith("|"))


def measure_start(runs):
    bench("start", time.monotonic())  # fills the caches
    pictures, answers = [], []
    for _ in range(runs):
        picture, answer = map(float, bench("start", time.monotonic()).splitlines()[-1].split())
        pictures.append(picture)
        answers.append(answer)
    answer = statistics.median(answers)
    print(report.table(["start", "median ms", "worst ms", "goal"], [
        ["first picture", f"{statistics.median(pictures):.0f}", f"{max(pictures):.0f}", ""],
        ["Start answers a click", f"{answer:.0f}", f"{max(answers):.0f}", report.verdict(answer, GOAL_START)]]))


def recordings(seconds):
    times = int(seconds) // DRAWN_SECONDS + 2
    return [sources.repeated(FOLDER, sources.recording(FOLDER, sources.FULL_HD_30, side, DRAWN_SECONDS), times)
            for side in ("above", "below")]


def main():
    parser = argparse.ArgumentParser(prog="script/bench window")
    parser.add_argument("--only", choices=["start", "rest", "play"], action="append")
    parser.add_argument("--runs", type=int, default=10)
    parser.add_argument("--seconds", type=float, default=60)
    options = parser.parse_args()
    wanted = options.only or ["start", "rest", "play"]
    print(f"{datetime.date.today()}, {measure.machine()}\n")
    if "start" in wanted:
        say("starting")
        measure_start(options.runs)
        print()
    if "rest" in wanted:
        say("screens at rest; takes four minutes, after the proxies are made")
        print(tables(bench("rest", *recordings(options.seconds))), "\n\nGoal: below 1 % on every screen.\n")
    if "play" in wanted:
        say(f"playing for {options.seconds:.0f} s")
        print(tables(bench("play", *recordings(options.seconds), options.seconds)))
        print("\nGoals: at least 99 % within half a frame, no turn of the event loop over 30 ms.")


if __name__ == "__main__":
    main()
