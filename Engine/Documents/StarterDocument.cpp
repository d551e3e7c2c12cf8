#include "Engine/Documents/StarterDocument.h"

namespace tavix::engine {

std::string_view starterDocument() {
    return R"json({
  "schemaVersion": 1,
  "output": {"widthPx": 1920, "heightPx": 1080, "fps": 30},
  "background": {"kind": "image", "image": {"bundledID": "graphite"}},
  "scenes": [
    {
      "id": "card",
      "durationSec": 3,
      "layers": [
        {
          "id": "glow", "kind": "shape", "position": {"x": 960, "y": 600}, "opacity": 0.5,
          "shape": {
            "shape": "ellipse", "widthFraction": 0.46, "heightFraction": 0.62, "blurRadiusFraction": 0.16,
            "fill": {"kind": "solid", "color": {"r": 1, "g": 0.42, "b": 0.36, "a": 1}}
          },
          "enter": {
            "durationSec": 1.2, "opacity": 0, "scale": 0.7,
            "curve": {"kind": "bezier", "x1": 0.22, "y1": 1, "x2": 0.36, "y2": 1}
          }
        },
        {
          "id": "card", "kind": "shape", "fromSec": 0.2, "position": {"x": 960, "y": 540},
          "shape": {
            "widthFraction": 0.42, "heightFraction": 0.6, "cornerRadiusFraction": 0.08,
            "fill": {"kind": "solid", "color": {"r": 0.97, "g": 0.97, "b": 0.98, "a": 1}}
          },
          "enter": {
            "durationSec": 0.9, "opacity": 0, "offset": {"x": 0, "y": 0.12},
            "curve": {"kind": "bezier", "x1": 0.22, "y1": 1, "x2": 0.36, "y2": 1}
          }
        },
        {
          "id": "title", "kind": "shape", "fromSec": 0.55, "position": {"x": 828, "y": 380},
          "shape": {
            "widthFraction": 0.2, "heightFraction": 0.05, "cornerRadiusFraction": 0.5,
            "fill": {"kind": "solid", "color": {"r": 0.09, "g": 0.1, "b": 0.18, "a": 1}}
          },
          "enter": {
            "durationSec": 0.7, "opacity": 0, "offset": {"x": 0, "y": 0.05},
            "curve": {"kind": "bezier", "x1": 0.22, "y1": 1, "x2": 0.36, "y2": 1}
          }
        },
        {
          "id": "line-1", "kind": "shape", "fromSec": 0.67, "position": {"x": 943.2, "y": 470},
          "shape": {
            "widthFraction": 0.32, "heightFraction": 0.024, "cornerRadiusFraction": 0.5,
            "fill": {"kind": "solid", "color": {"r": 0.8, "g": 0.81, "b": 0.85, "a": 1}}
          },
          "enter": {
            "durationSec": 0.7, "opacity": 0, "offset": {"x": 0, "y": 0.05},
            "curve": {"kind": "bezier", "x1": 0.22, "y1": 1, "x2": 0.36, "y2": 1}
          }
        },
        {
          "id": "line-2", "kind": "shape", "fromSec": 0.79, "position": {"x": 885.6, "y": 525},
          "shape": {
            "widthFraction": 0.26, "heightFraction": 0.024, "cornerRadiusFraction": 0.5,
            "fill": {"kind": "solid", "color": {"r": 0.8, "g": 0.81, "b": 0.85, "a": 1}}
          },
          "enter": {
            "durationSec": 0.7, "opacity": 0, "offset": {"x": 0, "y": 0.05},
            "curve": {"kind": "bezier", "x1": 0.22, "y1": 1, "x2": 0.36, "y2": 1}
          }
        },
        {
          "id": "button", "kind": "shape", "fromSec": 1.1, "position": {"x": 799.2, "y": 700},
          "shape": {
            "widthFraction": 0.17, "heightFraction": 0.09, "cornerRadiusFraction": 0.5,
            "fill": {
              "kind": "gradient",
              "gradient": {
                "angleDegrees": 60,
                "stops": [
                  {"location": 0, "color": {"r": 1, "g": 0.72, "b": 0.42, "a": 1}},
                  {"location": 1, "color": {"r": 1, "g": 0.38, "b": 0.38, "a": 1}}
                ]
              }
            }
          },
          "enter": {
            "durationSec": 0.8, "opacity": 0, "scale": 0.6,
            "curve": {"kind": "spring", "response": 0.45, "damping": 0.7}
          },
          "tracks": [
            {
              "property": "scale",
              "keyframes": [
                {"t": 0.9, "value": 1},
                {"t": 1.05, "value": 0.93},
                {"t": 1.5, "value": 1, "ease": {"kind": "spring", "response": 0.35, "damping": 0.6}}
              ]
            }
          ]
        }
      ],
      "transition": {
        "style": "push", "durationSec": 0.6,
        "curve": {"kind": "bezier", "x1": 0.65, "y1": 0, "x2": 0.35, "y2": 1}
      }
    },
    {
      "id": "mark",
      "durationSec": 2.4,
      "background": {"kind": "image", "image": {"bundledID": "coral"}},
      "layers": [
        {
          "id": "ring", "kind": "shape", "fromSec": 0.3, "position": {"x": 960, "y": 540},
          "shape": {
            "shape": "ellipse", "widthFraction": 0.27, "heightFraction": 0.48,
            "fill": {"kind": "solid", "color": {"r": 1, "g": 1, "b": 1, "a": 0.3}}
          },
          "enter": {
            "durationSec": 1.1, "opacity": 0, "scale": 0.4,
            "curve": {"kind": "spring", "response": 0.55, "damping": 0.75}
          },
          "tracks": [
            {"property": "scale", "keyframes": [{"t": 0, "value": 1}, {"t": 2.1, "value": 1.12}]}
          ]
        },
        {
          "id": "disc", "kind": "shape", "fromSec": 0.45, "position": {"x": 960, "y": 540},
          "shape": {
            "shape": "ellipse", "widthFraction": 0.18, "heightFraction": 0.32,
            "fill": {"kind": "solid", "color": {"r": 1, "g": 1, "b": 1, "a": 1}}
          },
          "enter": {
            "durationSec": 1, "opacity": 0, "scale": 0.4,
            "curve": {"kind": "spring", "response": 0.45, "damping": 0.7}
          }
        },
        {
          "id": "dot", "kind": "shape", "fromSec": 0.65, "position": {"x": 960, "y": 540},
          "shape": {
            "shape": "ellipse", "widthFraction": 0.0675, "heightFraction": 0.12,
            "fill": {"kind": "solid", "color": {"r": 1, "g": 0.42, "b": 0.36, "a": 1}}
          },
          "enter": {
            "durationSec": 0.9, "opacity": 0, "scale": 0.3,
            "curve": {"kind": "spring", "response": 0.4, "damping": 0.6}
          }
        }
      ]
    }
  ]
}
)json";
}

}   // namespace tavix::engine
