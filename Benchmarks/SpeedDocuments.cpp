#include "SpeedDocuments.h"

#include "TavixRender/Assets/BundledBackgrounds.h"

#include <cmath>

namespace tavix::benchmarks {

namespace {

constexpr int layerCount = 12;

BackgroundFill background(const char* id) { return BackgroundImage{std::nullopt, id}; }

PropertyTrack swing(AnimProperty property, double from, double to, double seconds) {
    const TimingCurve ease = BezierCurve{0.42, 0, 0.58, 1};
    return {property, {{0, from, LinearCurve{}}, {seconds / 2, to, ease}, {seconds, from, ease}}};
}

// A card, a disc or a picture, somewhere on a loose grid.
CompositionLayer layerAt(int index, const CompositionOutput& output) {
    const double width = double(output.widthPx), height = double(output.heightPx);
    CompositionLayer layer;
    layer.position = {width * (0.25 + 0.5 * (index % 3) / 2.0), height * (0.12 + 0.76 * (index / 3) / 3.0)};
    if (index % 4 == 3) {
        const auto picture = BundledBackgrounds::url(*BackgroundCatalog::background("ocean"));
        layer.content = ImageContent{picture ? picture->string() : "", 0.18, 0.12, std::nullopt};
        return layer;
    }
    ShapeContent shape;
    shape.shape = index % 4 == 1 ? ShapeKind::ellipse : ShapeKind::rect;
    shape.fill =
        index % 2 ? ShapeFill(LinearGradient::standard()) : ShapeFill(RGBAColor{0.95, 0.96, 1, 0.92});
    shape.widthFraction = 0.36 * std::min(1.0, height / width);
    shape.heightFraction = 0.16 * std::min(1.0, width / height) + 0.06;
    shape.cornerRadiusFraction = 0.2;
    layer.content = shape;
    return layer;
}

CompositionScene sceneOf(const CompositionOutput& output, double seconds, const char* backdrop) {
    CompositionScene scene;
    scene.durationSec = seconds;
    scene.background = background(backdrop);
    for (int i = 0; i < layerCount; ++i) scene.layers.push_back(layerAt(i, output));
    return scene;
}

CompositionSpec stillScenes(const CompositionOutput& output, double seconds) {
    CompositionSpec spec;
    spec.output = output;
    spec.scenes = {sceneOf(output, seconds / 2, "aurora"), sceneOf(output, seconds / 2, "graphite")};
    return spec;
}

CompositionSpec movingLayers(const CompositionOutput& output, double seconds) {
    CompositionSpec spec;
    spec.output = output;
    CompositionScene scene = sceneOf(output, seconds, "aurora");
    for (std::size_t i = 0; i < scene.layers.size(); ++i) {
        const double side = i % 2 ? 1 : -1;
        scene.layers[i].tracks = {swing(AnimProperty::x, 0, 0.06 * side, seconds),
            swing(AnimProperty::y, 0.02 * side, -0.04, seconds),
            swing(AnimProperty::rotationDeg, -5, 7 * side, seconds),
            swing(AnimProperty::scale, 0.9, 1.15, seconds), swing(AnimProperty::opacity, 1, 0.8, seconds)};
    }
    spec.scenes = {scene};
    return spec;
}

CompositionSpec blurHeavy(const CompositionOutput& output, double seconds) {
    CompositionSpec spec = movingLayers(output, seconds);
    for (std::size_t i = 0; i < spec.scenes[0].layers.size(); ++i) {
        CompositionLayer& layer = spec.scenes[0].layers[i];
        if (i % 2) layer.tracks.push_back(swing(AnimProperty::blur, 0.001, 0.02, seconds));
        if (i % 3 == 0) layer.effects = {GlowEffect{0.8, 0.012}, BlurEffect{0.003}};
    }
    return spec;
}

}   // namespace

std::vector<SpeedDocument> speedDocuments(int widthPx, int heightPx, int fps, double seconds) {
    const CompositionOutput output{widthPx, heightPx, fps};
    return {{"still scenes", stillScenes(output, seconds)}, {"moving layers", movingLayers(output, seconds)},
        {"blur-heavy", blurHeavy(output, seconds)}};
}

}   // namespace tavix::benchmarks
