#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Builds "Zumeta Digits": the digits of Debian's Inter (fonts-inter, OFL 1.1) with the tabular
figures made the default, because Qt 6.4 cannot switch on the font feature tnum. Needs python3-fonttools."""
import sys
from fontTools import subset
from fontTools.ttLib import TTFont

for weight in ("Regular", "Medium", "SemiBold"):
    font = TTFont(f"/usr/share/fonts/opentype/inter/Inter-{weight}.otf")
    tabular = {}
    gsub = font["GSUB"].table
    for record in gsub.FeatureList.FeatureRecord:
        if record.FeatureTag == "tnum":
            for index in record.Feature.LookupListIndex:
                for table in gsub.LookupList.Lookup[index].SubTable:
                    tabular.update(getattr(getattr(table, "ExtSubTable", table), "mapping", {}))
    for table in font["cmap"].tables:
        if table.isUnicode():
            for digit in "0123456789":
                glyph = table.cmap.get(ord(digit))
                if glyph in tabular:
                    table.cmap[ord(digit)] = tabular[glyph]
    options = subset.Options()
    options.layout_features = []
    options.name_IDs = ["*"]
    cutter = subset.Subsetter(options)
    cutter.populate(text="0123456789:.,-−+%/ ×sM")
    cutter.subset(font)
    names = {1: "Zumeta Digits", 16: "Zumeta Digits", 2: weight, 17: weight, 3: f"ZumetaDigits-{weight}-1",
             4: f"Zumeta Digits {weight}", 6: f"ZumetaDigits-{weight}"}
    for record in font["name"].names:
        record.string = names.get(record.nameID, record.toUnicode())
    top = font["CFF "].cff
    top.fontNames = [f"ZumetaDigits-{weight}"]
    top.topDictIndex[0].FullName = f"Zumeta Digits {weight}"
    top.topDictIndex[0].FamilyName = "Zumeta Digits"
    font.save(f"{sys.argv[1] if len(sys.argv) > 1 else '.'}/ZumetaDigits-{weight}.otf")
