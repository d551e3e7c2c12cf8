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

std::string triangleModel(const std::string& materialName) {
    std::string json =
        R"({"asset": {"version": "2.0"}, "scene": 0, "scenes": [{"nodes": [0]}], "nodes": [{"mesh": 0}],)"
        R"( "meshes": [{"primitives": [{"attributes": {"POSITION": 0}, "material": 0}]}],)"
        R"( "buffers": [{"byteLength": 36}], "bufferViews": [{"buffer": 0, "byteLength": 36}],)"
        R"( "accessors": [{"bufferView": 0, "componentType": 5126, "count": 3, "type": "VEC3",)"
        R"( "min": [0, 0, 0], "max": [1, 1, 0]}], "materials": [{"name": ")" +
        materialName + R"("}]})";
    json.resize((json.size() + 3) / 4 * 4, ' ');
    const float corners[9] = {0, 0, 0, 1, 0, 0, 0, 1, 0};
    std::string file;
    const auto word = [&](std::uint32_t value) { file.append(reinterpret_cast<const char*>(&value), 4); };
    word(0x46546C67);   // "glTF"
    word(2);
    word(std::uint32_t(12 + 8 + json.size() + 8 + sizeof corners));
    word(std::uint32_t(json.size()));
    word(0x4E4F534A);   // "JSON"
    file += json;
    word(sizeof corners);
    word(0x004E4942);   // "BIN"
    return file.append(reinterpret_cast<const char*>(corners), sizeof corners);
}

RenderLog messagesTo(std::vector<std::string>& messages) {
    return [&messages](const Finding& finding) { messages.push_back(finding.message); };
}

RenderLog findingsTo(std::vector<Finding>& findings) {
    return [&findings](const Finding& finding) { findings.push_back(finding); };
}

}   // namespace tavix::testing
