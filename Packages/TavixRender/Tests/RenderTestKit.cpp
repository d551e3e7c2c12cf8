#include "RenderTestKit.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <random>
#include <stdexcept>
#include <utility>

namespace tavix::testing {

namespace {

int differenceOf(const Pixel& p, const Pixel& q) {
    return std::max({std::abs(p.r - q.r), std::abs(p.g - q.g), std::abs(p.b - q.b), std::abs(p.a - q.a)});
}

}   // namespace

std::ostream& operator<<(std::ostream& out, const Pixel& pixel) {
    return out << '(' << pixel.r << ", " << pixel.g << ", " << pixel.b << ", " << pixel.a << ')';
}

Picture::Picture(const imaging::ConstBitmapView& view) : size_(view.size) {
    for (int y = 0; y < size_.height; ++y)
        for (int x = 0; x < size_.width; ++x) {
            const std::uint8_t* p = view.row(y) + 4 * x;
            pixels_.push_back({p[2], p[1], p[0], p[3]});
        }
}

Picture::Picture(const imaging::Image& image, imaging::Size size)
    : Picture(imaging::Evaluator({.threadCount = 1}).draw(image, {0, 0, size.width, size.height}).view()) {}

int Picture::distanceTo(const Picture& other) const {
    if (size_ != other.size_) throw std::invalid_argument("Pictures of different size have no distance.");
    int distance = 0;
    for (std::size_t i = 0; i < pixels_.size(); ++i)
        distance = std::max(distance, differenceOf(pixels_[i], other.pixels_[i]));
    return distance;
}

int Picture::countBeyond(const Picture& other, int channelDifference) const {
    int count = 0;
    for (std::size_t i = 0; i < pixels_.size(); ++i)
        count += differenceOf(pixels_[i], other.pixels_[i]) > channelDifference;
    return count;
}

imaging::Image testCard(imaging::Size size, unsigned seed) {
    std::mt19937 random(seed);
    imaging::Bitmap pixels(size);
    const imaging::BitmapView view = pixels.view();
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            std::uint8_t* p = view.row(y) + 4 * x;
            for (int channel = 0; channel < 3; ++channel) p[channel] = static_cast<std::uint8_t>(random());
            p[3] = 255;
        }
    pixels.indexCoverage();
    return imaging::Image::bitmap(std::make_shared<const imaging::Bitmap>(std::move(pixels)));
}

CompositionLayer shapeLayer(const RGBAColor& color, double widthFraction, double heightFraction) {
    ShapeContent shape;
    shape.fill = color;
    shape.widthFraction = widthFraction;
    shape.heightFraction = heightFraction;
    CompositionLayer layer;
    layer.content = shape;
    return layer;
}

CompositionLayer fillLayer(const RGBAColor& color) {
    CompositionLayer layer;
    layer.content = BackgroundFill{color};
    return layer;
}

CompositionKeyframe keyframe(double t, double value) {
    CompositionKeyframe made;
    made.t = t;
    made.value = value;
    return made;
}

SceneTransition transitionOf(TransitionStyle style, double durationSec, const TimingCurve& curve) {
    SceneTransition transition;
    transition.style = style;
    transition.durationSec = durationSec;
    transition.curve = curve;
    return transition;
}

CompositionScene sceneOf(double durationSec, std::vector<CompositionLayer> layers) {
    CompositionScene scene;
    scene.durationSec = durationSec;
    scene.layers = std::move(layers);
    return scene;
}

CompositionSpec specOf(imaging::Size size, int fps, std::vector<CompositionScene> scenes) {
    CompositionSpec spec;
    spec.output.widthPx = size.width;
    spec.output.heightPx = size.height;
    spec.output.fps = fps;
    spec.scenes = std::move(scenes);
    for (CompositionScene& scene : spec.scenes)
        for (CompositionLayer& layer : scene.layers) layer.position = {size.width / 2.0, size.height / 2.0};
    return spec;
}

ScratchFolder::ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tavix-render-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("No scratch folder could be made.");
    path_ = name;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}   // namespace tavix::testing
