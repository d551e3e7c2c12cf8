#include "TestAssets.h"

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/Media/Tests/TestClip.h"
#include "TestSupport/SourceTree.h"

#include <algorithm>
#include <cmath>

namespace tavix::testing {

namespace {

using imaging::Image;

void writeImage(const std::filesystem::path& file, const Image& image, imaging::Size size) {
    imaging::Evaluator evaluator({.threadCount = 1});
    media::writePng(file, evaluator.draw(image, {0, 0, size.width, size.height}).view());
}

imaging::Color colorOf(const RGBAColor& c) { return {c.r, c.g, c.b, c.a}; }

void writeClip(const std::filesystem::path& file, const RGBAColor& c) {
    const double luma = 0.2126 * c.r + 0.7152 * c.g + 0.0722 * c.b;
    const auto paint = [&](AVFrame& frame, int index) {
        media::tests::fillPlane(frame, 0, int(16 + 200 * luma) + index / 3);
        media::tests::fillPlane(frame, 1, int(128 + (c.b - luma) / 1.8556 * 224));
        media::tests::fillPlane(frame, 2, int(128 + (c.r - luma) / 1.5748 * 224));
    };
    media::tests::makeClip(
        {.path = file, .size = {256, 160}, .times = media::tests::evenTimes(60), .paint = paint});
}

Image deviceFrame() {
    const Image body = Image::roundedRectangle({0, 0, 120, 220}, 20, {0.75, 0.76, 0.8, 1});
    const Image hole = Image::roundedRectangle({12, 22, 96, 176}, 12, imaging::Color::white());
    return Image().blendedWithMask(body, hole);
}

}   // namespace

RGBAColor ownColor(int number) {
    const double hue = std::fmod(number * 0.618034, 1.0) * 6, value = 0.55 + 0.4 * (number % 3) / 2;
    const auto channel = [&](double offset) {
        const double k = std::fmod(hue + offset, 6.0);
        return value * (1 - 0.8 * std::clamp(std::min(k, 4 - k), 0.0, 1.0));
    };
    return {channel(5), channel(3), channel(1), 1};
}

std::string pictureName(int number) { return "picture-" + std::to_string(number) + ".png"; }
std::string clipName(int number) { return "clip-" + std::to_string(number) + ".mp4"; }

void writeTestAssets(const std::filesystem::path& folder, int pictures, int clips) {
    for (int i = 0; i < pictures; ++i)
        writeImage(folder / pictureName(i), Image::solid(colorOf(ownColor(i))).cropped({0, 0, 240, 160}),
            {240, 160});
    for (int i = 0; i < clips; ++i) writeClip(folder / clipName(i), ownColor(i + 1));
    std::filesystem::copy_file(
        testsupport::inSourceTree("Packages/TavixPlatform/Text/Tests/Data/TavixBars-Variable.ttf"),
        folder / testFont);
    writeImage(folder / testDeviceFrame, deviceFrame(), {120, 220});
}

}   // namespace tavix::testing
