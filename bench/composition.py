# SPDX-License-Identifier: GPL-3.0-or-later
"""One composite's geometry, told to Zumeta in its values and to a general tool in crops and rows.

The general tool can only cut whole, even pixels. Every measured composition is therefore chosen so that its cuts fall
on such pixels: then both programs compose the same picture, apart from the kernel with which they scale.
"""
from dataclasses import dataclass
from fractions import Fraction

REFERENCE_HEIGHT = 600
GOPRO_BASE_ZOOM = 22


@dataclass(frozen=True)
class Cut:
    width: int
    height: int
    x: int
    y: int

    def filter(self):
        return f"crop={self.width}:{self.height}:{self.x}:{self.y}"


@dataclass(frozen=True)
class Composition:
    width: int
    height: int
    scale: Fraction  # of the above picture
    band_top: int  # rows from the top: the above picture alone ends here
    band_bottom: int  # rows from the top: the below picture alone begins here

    def above_cut(self, source_width, source_height):
        """The part of the above picture that is seen, from the top down to the band's bottom."""
        return self._cut(source_width, source_height, self.scale, self.band_bottom)

    def below_cut(self, source_width, source_height):
        return self._cut(source_width, source_height, Fraction(1), self.height)

    def _cut(self, source_width, source_height, scale, rows):
        factor = max(Fraction(self.width, source_width), Fraction(self.height, source_height)) * scale
        parts = (self.width / factor, rows / factor,
                 (source_width - self.width / factor) / 2, (source_height - self.height / factor) / 2)
        if any(part.denominator != 1 or part % 2 for part in parts):
            raise ValueError(f"the cut of {source_width}x{source_height} is not on even pixels: "
                             + ", ".join(str(part) for part in parts))
        return Cut(*(int(part) for part in parts))

    def stored_values(self):
        """The same geometry as a project stores it; the zoom without the camera's base."""
        unit = self.scale * self.height / REFERENCE_HEIGHT
        water_from_bottom = self.height - Fraction(self.band_top + self.band_bottom, 2)
        return {
            "waterline": water_from_bottom / unit,
            "zoom": (self.scale - 1) * 100 - GOPRO_BASE_ZOOM,
            "blend": (self.band_bottom - self.band_top) / unit,
        }
