# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures the export against the best general command. Run by script/bench export, which tells the options."""
import argparse
import datetime
import re
import shlex
import subprocess
from pathlib import Path

import cases
import general_command
import measure
import report
import sources
from composition import GOPRO_BASE_ZOOM
from measure import say
from movie import encoder_settings, facts, psnr_luma, psnr_luma_of_planes

ROOT = Path(__file__).resolve().parent.parent
FOLDER = ROOT / "build" / "bench"
LOG = FOLDER / "last-command.log"
SAME_PRESET = "ours at the preset"
PROGRAMS = ROOT / "build" / "release" / "bench"


def our_command(renderer, case, above, below, output):
    command = [renderer, "--above", above, "--below", below, "--sync-above", "0", "--sync-below", "0",
               "--camera", "gopro"]
    for name, value in case.composition.stored_values().items():
        command += [f"--{name}", f"{float(value):.9f}"]
    return command + ["--resolution", case.resolution, "--quiet", output]


def our_lossless_command(composition, above, below, output):
    values = composition.stored_values()
    values["zoom"] += GOPRO_BASE_ZOOM
    return [PROGRAMS / "compose-lossless", above, below, composition.width, composition.height,
            *(f"{float(values[name]):.9f}" for name in ("waterline", "zoom", "blend")), output]


def recordings(case, options):
    """The two files of a case, or nothing when the real clips are not there."""
    if case.kind:
        return [sources.recording(FOLDER, case.kind, side, options.seconds) for side in ("above", "below")]
    clips = [options.footage / name for name in cases.REAL_PAIR]
    if not all(clip.exists() for clip in clips):
        say(f"no {' and '.join(cases.REAL_PAIR)} in {options.footage}: case {case.name} left out")
        return None
    return [sources.repeated(FOLDER, clip, cases.REAL_REPEATS) for clip in clips]


def floor_jobs(case, above, below, ours, lossless):
    """Each stage alone. The settings come out of our own movie, so that the floor follows the encoder."""
    c, rate = case.composition, facts(above).rate
    raw = ["ffmpeg", "-v", "error", "-nostdin", "-y", "-f", "rawvideo", "-pix_fmt", "yuv420p",
           "-s", f"{c.width}x{c.height}", "-r", str(rate), "-i", lossless]
    decode = ["ffmpeg", "-v", "error", "-nostdin", "-threads", "1"]
    return {
        "decode above": (decode + ["-i", above, "-map", "0:v:0", "-f", "null", "-"], None),
        "decode below": (decode + ["-i", below, "-map", "0:v:0", "-f", "null", "-"], None),
        "read lossless": (raw + ["-f", "null", "-"], None),
        "encode": (raw + ["-c:v", "libx264", "-b:v", f"{case.megabits}M",
                          "-profile:v", "main" if c.height <= 720 else "high",
                          "-x264-params", encoder_settings(ours, with_threads=True), "-f", "null", "-"], None),
    }


