#!/usr/bin/python3
"""Makes the fonts of the tests (needs python3-fonttools): bars of a known size, so that widths and ink can be told
by heart. One em is 1000 units; every letter has an advance of 600.

TavixBars-Variable.ttf: the axis wght makes the bar of each letter from 100 units wide (100) to 500 (900).
TavixSigns-Wide.ttf and TavixSigns-Narrow.ttf: fonts of one name that have a sign of the private use area, U+E7A0,
which no other font has; a bar 500 or 100 units wide.
TavixSwash-Regular.ttf: the ink of each letter reaches 300 units past both ends of its advance, high or low, by turns.
"""
import sys

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib.tables.TupleVariation import TupleVariation

ADVANCE = 600
LETTERS = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.,-"


def bar(x0, y0, x1, y1):
    pen = TTGlyphPen(None)
    pen.moveTo((x0, y0))
    pen.lineTo((x0, y1))
    pen.lineTo((x1, y1))
    pen.lineTo((x1, y0))
    pen.closePath()
    return pen.glyph()


def build(family, style, glyph_of, letters=LETTERS):
    names = [".notdef", "space"] + [f"u{ord(c):04X}" for c in letters]
    font = FontBuilder(1000, isTTF=True)
    font.setupGlyphOrder(names)
    font.setupCharacterMap({32: "space", **{ord(c): f"u{ord(c):04X}" for c in letters}})
    glyphs = {".notdef": bar(50, 0, 550, 700), "space": TTGlyphPen(None).glyph()}
    for number, letter in enumerate(letters):
        glyphs[f"u{ord(letter):04X}"] = glyph_of(number)
    font.setupGlyf(glyphs)
    font.setupHorizontalMetrics({name: (ADVANCE, getattr(glyphs[name], "xMin", 0)) for name in names})
    font.setupHorizontalHeader(ascent=800, descent=-200, lineGap=100)
    font.setupOS2(sTypoAscender=800, sTypoDescender=-200, sTypoLineGap=100, usWinAscent=800, usWinDescent=200)
    font.setupPost()
    names_of = {"familyName": family, "styleName": style, "fullName": f"{family} {style}",
                "psName": f"{family.replace(' ', '')}-{style}", "version": "1.0", "uniqueFontIdentifier": family}
    font.setupNameTable(names_of, mac=False)
    return font


def variable():
    font = build("Tavix Bars", "Variable", lambda number: bar(250, 0, 350, 700))
    font.setupFvar([("wght", 100, 100, 900, "Weight")], [])
    wider = {}
    for name in font.font.getGlyphOrder()[2:]:
        deltas = [(-200, 0), (-200, 0), (200, 0), (200, 0)] + [(0, 0)] * 4
        wider[name] = [TupleVariation({"wght": (0, 1, 1)}, deltas)]
    font.setupGvar(wider)
    return font


def swash():
    def glyph(number):
        low = 400 if number % 2 else 0
        return bar(-300, low, ADVANCE + 300, low + 300)

    return build("Tavix Swash", "Regular", glyph)


def signs(width):
    return build("Tavix Signs", "Regular", lambda number: bar(300 - width / 2, 0, 300 + width / 2, 700), "\uE7A0")


folder = sys.argv[1] if len(sys.argv) > 1 else "."
for name, font in (("TavixBars-Variable.ttf", variable()), ("TavixSwash-Regular.ttf", swash()),
                   ("TavixSigns-Wide.ttf", signs(500)), ("TavixSigns-Narrow.ttf", signs(100))):
    font.font["head"].created = font.font["head"].modified = 3800000000
    font.font.recalcTimestamp = False
    font.save(f"{folder}/{name}")
