#include "TavixRender/Captions/CaptionOverlay.h"

#include "TavixBase/TextTrimming.h"
#include "TavixPlatform/Text/LineDrawing.h"
#include "TavixReel/Document/Narration.h"
#include "TavixRender/Compositor/CanvasDrawing.h"
#include "TavixRender/KineticText/KineticTextLayout.h"
#include "TavixRender/Typesetting/CaptionLayout.h"

#include <algorithm>

namespace tavix {
namespace {

using imaging::Image;

CanvasGeometry::CanvasSize sizeOf(imaging::Size canvas) {
    return {double(canvas.width), double(canvas.height)};
}

// What a caption says and how it looks; nothing when there is nothing to show.
struct ShownCaption {
    std::string text;
    CaptionStyle style;
};
std::optional<ShownCaption> shown(const Caption& caption, const Narration& narration) {
    std::string text(trimmed(caption.text));
    if (text.empty() || !(caption.window.endSec > caption.window.startSec)) return std::nullopt;
    return ShownCaption{std::move(text), narration.styleOf(caption)};
}

// The bar with its lines cut to it, as one picture.
Image drawn(const CaptionLayout::SetCaption& caption, const CaptionStyle& style, imaging::Size canvas,
    imaging::Evaluator& evaluator) {
    const CaptionLayout::Bar& bar = caption.bar;
    const imaging::Rect rect{bar.barX, bar.barBottomYUp, bar.barWidth, bar.barHeight};
    std::vector<Image> lines;
    for (std::size_t i = 0; i < caption.lines.size(); ++i) {
        const text::TypesetLine& line = caption.lines[i];
        const double width = std::min(line.widthPx(), caption.room.wrapWidth);
        const imaging::Point origin{
            bar.barX + (bar.barWidth - width) / 2, bar.barBottomYUp + bar.barHeight - caption.room.vPad -
                                                       caption.ascentPx - caption.lineHeightPx * double(i)};
        const text::LinePart part{line.range(), {0, line.widthPx()}};
        const imaging::PixelRegion ink = text::inkRegion(line, origin, part, 1);
        if (ink.isEmpty()) continue;
        auto pixels = std::make_shared<imaging::Bitmap>(text::drawn(line, origin, part, 1, ink));
        pixels->indexCoverage();
        lines.push_back(Image::bitmap(std::move(pixels), {double(ink.x0), double(ink.y0)}));
    }
    const Image shape = Image::roundedRectangle(rect, bar.cornerRadius, imaging::Color::white());
    const Image words = Image::stacked(lines).blendedWithMask(Image(), shape);
    const Image ground =
        Image::roundedRectangle(rect, bar.cornerRadius, CanvasDrawing::colorOf(style.barColor));
    return evaluator.baked(words.over(ground), {0, 0, canvas.width, canvas.height});
}

}   // namespace

std::optional<CaptionLayout::SetCaption> CaptionLayout::layout(const std::string& text,
    const CaptionStyle& style, const std::optional<NormalizedPoint>& position, const CanvasSize& canvas,
    const text::FontBook& fonts) {
    if (text.empty()) return std::nullopt;
    const BarRoom room = barRoom(style, canvas);
    ResolvedCaptionFont resolved = resolveFont(style, room.pointSize, fonts);
    if (style.fontWeight) resolved.font = KineticTextLayout::applyWeight(resolved.font, *style.fontWeight);
    SetCaption set{{}, room, {}, 0, 0, std::move(resolved.note)};
    set.lines = wrapLines({text, resolved.font, CanvasDrawing::colorOf(style.textColor)}, room.wrapWidth);
    if (set.lines.empty()) return std::nullopt;
    const text::FontMetrics metrics = resolved.font.metrics();
    set.ascentPx = metrics.ascentPx;
    set.lineHeightPx = metrics.ascentPx + metrics.descentPx + metrics.leadingPx;
    std::vector<double> widths;
    for (const text::TypesetLine& line : set.lines) widths.push_back(line.widthPx());
    set.bar = CaptionLayout::bar(room, {widths, set.ascentPx, set.lineHeightPx}, style, position, canvas);
    return set;
}

std::optional<CaptionOverlay> CaptionOverlay::make(const Narration& narration, imaging::Size canvas,
    const text::FontBook& fonts, imaging::Evaluator& evaluator) {
    CaptionOverlay overlay;
    if (narration.placement != Narration::Placement::lowerThird) return std::nullopt;
    for (const Caption& caption : narration.captions) {
        const auto what = shown(caption, narration);
        if (!what) continue;
        const auto set =
            CaptionLayout::layout(what->text, what->style, caption.position, sizeOf(canvas), fonts);
        if (!set) continue;
        overlay.layers_.push_back({drawn(*set, what->style, canvas, evaluator), caption.window.startSec,
            caption.window.endSec, what->style.fadeSec});
    }
    return overlay.layers_.empty() ? std::nullopt : std::optional(std::move(overlay));
}

double CaptionOverlay::Layer::alphaAt(double sec) const {
    if (!(fadeSec > 0)) return 1;
    const double rise = sec - startSec, fall = endSec - sec;
    return rise < fadeSec ? rise / fadeSec : fall < fadeSec ? fall / fadeSec : 1;
}

Image CaptionOverlay::apply(const Image& frame, double preCutSec) const {
    constexpr double invisible = 0.001, opaque = 0.999;
    const auto due = std::ranges::find_if(layers_,
        [preCutSec](const Layer& layer) { return layer.startSec <= preCutSec && preCutSec < layer.endSec; });
    if (due == layers_.end()) return frame;
    const double alpha = due->alphaAt(preCutSec);
    if (alpha <= invisible) return frame;
    return (alpha >= opaque ? due->image : due->image.withOpacity(alpha)).over(frame);
}

std::optional<KineticTextOverlay> KineticTextOverlay::make(const Narration& narration, imaging::Size canvas,
    double framesPerSec, const text::FontBook& fonts, imaging::Evaluator& evaluator) {
    KineticTextOverlay overlay;
    for (const Caption& caption : narration.captions) {
        const auto& kinetic = caption.kinetic ? caption.kinetic : narration.kineticDefaults;
        if (!kinetic) continue;
        const auto what = shown(caption, narration);
        if (!what) continue;
        KineticTextLayout::Request request{what->text, caption.emphasis, what->style, kinetic->scope};
        request.position = caption.position;
        request.colorAnimated = kinetic->inPhase.color || kinetic->outPhase.color;
        request.width = canvas.width;
        request.height = canvas.height;
        const auto laidOut = KineticTextLayout::build(request, fonts);
        if (!laidOut) continue;
        const TimeRangeSec& window = caption.window;
        std::shared_ptr<const KineticElementGroup> group = KineticElementGroup::make(
            *laidOut, *kinetic, {window.endSec - window.startSec, framesPerSec, 0}, evaluator);
        if (group) overlay.layers_.push_back({std::move(group), window.startSec, window.endSec});
    }
    std::ranges::stable_sort(overlay.layers_, {}, &Layer::startSec);
    return overlay.layers_.empty() ? std::nullopt : std::optional(std::move(overlay));
}

Image KineticTextOverlay::apply(const Image& frame, double preCutSec) const {
    constexpr std::size_t mostAtOnce = 2;
    std::vector<const Layer*> due;
    for (const Layer& layer : layers_)
        if (layer.startSec <= preCutSec && preCutSec < layer.endSec) due.push_back(&layer);
    if (due.size() > mostAtOnce) due.erase(due.begin(), due.end() - mostAtOnce);
    Image shown = frame;
    for (const Layer* layer : due)
        if (const auto text = layer->group->render(preCutSec - layer->startSec)) shown = text->over(shown);
    return shown;
}

}   // namespace tavix
