# SPDX-License-Identifier: GPL-3.0-or-later
"""What the benchmarks ask of a movie: its facts, its encoder's settings, its distance from a lossless copy."""
import functools
import json
import re
import subprocess
from dataclasses import dataclass
from fractions import Fraction


@dataclass(frozen=True)
class Facts:
    width: int
    height: int
    rate: Fraction
    frames: int


@functools.cache
def facts(file):
    text = subprocess.run(
        ["ffprobe", "-v", "error", "-select_streams", "v:0", "-count_packets", "-show_entries",
         "stream=width,height,avg_frame_rate,nb_read_packets", "-of", "json", str(file)],
        check=True, capture_output=True, text=True).stdout
    stream = json.loads(text)["streams"][0]
    return Facts(stream["width"], stream["height"], Fraction(stream["avg_frame_rate"]), int(stream["nb_read_packets"]))


def psnr_luma(movie, lossless, composition):
    """Decibels between a movie and a lossless composition, over the frames that both have, paired by number."""
    return _psnr_luma(["-i", str(movie)], lossless, composition)


def psnr_luma_of_planes(one, other, composition):
    return _psnr_luma(_planes(one, composition), other, composition)


def _planes(file, composition):
    return ["-f", "rawvideo", "-pix_fmt", "yuv420p", "-s", f"{composition.width}x{composition.height}", "-i", str(file)]


def _psnr_luma(input_words, lossless, composition):
    pair = "settb=1/60,setpts=N"
    result = subprocess.run(
        ["ffmpeg", "-v", "info", "-nostdin", "-nostats", *input_words, *_planes(lossless, composition),
         "-filter_complex", f"[0:v]{pair}[a];[1:v]{pair}[b];[a][b]psnr=shortest=1", "-f", "null", "-"],
        check=True, capture_output=True, text=True)
    found = re.search(r"PSNR y:([\d.]+|inf)", result.stderr)
    if not found:
        raise RuntimeError("ffmpeg told no PSNR:\n" + result.stderr[-2000:])
    return float(found.group(1))


# Names that x264 writes into its movies and reads in a different spelling.
_RENAMED = {"mixed_ref": "mixed-refs", "me_range": "merange", "decimate": "dct-decimate", "keyint_min": "min-keyint",
            "ip_ratio": "ipratio", "pb_ratio": "pbratio"}
_AS_THEY_STAND = {"cabac", "ref", "me", "subme", "psy", "chroma_me", "trellis", "8x8dct", "fast_pskip", "bframes",
                  "b_pyramid", "b_adapt", "b_bias", "weightb", "open_gop", "weightp", "keyint", "scenecut",
                  "intra_refresh", "rc_lookahead", "mbtree", "bitrate", "ratetol", "qcomp", "qpmin", "qpmax",
                  "qpstep", "vbv_maxrate", "vbv_bufsize"}
_THREADS = {"threads", "lookahead_threads", "sliced_threads"}
_DIRECT = ["none", "spatial", "temporal", "auto"]
_INTER_PARTITIONS = {0x1: "i4x4", 0x2: "i8x8", 0x10: "p8x8", 0x20: "p4x4", 0x100: "b8x8"}


def encoder_settings(movie, with_threads):
    """The settings that x264 wrote into the movie, as parameters that give the same encoder again."""
    with open(movie, "rb") as file:
        head = file.read(16 << 20)
    found = re.search(rb"x264 - core [^\0]*?options: ([ -~]+)", head)
    if not found:
        raise RuntimeError(f"{movie} does not tell its x264 settings")
    written = dict(word.split("=", 1) for word in found.group(1).decode().split() if "=" in word)

    parameters = {name.replace("_", "-"): value for name, value in written.items()
                  if name in _AS_THEY_STAND or (with_threads and name in _THREADS)}
    parameters |= {_RENAMED[name]: value for name, value in written.items() if name in _RENAMED}
    parameters["direct"] = _DIRECT[int(written.get("direct", "1"))]
    on, _, strengths = written["deblock"].partition(":")
    parameters["deblock" if on == "1" else "no-deblock"] = strengths.replace(":", ",") if on == "1" else "1"
    parameters["psy-rd"] = written.get("psy_rd", "1.00:0.00").replace(":", ",")
    mode, _, strength = written.get("aq", "0").partition(":")
    parameters["aq-mode"] = mode
    if strength:
        parameters["aq-strength"] = strength
    inter = int(written["analyse"].partition(":")[2], 16)
    parameters["partitions"] = ",".join(n for bit, n in _INTER_PARTITIONS.items() if inter & bit) or "none"
    return ":".join(f"{name}={value}" for name, value in parameters.items())