def measure_case(case, options):
    files = recordings(case, options)
    if files is None:
        return None
    above, below = files
    frames = min(facts(above).frames, facts(below).frames)
    say(f"case {case.name}: {frames} frames of {case.material}")

    ours, general, same, preset = (FOLDER / f"{name}.mp4"
                                   for name in ("ours", "general", "same-encoder", "same-preset"))
    lossless = {name: FOLDER / f"{name}-lossless.yuv" for name in ("ours", "general")}
    our_line = our_command(options.command, case, above, below, ours)
    encoding = general_command.Encoding(case.megabits)
    general_line = general_command.movie_command(case.composition, above, below, frames, encoding, general)
    try:
        measure.run(general_command.lossless_command(case.composition, above, below, frames, lossless["general"]), LOG)
        measure.run(our_lossless_command(case.composition, above, below, lossless["ours"]), LOG)
        ours.unlink(missing_ok=True)
        measure.run(our_line, LOG)  # not counted: it warms the file cache and tells our encoder's settings

        jobs = {"ours": (our_line, ours), "general": (general_line, general)}
        if case.same_encoder_goal:
            alike = general_command.Encoding(case.megabits, x264=encoder_settings(ours, with_threads=False))
            jobs["same encoder"] = (general_command.movie_command(case.composition, above, below, frames, alike, same),
                                    same)
            jobs[SAME_PRESET] = ([PROGRAMS / "export-at-preset", general_command.Encoding.preset,
                                  *our_line[1:-1], preset], preset)
        jobs |= floor_jobs(case, above, below, ours, lossless["ours"])
        costs = measure.in_turn(jobs, options.runs, LOG)
        own = {name: lossless["ours" if name in ("ours", SAME_PRESET) else "general"] for name in jobs}
        quality = {name: (psnr_luma(output, own[name], case.composition),
                          psnr_luma(output, lossless["general"], case.composition))
                   for name, (_, output) in jobs.items() if output is not None}
        agreement = psnr_luma_of_planes(lossless["ours"], lossless["general"], case.composition)
        compose = compose_milliseconds() if case is cases.FULL_HD else None
        return {"case": case, "costs": costs, "quality": quality, "compose": compose,
                "agreement": agreement, "our frames": facts.__wrapped__(ours).frames,
                "frames": frames, "megabits": ours.stat().st_size * 8e-6 * float(facts(above).rate) / frames,
                "commands": {name: line for name, (line, _) in jobs.items()}}
    finally:
        for file in (ours, general, same, preset, *lossless.values()):
            file.unlink(missing_ok=True)


def compose_milliseconds():
    """CPU for composing one 1080p frame alone."""
    kind = "1080p to 1080p"
    told = subprocess.run([PROGRAMS / "compose-bench", "--only", kind], check=True, capture_output=True, text=True)
    return float(re.search(rf"^{kind} +([\d.]+)", told.stdout, re.MULTILINE).group(1))


def measure_long(case, options):
    """Wall time and peak memory of ours over 10, 60 and 600 s of one recording repeated."""
    short = [sources.recording(FOLDER, case.kind, side, 10) for side in ("above", "below")]
    output = FOLDER / "ours.mp4"
    costs = {}
    try:
        for times in (1, 6, 60):
            files = [sources.repeated(FOLDER, file, times) if times > 1 else file for file in short]
            runs = 1 if times == 60 else options.runs
            say(f"case {case.name}, {times * 10} s")
            job = {"ours": (our_command(options.command, case, *files, output), output)}
            costs[times * 10] = measure.in_turn(job, runs, LOG)["ours"]
    finally:
        output.unlink(missing_ok=True)
    return {"case": case, "costs": costs}


def floor_of(costs):
    encode = costs["encode"].cpu - costs["read lossless"].cpu
    return costs["decode above"].cpu + costs["decode below"].cpu + encode


def case_tables(results):
    speed, floors, goals = [], [], []
    for result in results:
        case, costs, quality = result["case"], result["costs"], result["quality"]
        for name in quality:
            cost = costs[name]
            speed.append([case.name, name, f"{cost.wall:.2f}", f"{costs['ours'].wall / cost.wall:.2f}",
                          f"{cost.cpu:.2f}", f"{cost.peak:.0f}", *(f"{value:.2f}" for value in quality[name])])
        speed.append([case.name, "the two lossless compositions", "", "", "", "", "", f"{result['agreement']:.2f}"])
        floor, ours = floor_of(costs), costs["ours"]
        rest = (ours.cpu - floor) * 1000 / result["our frames"]
        floors.append([case.name, f"{costs['decode above'].cpu:.2f}", f"{costs['decode below'].cpu:.2f}",
                       f"{costs['encode'].cpu - costs['read lossless'].cpu:.2f}", f"{floor:.2f}", f"{ours.cpu:.2f}",
                       f"{ours.cpu / floor:.3f}", f"{rest:.2f} ms", str(result["our frames"]),
                       f"{result['megabits']:.1f}"])

        def goal(what, value, limit, name=case.name):
            goals.append([name, what, f"{value:.3f}", f"{limit}", report.verdict(value, limit)])
        goal("wall, ours over general", ours.wall / costs["general"].wall, case.wall_goal)
        if case.same_encoder_goal:
            goal("wall, ours over same encoder", ours.wall / costs["same encoder"].wall, case.same_encoder_goal)
            goal("wall, ours over general, both at the preset", costs[SAME_PRESET].wall / costs["general"].wall,
                 case.same_encoder_goal)
        if case.quality_goal:
            goal("PSNR-Y lost to general, dB", quality["general"][0] - quality["ours"][0], case.quality_goal)
        goal("CPU over the floor", ours.cpu / floor, cases.CPU_GOAL)
        if result["compose"] is not None:
            goal("composing a frame, ms of CPU", result["compose"], cases.COMPOSE_GOAL)
        if case.peak_goal:
            goal("peak memory, MiB", ours.peak, case.peak_goal)
    return [
        "## Speed and quality\n\n" + report.table(
            ["case", "command", "wall s", "ours over it", "CPU s", "peak MiB", "PSNR-Y to its own lossless",
             "to general's lossless"], speed),
        "## CPU against the floor\n\n" + report.table(
            ["case", "decode above s", "decode below s", "encode s", "floor s", "ours s", "ours over floor",
             "rest a frame", "our frames", "our Mbit/s"], floors),
        "## Goals\n\n" + report.table(["case", "what", "measured", "at most", ""], goals),
    ]


