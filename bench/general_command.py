# SPDX-License-Identifier: GPL-3.0-or-later
"""The composite as a good general ffmpeg command makes it: what the export is measured against.

The fastest form known: the above picture is cut to what is seen of it and scaled once, its opacity is one mask made for
the first frame and repeated, and one overlay joins the two. Frames pair by their number, whatever their time stamps.
"""
from dataclasses import dataclass

from movie import facts


@dataclass(frozen=True)
class Encoding:
    megabits: int
    preset: str = "veryfast"
    x264: str = ""  # further parameters, as ffmpeg's -x264-params takes them


def filter_graph(composition, above, below):
    """The graph from the two inputs to [joined]."""
    c, rate = composition, above.rate
    number = f"settb=1/({rate}),setpts=N"
    band = c.band_bottom - c.band_top
    opacity = f"255*clip(({c.band_bottom}-Y-0.5)/{band},0,1)"

    below_steps = [number]
    below_cut = c.below_cut(below.width, below.height)
    if (below_cut.width, below_cut.height) != (below.width, below.height):
        below_steps.append(below_cut.filter())
    if (below_cut.width, below_cut.height) != (c.width, c.height):
        below_steps.append(f"scale={c.width}:{c.height}:flags=bicubic")

    return ";".join([
        f"[0:v]{number},{c.above_cut(above.width, above.height).filter()},"
        f"scale={c.width}:{c.band_bottom}:flags=bicubic[seen]",
        f"nullsrc=s={c.width}x{c.band_bottom}:r={rate},format=gray,trim=end_frame=1,geq=lum='{opacity}',"
        f"loop=-1:1,{number}[mask]",
        "[seen][mask]alphamerge[above]",
        f"[1:v]{','.join(below_steps)}[below]",
        "[below][above]overlay=0:0:format=yuv420:shortest=1[joined]",
    ])


def _start(composition, above_file, below_file, frames):
    graph = filter_graph(composition, facts(above_file), facts(below_file))
    return ["ffmpeg", "-v", "error", "-nostdin", "-y", "-i", str(above_file), "-i", str(below_file),
            "-filter_complex", graph, "-frames:v", str(frames), "-map", "[joined]", "-fps_mode", "passthrough"]


def movie_command(composition, above_file, below_file, frames, encoding, output):
    """Makes the movie, with the sound of the above file where there is one."""
    seconds = float(frames / facts(above_file).rate)
    command = _start(composition, above_file, below_file, frames)
    command += ["-map", "0:a?", "-t", f"{seconds:.6f}",
                "-c:v", "libx264", "-preset", encoding.preset, "-b:v", f"{encoding.megabits}M", "-g", "30", "-bf", "2",
                "-profile:v", "main" if composition.height <= 720 else "high", "-pix_fmt", "yuv420p"]
    if encoding.x264:
        command += ["-x264-params", encoding.x264]
    return command + ["-c:a", "aac", "-ar", "44100", "-ac", "2", "-b:a", "128k", str(output)]


def lossless_command(composition, above_file, below_file, frames, output):
    """The composition before any encoding, as bare planes."""
    return _start(composition, above_file, below_file, frames) + ["-pix_fmt", "yuv420p", "-f", "rawvideo", str(output)]
