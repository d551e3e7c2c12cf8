// What the tests of reels share: recordings whose every point tells where it is, and documents without taste.
#pragma once

#include "../../TavixRender/Tests/RenderTestKit.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReelRender/Film/ReelRenderer.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tavix::testing {

// A recording of 250 x 250 pixels whose red tells the column and green the row, both from the top left; blue
// is the given level.
constexpr imaging::Size gridSize{250, 250};
imaging::Image grid(int blue = 0);

// The point of the grid that a pixel shows, which may be between pixels.
PixelPoint gridPoint(const Pixel& pixel);

// Of the device in these tests: a green ring around a square screen, which fills the middle half of it.
constexpr const char* ringName = "ring.png";

// A document with that device on a canvas, on grey, without a shadow. A canvas of 400 x 400 and a padding of
// 0 give a screen of 200 x 200 in its middle.
EffectsSpec plainSpec(imaging::Size canvas = {400, 400});
constexpr Pixel greyGround{90, 90, 90, 255}, ringColor{0, 160, 0, 255};

// A document without a device, for recordings of the same small size: nothing but their pixels is seen, as
// they are.
constexpr imaging::Size smallSize{64, 64};
EffectsSpec bareSpec(int fps = 30);

// A plain canvas with what renderers are built from.
struct Studio {
    explicit Studio(imaging::Size canvas = {400, 400});

    LayerBuild build();
    ReelRenderer renderer(const EffectsSpec& spec, ReelRenderer::Footage footage = {});
    Picture picture(const imaging::Image& image) const { return Picture(image, size); }

    imaging::Size size;
    TemporaryFolder folder;
    imaging::Evaluator evaluator{imaging::EvaluatorOptions{.threadCount = 1}};
    std::vector<std::string> log;
    StillImageCache images;
    text::FontBook fonts;
};

}   // namespace tavix::testing