def long_table(result):
    case, costs = result["case"], result["costs"]
    growth = costs[600].wall / costs[60].wall
    rows = [[f"{seconds} s", f"{cost.wall:.1f}", f"{cost.cpu:.1f}", f"{cost.peak:.0f}"]
            for seconds, cost in costs.items()]
    lines = [f"## Length, {case.name}: time in proportion, memory the same", "",
             report.table(["movie", "wall s", "CPU s", "peak MiB"], rows), "",
             f"600 s took {growth:.2f} times as long as 60 s; at most {cases.LONG_TIME_GOAL}: "
             f"{report.verdict(growth, cases.LONG_TIME_GOAL)}. "
             f"Peak at 600 s is {costs[600].peak / costs[10].peak:.2f} times that at 10 s; "
             f"at most {case.peak_goal} MiB: {report.verdict(costs[600].peak, case.peak_goal)}. "
             "The 600 s were run once."]
    return "\n".join(lines)


def commands_section(results):
    lines = ["## Commands", "", "```"]
    for result in results:
        for name, command in result["commands"].items():
            lines += [f"# {result['case'].name}, {name}", shlex.join(map(str, command))]
    return "\n".join(lines + ["```"])


def parse_options():
    parser = argparse.ArgumentParser(prog="script/bench export", description=__doc__)
    parser.add_argument("--runs", type=int, default=5, help="runs of each command (default 5)")
    parser.add_argument("--seconds", type=int, default=10, help="length of the drawn recordings (default 10)")
    parser.add_argument("--only", action="append", default=[],
                        choices=[case.name for case in cases.CASES] + list(cases.LONG),
                        help="only this case; may be repeated. Without it: all but long-4k")
    parser.add_argument("--command", type=Path, default=ROOT / "build/release/tools/zumeta-render/zumeta-render",
                        help="the renderer to measure (default: the release build's)")
    parser.add_argument("--footage", type=Path, default=ROOT / "tests/footage", help="where the real clips lie")
    options = parser.parse_args()
    if options.runs < 1 or options.seconds < 1:
        parser.error("runs and seconds start at 1")
    return options


def main():
    options = parse_options()
    chosen = options.only or [case.name for case in cases.CASES] + ["long"]
    FOLDER.mkdir(parents=True, exist_ok=True)

    results = [measure_case(case, options) for case in cases.CASES if case.name in chosen]
    results = [result for result in results if result]
    long_results = [measure_long(case, options) for name, case in cases.LONG.items() if name in chosen]

    sections = [f"# Export, measured {datetime.date.today()}\n\n{measure.machine()}; "
                f"runs: {options.runs}, recordings of {options.seconds} s"]
    if results:
        sections += case_tables(results)
    sections += [long_table(result) for result in long_results]
    if results:
        sections += [report.NOTES.rstrip(), commands_section(results)]
    text = "\n\n".join(sections) + "\n"
    (FOLDER / "export.md").write_text(text)
    print(text, end="")
    say(f"also written to {FOLDER / 'export.md'}")


if __name__ == "__main__":
    main()
