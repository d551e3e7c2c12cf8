#include "ReelTestKit.h"

#include "TavixPlatform/Media/StillImages.h"

#include <memory>
#include <utility>

namespace tavix::testing {

namespace {

constexpr const char* clearName = "clear.png";   // a device that is not there

template <class ColorAt> imaging::Bitmap painted(imaging::Size size, ColorAt colorAt) {
    imaging::Bitmap pixels(size);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            std::uint8_t* p = pixels.view().row(y) + 4 * x;
            const Pixel c = colorAt(x, y);
            const int levels[] = {c.b, c.g, c.r, c.a};
            for (int i = 0; i < 4; ++i) p[i] = std::uint8_t(levels[i]);
        }
    pixels.indexCoverage();
    return pixels;
}

void writeRing(const std::filesystem::path& folder) {
    const auto isScreen = [](int at) { return at >= 100 && at < 300; };
    const imaging::Bitmap ring = painted({400, 400}, [&](int x, int y) {
        return isScreen(x) && isScreen(y) ? Pixel{0, 0, 0, 0} : ringColor;
    });
    media::writePng(folder / ringName, ring.view());
}

}   // namespace

imaging::Image grid(int blue) {
    return imaging::Image::bitmap(std::make_shared<imaging::Bitmap>(painted(gridSize, [blue](int x, int y) {
        return Pixel{x, y, blue, 255};
    })));
}

PixelPoint gridPoint(const Pixel& pixel) { return {pixel.r + 0.5, pixel.g + 0.5}; }

EffectsSpec plainSpec(imaging::Size canvas) {
    EffectsSpec spec;
    spec.output = {canvas.width, canvas.height, 30};
    spec.background.fill = RGBAColor{90 / 255.0, 90 / 255.0, 90 / 255.0, 1};
    spec.background.padding = 0;
    spec.background.shadow.opacity = 0;
    spec.background.device = {.framePath = ringName,
        .screen = {0.25, 0.25, 0.5, 0.5},
        .screenCornerRadiusFraction = 0,
        .bundledID = {}};
    return spec;
}

EffectsSpec bareSpec(int fps) {
    EffectsSpec spec = plainSpec(smallSize);
    spec.output.fps = fps;
    spec.background.device.framePath = clearName;
    spec.background.device.screen = {0, 0, 1, 1};
    return spec;
}

Studio::Studio(imaging::Size canvas) : size(canvas), images(messagesTo(log)) {
    writeRing(folder.path());
    media::writePng(folder.path() / clearName, imaging::Bitmap(smallSize).view());
}

LayerBuild Studio::build() {
    return {{0, 0, double(size.width), double(size.height)}, 30, folder.path(), evaluator, images, fonts,
        messagesTo(log)};
}

ReelRenderer Studio::renderer(const EffectsSpec& spec, ReelRenderer::Footage footage) {
    footage.size = gridSize;
    if (!footage.compositionSec) footage.compositionSec = [](double sec) { return sec; };
    return ReelRenderer(spec, std::move(footage), build());
}

}   // namespace tavix::testing
