# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures the making of a proxy against the best general command at the same settings, and what finding one costs."""
import argparse
import datetime
import itertools
import shlex
import shutil
import statistics
import subprocess
import sys
from pathlib import Path

import measure
import report
import sources
from measure import say
from movie import facts

ROOT = Path(__file__).resolve().parent.parent
FOLDER = ROOT / "build/bench"
LOG = FOLDER / "proxies.log"
KINDS = {"1080p60": sources.FULL_HD, "4k30": sources.UHD}
WALL_GOAL = 0.93
REAL_TIME_GOAL = 1.7
HIT_GOAL = 20  # milliseconds
HITS = 50
RIVALS_OF_A_KIND = 2  # that are measured as often as we are
WITHOUT_FILTER = ", no loop filter"
# A proxy is made behind everything else; whatever else runs must hold back all commands alike.
PRIORITY = ["nice", "-n", "10"]


def general_commands(source, output):
    """Commands that make the same movie, by name: what could be faster is tried, and the best is the rival."""
    scalers = {"fast bilinear": "scale=1280:720:flags=fast_bilinear", "bilinear": "scale=1280:720:flags=bilinear",
               "area": "scale=1280:720:flags=area"}
    filters = subprocess.run(["ffmpeg", "-v", "error", "-filters"], check=True, capture_output=True, text=True).stdout
    if " zscale " in filters:
        scalers["zimg bilinear"] = "zscale=1280:720:filter=bilinear"
    threads = {"": ([], []), ", 2 and 2 threads": (["-threads", 2], ["-threads", 2])}
    # We skip the decoder's loop filter where the picture is made smaller: the rival may do so as well.
    filtering = {"": [], WITHOUT_FILTER: ["-skip_loop_filter", "all"]}
    commands = {}
    for (scaler, words), (note, (decoding, encoding)), (filtered, skipping) in itertools.product(
            scalers.items(), threads.items(), filtering.items()):
        commands[f"{scaler}{note}{filtered}"] = [
            *PRIORITY, "ffmpeg", "-v", "error", "-nostdin", "-y", *decoding, *skipping,
            "-i", source, "-map", "0:v:0", "-map", "0:a:0?", "-vf", words, "-pix_fmt", "yuv420p",
            "-c:v", "libx264", "-preset", "ultrafast", "-tune", "fastdecode", "-crf", 28, "-g", 1, "-bf", 0,
            *encoding, "-c:a", "aac", "-ar", 44100, "-ac", 2, "-b:a", "128k", "-movflags", "+faststart", output]
    return commands


def our_command(program, source, folder):
    # A new folder each time: a proxy that is there would only be found.
    script = 'rm -rf "$2" && exec "$0" "$1" "$2/Proxies"'
    return [*PRIORITY, "sh", "-c", script, program, source, folder]


def measure_kind(kind, options):
    source = sources.recording(FOLDER, kind, "above", options.seconds)
    folder, output = FOLDER / "proxies", FOLDER / "general-proxy.mp4"
    ours = our_command(options.command, source, folder)
    commands = general_commands(source, output)
    try:
        measure.run(ours, LOG)  # not counted: it warms the file cache
        say(f"{kind.name}: {len(commands)} general commands, once each")
        first = {name: measure.run(command, LOG) for name, command in commands.items()}
        rivals = [name for skips in (False, True) for name in best_of(first, skips)[:RIVALS_OF_A_KIND]]
        jobs = {"ours": (ours, None)} | {name: (commands[name], output) for name in rivals}
        costs = measure.in_turn(jobs, options.runs, LOG)
        hits = hit_milliseconds(options.command, source, folder)
        return {"kind": kind, "source": source, "first": first, "costs": costs, "rivals": rivals, "hits": hits,
                "commands": {"ours": ours} | {name: commands[name] for name in rivals}}
    finally:
        shutil.rmtree(folder, ignore_errors=True)
        output.unlink(missing_ok=True)


def best_of(costs, skips_filter):
    """Names of the general commands that skip the loop filter, or that do not, the fastest first."""
    names = [name for name in costs if name != "ours" and name.endswith(WITHOUT_FILTER) == skips_filter]
    return sorted(names, key=lambda name: costs[name].wall)


