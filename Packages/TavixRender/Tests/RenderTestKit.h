// What the tests of rendering share: pictures as plain pixels, and small documents.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TestSupport/TemporaryFolder.h"

#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace tavix::testing {

struct Pixel {
    int r = 0, g = 0, b = 0, a = 0;   // premultiplied, 0 to 255
    bool operator==(const Pixel&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Pixel& pixel);

// Drawn pixels; (0, 0) is the top left.
class Picture {
public:
    Picture(const imaging::Image& image, imaging::Size size);
    explicit Picture(const imaging::ConstBitmapView& view);

    imaging::Size size() const { return size_; }
    Pixel at(int x, int fromTop) const { return pixels_[std::size_t(fromTop * size_.width + x)]; }
    bool operator==(const Picture&) const = default;
    // The largest difference of any channel of any pixel.
    int distanceTo(const Picture& other) const;
    // How many pixels differ by more than that in any channel.
    int countBeyond(const Picture& other, int channelDifference) const;

private:
    imaging::Size size_;
    std::vector<Pixel> pixels_;
};

// A picture in which no two neighbours are alike, opaque, with its bottom-left corner at the origin.
imaging::Image testCard(imaging::Size size, unsigned seed);

CompositionLayer shapeLayer(const RGBAColor& color, double widthFraction = 0.5, double heightFraction = 0.5);
CompositionLayer fillLayer(const RGBAColor& color);
CompositionKeyframe keyframe(double t, double value);   // arrived at evenly
SceneTransition transitionOf(
    TransitionStyle style, double durationSec, const TimingCurve& curve = LinearCurve{});
CompositionScene sceneOf(double durationSec, std::vector<CompositionLayer> layers);
// The layers stand in the middle of the canvas.
CompositionSpec specOf(imaging::Size size, int fps, std::vector<CompositionScene> scenes);

// A binary glTF file of one triangle, whose material bears that name.
std::string triangleModel(const std::string& materialName);

// Keeps what is told: the sentences alone, or all of it.
RenderLog messagesTo(std::vector<std::string>& messages);
RenderLog findingsTo(std::vector<Finding>& findings);

// A folder of its own that is removed with its content.
using testsupport::TemporaryFolder;

}   // namespace tavix::testing
