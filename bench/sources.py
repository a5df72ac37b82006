# SPDX-License-Identifier: GPL-3.0-or-later
"""Recordings for the benchmarks: pictures that cost real bits, as an action camera's do, drawn once and kept.

A rich texture pans under a moving test card, and grain that no encoder can predict lies over both; a tone over noise
is the sound. Longer recordings repeat a short one without encoding it again.
"""
import subprocess
from dataclasses import dataclass
from fractions import Fraction
from pathlib import Path

from measure import say


@dataclass(frozen=True)
class Kind:
    name: str
    width: int
    height: int
    rate: str
    megabits: int
    key_frames: int
    codec: str = "h264"

    def frames(self, seconds):
        return int(Fraction(self.rate) * seconds)


FULL_HD = Kind("1080p60", 1920, 1080, "60000/1001", 45, 30)
FULL_HD_30 = Kind("1080p30", 1920, 1080, "30000/1001", 25, 15)
UHD = Kind("4k30", 3840, 2160, "30000/1001", 60, 15)
UHD_HEVC = Kind("4k30-hevc", 3840, 2160, "30000/1001", 60, 30, "hevc")
FOUR_BY_THREE = Kind("1440p30", 1920, 1440, "30000/1001", 45, 15)

# What tells the two cameras apart: the texture, and the phase of every movement.
_SIDES = {"above": ("0.3", 3, 0.4), "below": ("0.12", 11, 1.9)}


def _ffmpeg(*words):
    subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-y", *map(str, words)], check=True)


def _finished(path, make):
    """A file appears under its name only when it is whole: an interrupted run leaves nothing that passes for one."""
    if not path.exists():
        path.parent.mkdir(parents=True, exist_ok=True)
        part = path.with_name("unfinished-" + path.name)
        say(f"making {path.name}")
        make(part)
        part.rename(path)
    return path


def _texture(folder, side):
    zoom, seed, _ = _SIDES[side]
    return _finished(folder / f"texture-{side}.png", lambda part: _ffmpeg(
        "-f", "lavfi", "-i", f"mandelbrot=s=3840x2160:start_scale={zoom}:end_scale={zoom}", "-frames:v", 1,
        "-vf", f"noise=alls=24:all_seed={seed},gblur=0.8", part))


def _encoder(kind):
    if kind.codec == "hevc":
        return ["-c:v", "libx265", "-preset", "ultrafast", "-b:v", f"{kind.megabits}M", "-tag:v", "hvc1",
                "-x265-params", f"keyint={kind.key_frames}:bframes=0:log-level=1"]
    most = f"{kind.megabits * 4 // 3}M"
    return ["-c:v", "libx264", "-preset", "veryfast", "-profile:v", "high", "-bf", 0, "-g", kind.key_frames,
            "-b:v", f"{kind.megabits}M", "-maxrate", most, "-bufsize", most]


def recording(folder, kind, side, seconds):
    """The file of one side."""
    phase = _SIDES[side][2]
    texture = _texture(folder, side)
    # The pan needs room on every side, and the texture has no more than 4K.
    seen_width, seen_height = (min(3456, kind.width * 3 // 2), min(1944, kind.height * 3 // 2))
    if kind.width * 3 == kind.height * 4:
        seen_width = seen_height * 4 // 3
    graph = ";".join([
        "[0]scale=out_color_matrix=bt709:out_range=tv,format=yuv420p,loop=-1:1,"
        f"settb=1/({kind.rate}),setpts=N,fps={kind.rate},"
        f"crop={seen_width}:{seen_height}:x='(iw-ow)*(0.5+0.45*sin(0.65*t+{phase}))'"
        f":y='(ih-oh)*(0.5+0.42*sin(0.85*t+2*{phase})+0.01*sin(29*t))':exact=1,"
        f"scale={kind.width}:{kind.height}:flags=bilinear[water]",
        f"[water][1]overlay=x='mod(91*t+110*{phase},W-w)':y='mod(57*t,H-h)',"
        "noise=c0s=7:c0f=t:c1s=3:c1f=t,format=yuv420p[picture]",
        "[2][3]amix=2,aformat=channel_layouts=stereo[sound]",
    ])
    frames = kind.frames(seconds)
    return _finished(folder / f"{kind.name}-{side}-{seconds}s.mp4", lambda part: _ffmpeg(
        "-i", texture, "-f", "lavfi", "-i", f"testsrc2=s=640x360:r={kind.rate}",
        "-f", "lavfi", "-i", "sine=f=440:r=48000:b=2", "-f", "lavfi", "-i", "anoisesrc=r=48000:a=0.1:c=pink",
        "-filter_complex", graph, "-map", "[picture]", "-map", "[sound]", "-frames:v", frames,
        "-t", f"{float(frames / Fraction(kind.rate)):.6f}",
        *_encoder(kind), "-c:a", "aac", "-b:a", "192k", "-colorspace", "bt709", "-color_primaries", "bt709",
        "-color_trc", "bt709",
        "-color_range", "tv", part))


def repeated(folder, file, times):
    """The recording so many times over, its packets copied."""
    file = Path(file)
    return _finished(folder / f"{file.stem}-x{times}.mp4", lambda part: _ffmpeg(
        "-stream_loop", times - 1, "-i", file, "-map", "0:v:0", "-map", "0:a:0?", "-c", "copy", part))