def hit_milliseconds(program, source, folder):
    """Each asked of a program that has just found the proxy; the first finding of a new process is its start-up too."""
    told = subprocess.run([program, source, folder / "Proxies", str(HITS)], check=True, capture_output=True, text=True)
    return sorted(float(line) for line in told.stdout.splitlines()[1:])


def tables(results):
    speed, goals, tried = [], [], []
    for result in results:
        kind, costs = result["kind"], result["costs"]
        length = facts(result["source"]).frames / float(facts(result["source"]).rate)
        for name, cost in costs.items():
            speed.append([kind.name, name, f"{cost.wall:.2f}", f"{costs['ours'].wall / cost.wall:.2f}",
                          f"{cost.cpu:.2f}", f"{length / cost.wall:.2f}", f"{cost.peak:.0f}"])
        for name, cost in result["first"].items():
            tried.append([kind.name, name, f"{cost.wall:.2f}", f"{cost.cpu:.2f}"])
        real_time = length / costs["ours"].wall
        for skips, what in ((False, "the best general command"), (True, "the best one without the loop filter")):
            ratio = costs["ours"].wall / costs[best_of(costs, skips)[0]].wall
            goals.append([kind.name, f"wall, ours over {what}", f"{ratio:.3f}", f"at most {WALL_GOAL}",
                          report.verdict(ratio, WALL_GOAL)])
        if kind is sources.FULL_HD:
            goals.append([kind.name, "times real time", f"{real_time:.2f}", f"at least {REAL_TIME_GOAL}",
                          "met" if real_time >= REAL_TIME_GOAL else f"missed by {REAL_TIME_GOAL - real_time:.2f}"])
        hits = result["hits"]
        late = hits[len(hits) * 95 // 100]
        goals.append([kind.name, f"finding a proxy, 95 of 100, ms (median {statistics.median(hits):.2f}, worst "
                      f"{hits[-1]:.2f})", f"{late:.2f}", f"under {HIT_GOAL}", report.verdict(late, HIT_GOAL)])
    return [
        "## Speed\n\n" + report.table(
            ["source", "command", "wall s", "ours over it", "CPU s", "times real time", "peak MiB"], speed),
        "## Goals\n\n" + report.table(["source", "what", "measured", "goal", ""], goals),
        "## General commands tried, once each\n\n" + report.table(["source", "command", "wall s", "CPU s"], tried),
    ]


def commands_section(results):
    lines = ["## Commands", "", "```"]
    for result in results:
        for name, command in result["commands"].items():
            lines += [f"# {result['kind'].name}, {name}", shlex.join(map(str, command))]
    return "\n".join(lines + ["```"])


def parse_options():
    parser = argparse.ArgumentParser(prog="script/bench proxies", description=__doc__)
    parser.add_argument("--runs", type=int, default=5, help="runs of each command (default 5)")
    parser.add_argument("--seconds", type=int, default=10, help="length of the drawn recordings (default 10)")
    parser.add_argument("--only", action="append", default=[], choices=list(KINDS), help="only this kind of source")
    parser.add_argument("--command", type=Path, default=ROOT / "build/release/tools/make-proxy/make-proxy",
                        help="the program to measure (default: the release build's make-proxy)")
    options = parser.parse_args()
    if options.runs < 1 or options.seconds < 1:
        parser.error("runs and seconds start at 1")
    return options


def main():
    options = parse_options()
    FOLDER.mkdir(parents=True, exist_ok=True)
    results = [measure_kind(kind, options) for name, kind in KINDS.items() if not options.only or name in options.only]
    text = "\n\n".join([
        f"# Proxies, measured {datetime.date.today()}\n\n{measure.machine()}; runs: {options.runs}, "
        f"recordings of {options.seconds} s; all commands at the same low priority, in turn; medians",
        *tables(results), commands_section(results)]) + "\n"
    (FOLDER / "proxies.md").write_text(text)
    print(text, end="")
    say(f"also written to {FOLDER / 'proxies.md'}")


if __name__ == "__main__":
    sys.exit(main())
