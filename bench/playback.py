# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures the players against a general player. Run by script/bench playback, which tells the options."""
import argparse
import datetime
import json
import random
import statistics
import subprocess
from fractions import Fraction
from pathlib import Path

import measure
import mpv_seek
import report
import sources
from measure import say

ROOT = Path(__file__).resolve().parent.parent
FOLDER = ROOT / "build" / "bench"
PROBE = ROOT / "build" / "release" / "bench" / "playback-probe"
MAKE_PROXY = ROOT / "build" / "release" / "tools" / "make-proxy" / "make-proxy"
LOG = FOLDER / "last-command.log"

GOAL_BOTH_PROXIES = 5.0  # ms, p95
GOAL_ONE_PROXY = 0.35  # of the peer's exact seek
GOAL_STEP = 4.0  # ms, p95
GOAL_DRAG = 15.0  # pictures a second
GOAL_PLAY_CPU = 1.15  # of decoding with a null sink
GOAL_PAUSED = 0.5  # % of a core
GOAL_MEMORY = 400.0  # MB


def probe(*words):
    told = subprocess.run([PROBE, *map(str, words)], check=True, capture_output=True, text=True)
    return json.loads(told.stdout.strip().splitlines()[-1])


def p95(values):
    return sorted(values)[min(len(values) - 1, len(values) * 95 // 100)]


def targets(kind_rate, frames_per_group, seconds, count, seed):
    """Moments of which each lies in a group of pictures that none before lies in."""
    group = frames_per_group / float(Fraction(kind_rate))
    groups = list(range(1, int(seconds / group) - 1))
    generator = random.Random(seed)
    generator.shuffle(groups)
    chosen = groups[:count]
    return [(number + generator.uniform(0.02, 0.98)) * group for number in chosen]


def seek_case(name, files, moments, runs, peer_file=None):
    """Medians over the runs of the median and the p95 of each run; ours and the peer's in turn."""
    ours, peers = [], []
    joined = ",".join(f"{moment:.6f}" for moment in moments)
    for number in range(1, runs + 1):
        ours.append(probe("seek", joined, *files)["ms"])
        line = f"  run {number} of {runs}, {name}: ours {statistics.median(ours[-1]):.1f} ms"
        if peer_file is not None:
            peers.append(mpv_seek.milliseconds(peer_file, moments))
            line += f", mpv {statistics.median(peers[-1]):.1f} ms"
        say(line)

    def over_runs(measured):
        return (statistics.median(statistics.median(one) for one in measured),
                statistics.median(p95(one) for one in measured)) if measured else None
    return over_runs(ours), over_runs(peers)


def row(what, measured, goal, verdict):
    return [what, measured, goal, verdict]


def verdict(met, by=""):
    return "met" if met else f"missed{by}"


class Recordings:
    """Drawn once; a short one repeated gives groups enough that no seek finds its target in memory."""

    def __init__(self, seconds):
        self.seconds = seconds

    def source(self, kind, side, times=6):
        return sources.repeated(FOLDER, sources.recording(FOLDER, kind, side, self.seconds), times)

    def proxy(self, side):
        """Found again by its source's content, or made."""
        say(f"proxy of the {side} recording")
        told = subprocess.run([MAKE_PROXY, self.source(sources.FULL_HD, side), FOLDER / "proxies"], check=True,
                              capture_output=True, text=True)
        return Path(told.stdout.splitlines()[0])

    def length(self, times=6):
        return self.seconds * times


def measure_proxies(recordings, options):
    above, below = recordings.proxy("above"), recordings.proxy("below")
    generator = random.Random(11)
    moments = [generator.uniform(0.1, recordings.length() - 0.1) for _ in range(100)]
    both, _ = seek_case("both proxies", [above, below], moments, options.runs)
    one, peer = seek_case("one proxy", [above], moments, options.runs, above)
    ratio = one[0] / peer[0]
    back = probe("play", -1, 8, 60000 / 1001, above, below)
    held = back["shown"] / back["due"]
    steps = probe("step", 20, 100, above)["ms"]
    return [
        row("both proxies, random precise seek, p95", f"{both[1]:.1f} ms (median {both[0]:.1f})",
            f"{GOAL_BOTH_PROXIES:.0f} ms", verdict(both[1] <= GOAL_BOTH_PROXIES)),
        row("one proxy, median over mpv's", f"{ratio:.2f} ({one[0]:.1f} over {peer[0]:.1f} ms)",
            f"{GOAL_ONE_PROXY}", verdict(ratio <= GOAL_ONE_PROXY)),
        row("both proxies backward, frames shown of those due", f"{held:.3f}", "60 a second: 0.99",
            verdict(held >= 0.99)),
        row("proxy, step by a frame, p95", f"{p95(steps):.1f} ms", f"{GOAL_STEP:.0f} ms",
            verdict(p95(steps) <= GOAL_STEP)),
    ]


def measure_source(recordings, options, kind, goal):
    file = recordings.source(kind, "above")
    moments = targets(kind.rate, kind.key_frames, recordings.length(), options.seeks, 7)
    ours, peer = seek_case(kind.name, [file], moments, options.runs, file)
    ratio = ours[0] / peer[0]
    return [row(f"{kind.name} source, median over mpv's", f"{ratio:.2f} ({ours[0]:.0f} over {peer[0]:.0f} ms)",
                f"{goal}", verdict(ratio <= goal))]


def measure_scrubbing(recordings, options):
    file = recordings.source(sources.FULL_HD, "above")
    drags = [probe("drag", 5, 15, 4, file) for _ in range(options.runs)]
    pictures = statistics.median(one["picturesPerSecond"] for one in drags)
    gap = statistics.median(one["longestGapMs"] for one in drags)
    steps = probe("step", 20, 100, file)["ms"]
    back = probe("play", -1, 8, 30000 / 1001, recordings.source(sources.FULL_HD_30, "above"))
    held = back["shown"] / back["due"]
    return [
        row("1080p60 source, a drag across ten seconds in four", f"{pictures:.0f} pictures a second, longest gap {gap:.0f} ms",
            f"{GOAL_DRAG:.0f}", verdict(pictures >= GOAL_DRAG)),
        row("1080p60 source, step by a frame, p95", f"{p95(steps):.1f} ms", f"{GOAL_STEP:.0f} ms",
            verdict(p95(steps) <= GOAL_STEP)),
        row("1080p30 source backward, frames shown of those due", f"{held:.3f}", "30 a second: 0.99",
            verdict(held >= 0.99)),
    ]


def measure_playing(recordings, options):
    files = [recordings.source(sources.FULL_HD_30, side) for side in ("above", "below")]
    seconds = min(60, recordings.length() - 1)
    shares, dropped = [], 0
    for number in range(1, options.runs + 1):
        told = probe("play", 1, seconds, 30000 / 1001, *files)
        floor = sum(measure.run(["ffmpeg", "-v", "error", "-nostdin", "-threads", "1", "-t", seconds, "-i", file,
                                 "-map", "0:v:0", "-f", "null", "-"], LOG).cpu for file in files)
        shares.append(told["cpu"] / floor)
        dropped = max(dropped, int(told["due"] - told["shown"]))
        say(f"  run {number} of {options.runs}, playing two: cpu {told['cpu']:.1f} s over {floor:.1f} s, {dropped} dropped")
    share = statistics.median(shares)
    paused = probe("pause", 10, *files)["cpuPercent"]
    return [
        row(f"two 1080p30 sources in step for {seconds:.0f} s, frames dropped", f"{dropped}", "0", verdict(dropped == 0)),
        row("their CPU over decoding both with a null sink", f"{share:.2f}", f"{GOAL_PLAY_CPU}",
            verdict(share <= GOAL_PLAY_CPU)),
        row("paused for 10 s, CPU", f"{paused:.2f} %", f"{GOAL_PAUSED} %", verdict(paused < GOAL_PAUSED)),
    ]


def measure_memory(recordings, options):
    files = [recordings.source(sources.FULL_HD, side) for side in ("above", "below")]
    told = probe("scrub", options.scrub, *files)["mebibytes"]
    peak = max(told) * 1.048576
    half = len(told) // 2
    growth = statistics.mean(told[half:]) - statistics.mean(told[len(told) // 4:half])
    return [
        row(f"memory, both sides at 1080p60, scrubbed for {options.scrub:.0f} s", f"{peak:.0f} MB",
            f"{GOAL_MEMORY:.0f} MB", verdict(peak <= GOAL_MEMORY)),
        row("its growth from the second quarter to the second half", f"{growth * 1.048576:+.1f} MB", "flat: 10",
            verdict(growth < 10)),
    ]


CASES = {
    "proxies": measure_proxies,
    "1080p60": lambda recordings, options: measure_source(recordings, options, sources.FULL_HD, 0.75),
    "4k": lambda recordings, options: measure_source(recordings, options, sources.UHD, 0.9),
    "4k-hevc": lambda recordings, options: measure_source(recordings, options, sources.UHD_HEVC, 1.0),
    "scrubbing": measure_scrubbing,
    "playing": measure_playing,
    "memory": measure_memory,
}


def main():
    parser = argparse.ArgumentParser(prog="script/bench playback", add_help=False)
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--only", action="append", choices=CASES, default=[])
    parser.add_argument("--seconds", type=int, default=10)
    parser.add_argument("--seeks", type=int, default=40)
    parser.add_argument("--scrub", type=float, default=60)
    options = parser.parse_args()
    recordings = Recordings(options.seconds)
    rows = []
    for name in options.only or CASES:
        say(f"case {name}")
        rows += CASES[name](recordings, options)
    print(f"Playing, {datetime.date.today()}, {measure.machine()}; medians of {options.runs} runs in turn; both without "
          "a window.\n")
    print(report.table(["", "measured", "goal", ""], rows))


main()
