# SPDX-License-Identifier: GPL-3.0-or-later
"""What is measured: the material, the composition and the goals."""
from dataclasses import dataclass
from fractions import Fraction

import sources
from composition import Composition

WIDER = Fraction(6, 5)


@dataclass(frozen=True)
class Case:
    name: str
    kind: sources.Kind | None  # none: the real pair of clips
    composition: Composition
    resolution: str
    megabits: int
    wall_goal: float  # our wall time over the general command's at its preset veryfast
    same_encoder_goal: float | None = None  # the same with our encoder's settings on both sides
    quality_goal: float | None = None  # decibels that ours may lose
    peak_goal: int | None = None  # MiB

    @property
    def material(self):
        return self.kind.name if self.kind else "real clips"


FULL_HD = Case("1080p", sources.FULL_HD, Composition(1920, 1080, WIDER, 570, 600), "1080p", 15,
               wall_goal=0.72, same_encoder_goal=0.93, quality_goal=0.35, peak_goal=280)
UHD = Case("4k", sources.UHD, Composition(3840, 2160, WIDER, 1140, 1200), "4K", 35, wall_goal=0.95, peak_goal=800)

CASES = [
    FULL_HD,
    Case("4k-to-1080p", sources.UHD, Composition(1920, 1080, WIDER, 570, 600), "1080p", 15, wall_goal=0.82),
    Case("1440-to-960p", sources.FOUR_BY_THREE, Composition(960, 720, WIDER, 400, 420), "960p", 6, wall_goal=0.82),
    Case("1440-to-1440p", sources.FOUR_BY_THREE, Composition(1440, 1080, WIDER, 600, 630), "1440p", 12, wall_goal=0.82),
    Case("1080-to-720p", sources.FULL_HD, Composition(1280, 720, WIDER, 380, 400), "720p", 8, wall_goal=0.82),
    UHD,
    # Portrait clips of 1088x1920 fall on even pixels only without extra zoom.
    Case("real", None, Composition(1920, 1080, Fraction(1), 570, 600), "1080p", 15,
         wall_goal=0.72, same_encoder_goal=0.93, quality_goal=0.35, peak_goal=280),
]
REAL_PAIR = ("cam01.mp4", "cam03.mp4")
REAL_REPEATS = 6  # a hundred frames at 60 a second are too short to time

# One recording, so many times over: does time grow in proportion, and memory not at all?
LONG = {"long": FULL_HD, "long-4k": UHD}
LONG_TIME_GOAL = 10.5  # 600 s against 60 s
CPU_GOAL = 1.05  # over the floor
COMPOSE_GOAL = 0.9  # milliseconds of CPU a 1080p frame
