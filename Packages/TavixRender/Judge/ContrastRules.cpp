#include "TavixRender/Judge/ContrastRules.h"

#include "TavixCore/Support/Decimals.h"
#include "TavixRender/Judge/Contrast.h"
#include "TavixRender/Judge/PaintAt.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <span>
#include <utility>

namespace tavix::FilmJudge {
namespace {

using CompositionLint::findingOf;
using CompositionLint::Rule;
using imaging::Point;

constexpr double settledOpacity = 0.9;
constexpr int samplesAcross = 9, samplesDown = 3;   // of a line or a word
constexpr std::size_t mostSampledBoxes = 12;        // of a colour
// Of the samples, so many may be hard to read before the text is.
constexpr double hardShare = 0.25;
constexpr int mostTexts = 200;   // of one scene
constexpr double opaqueAlpha = 0.999;
constexpr RGBAColor unknownColor{0, 0, 0, -1};

const BackgroundFill& backgroundOf(const CompositionSpec& spec, std::size_t scene) {
    const auto& own = spec.scenes[scene].background;
    return own ? *own : spec.background;
}

// A shadow lies round the letters: at their edge it has about half its strength.
RGBAColor shadowed(const RGBAColor& ground, const std::optional<TextShadow>& shadow) {
    if (!shadow) return ground;
    RGBAColor cast = shadow->color;
    cast.a = std::clamp(cast.a * shadow->opacity, 0.0, 1.0) / 2;
    return PaintAt::over(cast, ground);
}

// The letters of one colour, and where they are at rest.
struct ColoredRun {
    RGBAColor color;
    std::optional<RGBAColor> marker;
    std::vector<imaging::Rect> boxes;
};

double ratioOn(const RGBAColor& under, const ColoredRun& run, const TextContent& text, double opacity) {
    const RGBAColor ground = shadowed(run.marker ? PaintAt::over(*run.marker, under) : under, text.shadow);
    RGBAColor letters = run.color;
    letters.a *= opacity;
    return Contrast::ratio(
        Contrast::relativeLuminance(PaintAt::over(letters, ground)), Contrast::relativeLuminance(ground));
}

// Emphasised words first, so that the points of a line that are theirs are not those of its own colour.
std::vector<ColoredRun> runsOf(const KineticTextLayout::Result& layout) {
    std::vector<ColoredRun> runs;
    for (const KineticTextLayout::EmphasisedInk& ink : layout.emphasised)
        runs.push_back({ink.color, ink.marker, ink.boxes});
    ColoredRun plain{layout.textColor, {}, {}};
    for (const KineticTextLayout::Line& line : layout.lines) plain.boxes.push_back(line.box);
    runs.push_back(std::move(plain));
    return runs;
}

bool contains(const std::vector<imaging::Rect>& boxes, Point point) {
    return std::ranges::any_of(boxes, [&](const imaging::Rect& box) {
        return point.x >= box.x && point.x < box.maxX() && point.y >= box.y && point.y < box.maxY();
    });
}

// A point of a box, at rest; its place counts columns over all boxes.
struct Sample {
    Point rest;
    std::size_t column = 0;
};

std::vector<Sample> samplesOf(std::span<const ColoredRun> runs, std::size_t index) {
    std::vector<Sample> points;
    const std::vector<imaging::Rect>& boxes = runs[index].boxes;
    for (std::size_t i = 0; i < std::min(boxes.size(), mostSampledBoxes); ++i)
        for (int n = 0; n < samplesAcross * samplesDown; ++n) {
            const imaging::Rect& box = boxes[i];
            const Point rest{box.x + box.width * (n % samplesAcross + 0.5) / samplesAcross,
                box.y + box.height * (n / samplesAcross + 1.0) / (samplesDown + 1)};
            const auto isTheirs = [&](const ColoredRun& run) { return contains(run.boxes, rest); };
            if (!std::ranges::any_of(runs.first(index), isTheirs))
                points.push_back({rest, i * samplesAcross + std::size_t(n % samplesAcross)});
        }
    return points;
}

// The lowest that two columns side by side, of one line, both stay under at most of their samples.
double hardestStretch(const std::vector<Sample>& samples, const std::vector<double>& ratios) {
    std::map<std::size_t, std::vector<double>> columns;
    for (std::size_t i = 0; i < samples.size(); ++i) columns[samples[i].column].push_back(ratios[i]);
    const auto middle = [](std::vector<double>& ratiosOfColumn) {
        const auto at = ratiosOfColumn.begin() + std::ptrdiff_t(ratiosOfColumn.size() / 2);
        std::ranges::nth_element(ratiosOfColumn, at);
        return *at;
    };
    double hardest = 21;
    for (auto& [column, own] : columns)
        if (const auto next = columns.find(column + 1);
            next != columns.end() && next->first % samplesAcross != 0)
            hardest = std::min(hardest, std::max(middle(own), middle(next->second)));
    return hardest;
}

// A time at which the text rests, when there is one.
std::optional<double> restOf(const CompositionGeometry& geometry, std::size_t scene, std::size_t layer) {
    const LayerWindow& window = geometry.layers(scene)[layer].window;
    std::optional<double> best;
    double most = 0;
    for (const double share : {0.5, 0.4, 0.6, 0.3, 0.7, 0.8}) {
        const double sec = window.startSec + window.lengthSec() * share;
        const auto drawn = geometry.layerAt(scene, layer, sec);
        if (!drawn || !(drawn->opacity > most)) continue;
        best = sec, most = drawn->opacity;
        if (most >= settledOpacity) break;
    }
    return best;
}

}   // namespace

std::vector<TextAtRest> textsAtRest(const CompositionGeometry& geometry, std::size_t scene) {
    std::vector<TextAtRest> texts;
    const auto most = std::size_t(affordableLooks(geometry, scene, mostTexts));
    for (std::size_t l = 0; l < geometry.layers(scene).size() && texts.size() < most; ++l) {
        const CompositionGeometry::Layer& entry = geometry.layers(scene)[l];
        const bool isPlain = entry.content && entry.content->layout() && entry.layer->effects.empty();
        const auto sec = isPlain ? restOf(geometry, scene, l) : std::nullopt;
        if (sec) texts.push_back({scene, l, *sec, *geometry.layerAt(scene, l, *sec)});
    }
    return texts;
}

GroundAt paintedGround(
    const CompositionGeometry& geometry, const FrameGeometry& frame, std::size_t textLayer) {
    return [&geometry, &frame, textLayer](Point point) -> std::optional<RGBAColor> {
        const imaging::Rect& canvas = geometry.canvas();
        std::vector<RGBAColor> backToFront;
        for (const LayerGeometry& layer : frame.layers) {
            if (layer.layer == textLayer) break;
            if (!std::ranges::any_of(layer.parts, [&](const Outline& part) { return part.contains(point); }))
                continue;
            auto color = PaintAt::colorOf(layer.paint, layer.motion.inverse().apply(point), canvas);
            if (color) color->a *= layer.opacity;
            if (color && color->a >= opaqueAlpha) backToFront.clear();
            if (!color && layer.solid.contains(point)) backToFront.clear();
            backToFront.push_back(color.value_or(unknownColor));
        }
        const bool isHidden = !backToFront.empty() && backToFront.front().a >= opaqueAlpha;
        auto seen = isHidden ? std::optional(RGBAColor::black)
                             : PaintAt::colorOf(PaintAt::paintOf(backgroundOf(geometry.spec(), frame.scene)),
                                   point, canvas);
        for (const RGBAColor& color : backToFront) {
            if (color.a < 0) return std::nullopt;
            if (seen) seen = PaintAt::over(color, *seen);
        }
        return seen;
    };
}

std::optional<TextContrast> contrastOf(
    const CompositionGeometry& geometry, const TextAtRest& text, const GroundAt& ground) {
    const CompositionGeometry::Layer& entry = geometry.layers(text.scene)[text.layer];
    const auto& content = std::get<TextContent>(entry.layer->content);
    const std::vector<ColoredRun> runs = runsOf(*entry.content->layout());
    std::optional<TextContrast> lowest;
    double stretch = 21;
    for (std::size_t r = 0; r < runs.size(); ++r) {
        std::vector<double> ratios;
        const std::vector<Sample> samples = samplesOf(runs, r);
        for (const Sample& sample : samples) {
            const auto under = ground(text.drawn.motion.apply(sample.rest));
            if (!under) return std::nullopt;
            ratios.push_back(ratioOn(*under, runs[r], content, text.drawn.opacity));
        }
        if (ratios.empty()) continue;
        const bool isPlain = r + 1 == runs.size();
        if (isPlain) stretch = hardestStretch(samples, ratios);
        const auto hard = ratios.begin() + std::ptrdiff_t(double(ratios.size()) * hardShare);
        std::ranges::nth_element(ratios, hard);
        if (!lowest || *hard < lowest->ratio) lowest = TextContrast{*hard, !isPlain};
    }
    if (lowest) lowest->ofStretch = stretch;
    return lowest;
}

std::optional<Finding> lowContrast(const CompositionGeometry& geometry, const TextAtRest& text,
    const std::optional<TextContrast>& contrast) {
    const CompositionLayer& layer = *geometry.layers(text.scene)[text.layer].layer;
    const double least = leastContrastOf(std::get<TextContent>(layer.content));
    if (!contrast) return std::nullopt;
    if (contrast->ratio >= least && contrast->ofStretch < unreadableRatio)
        return findingOf(Rule::lowContrast, pathOf(text.scene, text.layer) + ".text.color",
            "A part of " + nameOf(layer) + " cannot be read: over a fifth of a line its contrast is " +
                decimals(std::floor(contrast->ofStretch * 10) / 10, 1) +
                ":1 against what lies under it there.",
            "Move it off what it crosses, or put a panel or a shadow under the text.");
    if (contrast->ratio >= least) return std::nullopt;
    const std::string subject = contrast->isOfEmphasis ? "The emphasis in " + nameOf(layer) : nameOf(layer);
    return findingOf(Rule::lowContrast,
        pathOf(text.scene, text.layer) + (contrast->isOfEmphasis ? ".text.emphasis" : ".text.color"),
        subject + " has a contrast of " + decimals(std::floor(contrast->ratio * 10) / 10, 1) +
            ":1 against what lies under it; " + decimals(least, least == 3 ? 0 : 1) +
            ":1 is the least for text of this size.",
        "Choose a colour that is lighter or darker, or put a panel or a shadow under the text.");
}

void textsStandOut(const CompositionGeometry& geometry, std::size_t scene, std::vector<Finding>& findings) {
    for (const TextAtRest& text : textsAtRest(geometry, scene)) {
        const FrameGeometry frame = geometry.frame(scene, text.localSec);
        const auto contrast = contrastOf(geometry, text, paintedGround(geometry, frame, text.layer));
        if (auto finding = lowContrast(geometry, text, contrast)) findings.push_back(std::move(*finding));
    }
}

}   // namespace tavix::FilmJudge
