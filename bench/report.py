# SPDX-License-Identifier: GPL-3.0-or-later
"""The tables that a benchmark of the export prints, as Markdown."""


def table(heads, rows):
    lines = ["| " + " | ".join(heads) + " |", "|" + "---|" * len(heads)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows])


def verdict(value, goal):
    if value <= goal:
        return "met"
    # Signed goals exist (a loss in decibels may be negative), so the miss is told in the goal's own unit.
    return f"missed by {value - goal:.2f}" + (f" ({(value / goal - 1) * 100:.0f} %)" if goal > 0 else "")


NOTES = """\
How to read this:

- Every number is the median of the runs told above. The commands of a case ran in turn, so that what disturbs the
  machine disturbs all of them alike; "same encoder" is the general command with the x264 settings that our movie
  carries, on as many threads as it likes.
- CPU is user and system time of all threads, peak is the largest resident memory, both from the kernel's account of
  the process.
- PSNR-Y, in decibels, is taken over the frames that both have, paired by number. A movie's own lossless is what its
  program hands to the encoder: compose-lossless writes ours, the general command's graph the other. Each composition
  is chosen so that its cuts fall on even pixels, so both programs compose the same picture; how far the two lossless
  compositions agree stands below them: what is left is the scaling kernel. The goal compares each movie to its own;
  against the general command's composition our kernel's difference counts as a loss.
- The floor is what cannot be saved: decoding the above recording alone and the below one alone, each on one thread,
  and encoding the lossless composition alone with our own x264 settings, less the time for reading it.
- "Rest a frame" is our CPU less the floor, over the frames: composing, and also sound, file handling and waiting.
  Composing alone is measured by compose-bench, on one thread.
"""
