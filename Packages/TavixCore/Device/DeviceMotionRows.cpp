#include "TavixCore/Device/DeviceMotionRows.h"

#include "TavixCore/Device/DeviceMotionFrame.h"

#include <algorithm>

namespace tavix {
namespace {

using enum DeviceMotionCategory;

constexpr bool flat = false, inSpace = true;

// Name, title, category, seconds, space, frames; then the words of menus and the catalog's own id where they
// differ. Where a recipe bears the name too, the frames are not played: the recipe is.
constexpr DeviceMotionRow rows[] = {
    {"rise-up", "Rise Up", entrance, 1, flat, "0: y 180; 1: rest"},
    {"rise-soft", "Rise Soft", entrance, 1.2, flat, "0: y 180; 0.7: y -6; 1: rest"},
    {"rise-spin", "Rise Spin", entrance, 1.3, flat, "0: y 190, rz -360; 1: rest"},
    {"rise-yaw360", "Rise Yaw 360", entrance, 1.4, inSpace, "0: y 190, ry -360; 1: rest"},
    {"reveal", "Reveal Turn", entrance, 2.4, inSpace,
        "0: y 180, ry 105; 0.45: ry 230; 0.62: ry 230; 0.88: y 9, ry 360, sx 1.1, sy 1.1; 1: y 9, ry 360, sx "
        "1.1, sy 1.1",
        "Reveal — rise + turn to front", "reveal-turn"},
    {"lay-rise", "Lay Rise", entrance, 1.6, inSpace,
        "0: y 58, rx 76, sx 0.9, sy 0.9; 0.3: y 52, rx 76, sx 1.02, sy 1.02; 1: rest"},
    {"heroRise", "Lay Rise Spin", entrance, 2.9, inSpace,
        "0: y 58, rx 76, sx 0.92, sy 0.92; 0.35: y 50, rx 62; 1: ry 360, sx 1.06, sy 1.06",
        "Hero rise — lie back, rise with a full spin", "lay-rise-spin"},
    {"spinIn", "Corner Right Twirl", entrance, 1.5, inSpace,
        "0: x 200, y 150, ry -337, sx 1.9, sy 1.9; 0.55: x 60, y 45, ry -337, sx 1.35, sy 1.35; 1: rest",
        "Spin-in — twirl up to center", "corner-rb-twirl"},
    {"corner-lb", "Corner Left", entrance, 1.1, flat, "0: x -200, y 160, rz -24, sx 1.25, sy 1.25; 1: rest"},
    {"dollyHero", "Dolly In", entrance, 2.5, inSpace, "0: z -340, ry -22; 1: z 60, ry -12",
        "Dolly hero — perspective push-in", "dolly-in"},
    {"drop-bounce", "Drop Bounce", entrance, 1.3, flat,
        "0: y -190; 0.55: rest; 0.72: y -16; 0.86: rest; 0.94: y -5; 1: rest"},
    {"drop-heavy", "Drop Heavy", entrance, 1.2, flat,
        "0: y -190, sx 1.02, sy 0.98; 0.6: rest; 0.68: sx 1.08, sy 0.9; 0.82: y -8, sx 0.98, sy 1.04; 1: "
        "rest"},
    {"slide-left", "Slide Left", entrance, 0.9, flat, "0: x -220; 1: rest"},
    {"slide-right-lean", "Slide Right Lean", entrance, 1.1, flat,
        "0: x 220, rz 9; 0.7: x -6, rz -3; 1: rest"},
    {"zoom-in", "Zoom In", entrance, 1, flat, "0: sx 0.04, sy 0.04, o 0; 0.4: sx 0.04, sy 0.04; 1: rest"},
    {"zoom-overshoot", "Zoom Overshoot", entrance, 1, flat,
        "0: sx 0.05, sy 0.05; 0.75: sx 1.12, sy 1.12; 1: rest"},
    {"pop-elastic", "Pop Elastic", entrance, 1, flat,
        "0: sx 0, sy 0; 0.55: sx 1.18, sy 1.18; 0.72: sx 0.94, sy 0.94; 0.86: sx 1.04, sy 1.04; 1: rest"},
    {"jelly-in", "Jelly In", entrance, 1.1, flat,
        "0: rz 8, sx 0, sy 0; 0.45: rz -4, sx 1.15, sy 0.85; 0.62: rz 2, sx 0.9, sy 1.12; 0.78: sx 1.06, sy "
        "0.95; 1: rest"},
    {"fade-rise", "Fade Rise", entrance, 0.9, flat, "0: y 26, o 0; 1: rest"},
    {"blur-in", "Blur In", entrance, 1, flat, "0: sx 1.12, sy 1.12, o 0, b 14; 1: rest"},
    {"materialize", "Materialize", entrance, 1.1, flat,
        "0: sx 1.35, sy 1.35, o 0, b 10; 0.6: sx 1.35, sy 1.35, b 10; 1: rest"},
    {"flip-in-x", "Flip In X", entrance, 0.9, inSpace, "0: rx 88, o 0; 0.45: rx 88; 1: rest"},
    {"flip-in-y", "Flip In Y", entrance, 0.9, inSpace, "0: ry -92, o 0; 0.4: ry -92; 1: rest"},
    {"door-in", "Door In", entrance, 1, inSpace, "0: ry -100, o 0.2; 1: rest"},
    {"billboard-flip", "Billboard Flip", entrance, 1.4, inSpace,
        "0: ry 90, sx 0.8, sy 0.8, o 0; 0.4: sx 0.8, sy 0.8; 0.7: sx 0.8, sy 0.8; 1: rest"},
    {"swing-drop", "Swing Drop", entrance, 1.3, flat,
        "0: y -170, rz 24; 0.55: rz -12; 0.75: rz 7; 0.9: rz -3; 1: rest"},
    {"pendulum-in", "Pendulum In", entrance, 1.3, flat,
        "0: x -190, rz -28; 0.5: x 14, rz 12; 0.75: x -6, rz -5; 1: rest"},
    {"roll-in", "Roll In", entrance, 1.2, flat, "0: x -230, rz -450; 1: rest"},
    {"cartwheel", "Cartwheel", entrance, 1.2, flat, "0: x 220, rz 360, sx 0.8, sy 0.8; 1: rest"},
    {"kick-flip", "Kick Flip", entrance, 1.4, flat,
        "0: y 170, rz 24; 0.45: y -26, rz -370; 0.7: y 8, rz -358; 1: rz -360"},
    {"helix-up", "Helix Up", entrance, 1.5, inSpace, "0: y 190, ry -720, sx 0.7, sy 0.7; 1: rest"},
    {"spiral-in", "Spiral In", entrance, 1.5, flat,
        "0: x 160, y -140, rz 200, sx 0.2, sy 0.2, o 0; 0.25: x 160, y -140, rz 200, sx 0.2, sy 0.2; 0.6: x "
        "-50, y 40, rz 60, sx 0.75, sy 0.75; 1: rest"},
    {"float-drift", "Float Drift", entrance, 1.6, flat,
        "0: x -14, y 170, o 0; 0.3: x -14, y 170; 0.6: x 8, y 24; 1: rest"},
    {"slingshot", "Slingshot", entrance, 0.9, flat,
        "0: x -40, sx 0.9, sy 0.9, o 0; 0.35: x -72, sx 0.92, sy 0.92; 1: rest"},
    {"elastic-side", "Elastic Side", entrance, 1, flat,
        "0: x 220, sx 1.35; 0.6: x -12, sx 0.9; 0.8: x 5, sx 1.04; 1: rest"},
    {"rubber-entry", "Rubber Entry", entrance, 1, flat,
        "0: x 230, sx 1.8, sy 0.85; 0.55: x -10, sx 0.85, sy 1.1; 0.75: x 4, sx 1.06; 1: rest"},
    {"peek-enter", "Peek Enter", entrance, 1.5, flat, "0: y 180; 0.25: y 96; 0.45: y 122; 1: rest"},
    {"tilt-land", "Tilt Land", entrance, 1.2, inSpace,
        "0: y -60, z 220, rx 38, o 0; 0.4: y -60, z 220, rx 38; 1: rest"},
    {"dive-from-cam", "Dive From Cam", entrance, 1.2, inSpace,
        "0: y -130, z 420, rx -32, o 0; 0.3: y -130, z 420, rx -32; 1: rest"},
    {"skew-slide", "Skew Slide", entrance, 1, flat, "0: x -220, kx -16; 0.75: x 8, kx 5; 1: rest"},
    {"stretch-drop", "Stretch Drop", entrance, 1.1, flat,
        "0: y -180, sx 0.8, sy 1.6; 0.6: rest; 0.74: sx 1.14, sy 0.82; 0.88: sx 0.97, sy 1.06; 1: rest"},
    {"shutter-steps", "Shutter Steps", entrance, 1.3, flat,
        "0: y 180; 0.25: y 120; 0.4: y 120; 0.6: y 56; 0.72: y 56; 1: rest"},
    {"typewriter-steps", "Typewriter Steps", entrance, 1.3, flat,
        "0: x -200; 0.3: x -116; 0.42: x -116; 0.62: x -48; 0.72: x -48; 1: rest"},
    {"gravity-3bounce", "Gravity Three-Bounce", entrance, 1.7, flat,
        "0: y -190; 0.42: rest; 0.58: y -42; 0.72: rest; 0.83: y -16; 0.92: rest; 0.97: y -5; 1: rest"},
    {"glitch-in", "Glitch In", entrance, 1, flat,
        "0: x -160, o 0; 0.2: x 30; 0.3: x -18, y 4; 0.42: x 12, y -3; 0.55: x -6; 0.7: x 3; 1: rest"},
    {"snap-pop", "Snap Pop", entrance, 1.1, flat,
        "0: sx 0, sy 0, o 0; 0.08: rest; 0.16: rest; 0.24: sx 1.06, sy 1.06; 1: rest"},
    {"rise-facedown-flip", "Rise Facedown Flip", entrance, 1.4, inSpace,
        "0: y 180, rx -70; 0.5: y 24, rx -70; 1: rest"},
    {"wave-ride", "Wave Ride", entrance, 1.4, flat,
        "0: x -220, y 20, rz -8; 0.33: x -110, y -18, rz 6; 0.66: x -36, y 12, rz -4; 1: rest"},
    {"moon-arc", "Moon Arc", entrance, 1.5, flat,
        "0: x -220, y 60, rz -22, sx 0.7, sy 0.7, o 0; 0.15: x -220, y 60, rz -22, sx 0.7, sy 0.7; 0.55: x "
        "-40, y -92, rz 6, sx 0.9, sy 0.9; 1: rest"},
    {"arc-over", "Arc Over", entrance, 1.2, flat,
        "0: x -210, y -140, rz -40; 0.55: x -40, y -60, rz -12; 1: rest"},
    {"orbit-in", "Orbit In", entrance, 1.2, flat,
        "0: x -190, sx 0.5, sy 0.5, o 0; 0.2: x -190, sx 0.5, sy 0.5; 1: rest"},
    {"tumble-diag", "Tumble Diag", entrance, 1.7, inSpace,
        "0: x -190, y 150, rx 30, ry -160, sx 0.6, sy 0.6, o 0; 0.2: x -190, y 150, rx 30, ry -160, sx 0.6, "
        "sy 0.6; 0.6: x 10, y -10, rx -8, ry -20; 1: rest"},
    {"seesaw-land", "Seesaw Land", entrance, 1.5, flat,
        "0: y -180, rz 18; 0.45: rz 18; 0.7: rz -10; 0.88: rz 4; 1: rest"},
    {"edge-balance", "Edge Balance", entrance, 1.6, flat,
        "0: y 170, rz -90; 0.45: y 6, rz -90; 0.7: rz -45; 1: rest"},
    {"drop-roll-stand", "Drop Roll Stand", entrance, 1.5, flat,
        "0: y -180, rz 90; 0.4: rz 90; 0.7: rz 24; 0.88: rz -8; 1: rest"},
    {"sink-down", "Sink Down", exit, 0.8, flat, "0: rest; 1: y 200"},
    {"fall-back", "Fall Back", exit, 1, inSpace, "0: rest; 0.3: rx 14; 1: y 140, z -200, rx 68, o 0"},
    {"fly-up", "Fly Up", exit, 0.9, flat, "0: rest; 0.4: y 12, sx 0.98, sy 0.98; 1: y -230"},
    {"blast-off", "Blast Off", exit, 0.9, flat, "0: rest; 0.2: y 14, sy 0.92; 1: y -240, sy 1.25, b 2"},
    {"zoom-out-fade", "Zoom Out Fade", exit, 0.9, flat, "0: rest; 1: sx 0.03, sy 0.03, o 0"},
    {"shrink-corner", "Shrink Corner", exit, 0.9, flat, "0: rest; 1: x 180, y 130, sx 0.05, sy 0.05, o 0"},
    {"recede-away", "Recede Away", exit, 1, inSpace, "0: rest; 1: y -16, z -420, o 0"},
    {"spin-out", "Spin Out", exit, 0.9, flat, "0: rest; 1: x 230, rz 450"},
    {"door-out", "Door Out", exit, 0.9, inSpace, "0: rest; 1: ry 96, o 0"},
    {"fold-away", "Fold Away", exit, 0.8, inSpace, "0: rest; 1: y 40, rx 88, o 0"},
    {"topple-off", "Topple Off", exit, 1, flat, "0: rest; 0.4: rz 12; 1: x 140, y 190, rz 80"},
    {"slip-fall", "Slip Fall", exit, 1, flat, "0: rest; 0.3: y 6, rz -9; 1: y 210, rz -32"},
    {"whip-left", "Whip Left", exit, 0.7, flat, "0: rest; 0.2: x 26, rz 4; 1: x -260, rz -10, b 3"},
    {"glitch-out", "Glitch Out", exit, 0.9, flat,
        "0: rest; 0.25: x -14; 0.4: x 18; 0.55: x -24, o 0.7; 0.75: x 160, o 0.3; 1: x 240, o 0"},
    {"deflate", "Deflate", exit, 0.9, flat, "0: rest; 0.6: rz -3, sx 1.06, sy 1.06; 1: rz 14, sx 0, sy 0"},
    {"park-lr", "Park Left-To-Right", move, 2, flat,
        "0: x -92, sx 0.96, sy 0.96; 0.2: x -92, sx 0.96, sy 0.96; 0.55: x 92, sx 0.96, sy 0.96; 1: x 92, sx "
        "0.96, sy 0.96"},
    {"park-face-in", "Park Face In", move, 1.6, inSpace,
        "0: rest; 0.4: x 92, ry -16, sx 0.94, sy 0.94; 1: x 92, ry -16, sx 0.94, sy 0.94"},
    {"closeUpScan", "Closeup Scan", move, 3.2, flat,
        "0: y 46, sx 2.1, sy 2.1; 0.24: y 46, sx 2.1, sy 2.1; 0.56: y -46, sx 2.1, sy 2.1; 0.74: y -46, sx "
        "2.1, sy 2.1; 0.94: rest; 1: rest",
        "Close-up scan — inspect UI, then restore", "closeup-scan"},
    {"scan-up", "Scan Up", move, 3.4, flat,
        "0: y -46, sx 2.1, sy 2.1; 0.24: y -46, sx 2.1, sy 2.1; 0.56: y 46, sx 2.1, sy 2.1; 0.74: y 46, sx "
        "2.1, sy 2.1; 1: rest"},
    {"punch-top", "Punch Top", move, 2, flat,
        "0: rest; 0.35: y 40, sx 1.9, sy 1.9; 0.7: y 40, sx 1.9, sy 1.9; 1: rest"},
    {"punch-bottom", "Punch Bottom", move, 2, flat,
        "0: rest; 0.35: y -40, sx 1.9, sy 1.9; 0.7: y -40, sx 1.9, sy 1.9; 1: rest"},
    {"big-small-big", "Big Small Big", move, 2.4, flat,
        "0: sx 2, sy 2; 0.3: sx 2, sy 2; 0.6: y 20, sx 0.5, sy 0.5; 0.78: y 20, sx 0.5, sy 0.5; 1: rest"},
    {"flip-peek", "Flip Peek", move, 2.2, inSpace,
        "0: rest; 0.3: ry 168; 0.55: ry 168; 0.85: ry 360; 1: ry 360"},
    {"lean-back-hold", "Lean Back Hold", move, 2, inSpace,
        "0: rest; 0.35: y 10, rx -24; 0.75: y 10, rx -24; 1: rest"},
    {"tiltShowcase", "Tilt Showcase", move, 2.6, inSpace,
        "0: rest; 0.25: y 18, rx -58, sx 1.1, sy 1.1; 0.55: y 18, rx -58, sx 1.1, sy 1.1; 1: rest",
        "Tilt showcase — present the screen surface", "tilt-showcase"},
    {"nod", "Nod", move, 1.4, inSpace, "0: rest; 0.25: rx 14; 0.5: rest; 0.7: rx 9; 1: rest"},
    {"push-swap", "Push Swap", move, 1.2, flat, "0: rest; 0.4: x -240; 0.41: x 240; 1: rest"},
    {"bounce-focus", "Bounce Focus", move, 1.6, flat,
        "0: rest; 0.3: sx 1.34, sy 1.34; 0.44: sx 1.22, sy 1.22; 0.56: sx 1.3, sy 1.3; 0.8: sx 1.28, sy "
        "1.28; 1: rest"},
    {"stepBackPresent", "Step Back Present", move, 2.2, inSpace,
        "0: y 30, sx 1.7, sy 1.7; 0.3: y 30, sx 1.7, sy 1.7; 1: x 44, z -80, ry -14",
        "Step-back present — make room for copy", "step-back-present"},
    {"idle-drift", "Idle Drift", move, 3, inSpace,
        "0: rest; 0.25: y -4, rx -3, ry 7; 0.5: rx 2, ry -5; 0.75: y 3, ry 4; 1: rest"},
    {"hover-float", "Hover Float", move, 2.4, inSpace, "0: rest; 0.5: y -14, ry 6; 1: rest"},
    {"breathe-zoom", "Breathe Zoom", move, 2.6, flat, "0: rest; 0.5: sx 1.12, sy 1.12; 1: rest"},
    {"shake-attn", "Shake Attn", move, 0.9, flat,
        "0: rest; 0.15: x -9, rz -3; 0.3: x 8, rz 3; 0.45: x -6, rz -2; 0.6: x 4, rz 1; 0.75: x -2; 1: rest"},
    {"wobble-jelly", "Wobble Jelly", move, 1.2, flat,
        "0: rest; 0.2: rz -2, sx 1.06, sy 0.94; 0.4: rz 2, sx 0.95, sy 1.06; 0.6: sx 1.03, sy 0.97; 0.8: sx "
        "0.99, sy 1.01; 1: rest"},
    {"pendulum-yaw", "Pendulum Yaw", move, 2.4, inSpace, "0: rest; 0.25: ry 38; 0.75: ry -38; 1: rest"},
    {"figure-eight", "Figure Eight", move, 3.2, flat,
        "0: rest; 0.12: x 22, y -14, rz 3; 0.25: x 34; 0.37: x 22, y 14, rz -3; 0.5: rest; 0.62: x -22, y "
        "-14, rz -3; 0.75: x -34; 0.87: x -22, y 14, rz 3; 1: rest"},
    {"metronome", "Metronome", move, 1.8, flat, "0: rest; 0.25: rz 13; 0.75: rz -13; 1: rest"},
    {"coin-spin-blur", "Coin Spin Blur", showcase, 1.8, inSpace,
        "0: rest; 0.3: ry 540, b 2; 0.6: ry 1000, b 3; 1: ry 1080, b 3"},
    {"pirouette", "Pirouette", showcase, 2, inSpace,
        "0: rest; 0.3: ry 300, sx 0.94, sy 0.94; 0.45: ry 300, sx 0.94, sy 0.94; 0.75: ry 360, sx 1.1, sy "
        "1.1; 1: ry 360"},
    {"gimbalArc", "Gimbal Arc", showcase, 2.8, inSpace,
        "0: rest; 0.33: x 30, rx -14, ry 48; 0.66: x -30, rx 10, ry -40; 1: rest",
        "Gimbal arc — fluid three-axis showcase", "gimbal-arc"},
    {"barrel-roll", "Barrel Roll", showcase, 1.6, flat, "0: rest; 1: rz 360"},
    {"snap-turns", "Snap Turns", showcase, 2.4, inSpace,
        "0: rest; 0.22: ry 120; 0.33: ry 120; 0.55: ry 240; 0.66: ry 240; 0.88: ry 360; 1: ry 360"},
    {"lighthouse", "Lighthouse", showcase, 2.8, inSpace, "0: ry -50; 0.5: ry 50; 1: ry -50"},
    {"matrix-lean", "Matrix Lean", showcase, 2.2, inSpace,
        "0: rest; 0.45: x 24, ry 54, ky -4; 0.7: x 24, ry 54, ky -4; 1: rest"},
    {"spotlight-lean", "Spotlight Lean", showcase, 2.2, inSpace,
        "0: rest; 0.4: x -16, rx 6, ry -24; 0.7: x -16, rx 6, ry -24; 1: rest"},
    {"carousel-orbit", "Carousel Orbit", showcase, 3, inSpace,
        "0: rest; 0.25: x 84, z -140, ry -28; 0.5: z -260, sx 0.92, sy 0.92; 0.75: x -84, z -140, ry 28; 1: "
        "rest"},
    {"zoom-thru", "Zoom Thru", showcase, 2.2, inSpace,
        "0: rest; 0.45: x -90, z 430, ry 18; 0.46: x -90, z 430, ry 18, o 0; 0.55: x 60, z -320, o 0; 0.6: x "
        "60, z -320; 1: rest"},
    {"depth-bob", "Depth Bob", showcase, 2.2, inSpace, "0: rest; 0.5: z 180; 1: rest"},
    {"slow-hero", "Slow Hero", showcase, 2.6, flat,
        "0: y 40, sx 0.8, sy 0.8, o 0; 0.4: y 40, sx 0.8, sy 0.8; 1: y -6, sx 1.14, sy 1.14"},
    {"boomerang", "Boomerang", showcase, 2, flat,
        "0: rest; 0.4: x -200, rz -30, sx 0.8, sy 0.8; 0.6: x -200, rz -30, sx 0.8, sy 0.8; 1: rest"},
    {"beautyTurn", "Beauty Turn", showcase, 2.2, inSpace, "", "Beauty turn — back edge to screen"},
    {"whipSwap", "Whip Swap", showcase, 1.15, inSpace, "", "Whip swap — blur-hidden screen change"},
    {"portalDive", "Portal Dive", showcase, 1.8, inSpace, "", "Portal dive — push through the screen"},
    {"macroOrbit", "Macro Orbit", showcase, 2.6, inSpace, "", "Macro orbit — close hardware arc"},
    {"edgeReveal", "Edge Reveal", entrance, 1.45, inSpace, "", "Edge reveal — thin profile to hero"},
    {"riseYaw360NoBlur", "Rise Yaw 360 — No Blur", entrance, 1.4, inSpace, "",
        "Rise Yaw 360 — no motion blur"},
};

static_assert(std::ranges::all_of(rows,
                  [](const DeviceMotionRow& row) {
                      return row.frames.empty() || DeviceMotionFrames::runsFrom0To1(row.frames);
                  }),
    "The frames of a device motion run from 0 to 1.");

}   // namespace

std::span<const DeviceMotionRow> deviceMotionRows() { return rows; }

const DeviceMotionRow* deviceMotionRow(std::string_view name) {
    const auto* const found = std::ranges::find(rows, name, &DeviceMotionRow::name);
    return found == std::end(rows) ? nullptr : found;
}

}   // namespace tavix
