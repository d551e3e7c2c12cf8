"""Pictures side by side with rounded corners, for the documentation: film_strip.py OUT HEIGHT PICTURE..."""

import sys

from PIL import Image, ImageDraw, ImageOps

GAP, RATIO = 20, 9 / 16


def corners(size, radius):
    """A mask drawn four times as large, so that its edge is smooth."""
    mask = Image.new("L", (size[0] * 4, size[1] * 4))
    ImageDraw.Draw(mask).rounded_rectangle((0, 0, mask.width - 1, mask.height - 1), radius * 4, fill=255)
    return mask.resize(size, Image.LANCZOS)


def main(out, height, *pictures):
    size = (round(int(height) * RATIO), int(height))
    strip = Image.new("RGB", (len(pictures) * (size[0] + GAP) - GAP, size[1]), "white")
    for i, path in enumerate(pictures):
        with Image.open(path) as picture:
            fitted = ImageOps.fit(picture.convert("RGB"), size, Image.LANCZOS)
        strip.paste(fitted, (i * (size[0] + GAP), 0), corners(size, size[1] // 22))
    strip.save(out, quality=90)


main(*sys.argv[1:])
