"""Makes Examples/first-light.tavixcomp: python3 Resources/Examples/first_light [BUNDLE]"""

import pathlib
import sys

sys.dont_write_bytecode = True   # the source tree stays clean

import assets  # noqa: E402
from document import Document  # noqa: E402

HOME = pathlib.Path(__file__).resolve().parents[3]


def main():
    bundle = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else HOME / "Examples" / "first-light.tavixcomp"
    pictures = bundle / "assets"
    pictures.mkdir(parents=True, exist_ok=True)
    assets.write_all(pictures)
    (bundle / "composition.json").write_text(Document(pictures).text())


main()
