#include "TavixPlatform/Text/GlyphShape.h"

#include <hb-ot.h>

#include <algorithm>
#include <limits>
#include <memory>

namespace tavix::text {
namespace {

constexpr double unitsPerPixel = 1024;   // of every font of a line

struct Pen {
    Outline& outline;
    double x, y;   // of the glyph's origin

    void add(float atX, float atY, Outline::Kind kind) const {
        outline.points.push_back({x + double(atX) / unitsPerPixel, y + double(atY) / unitsPerPixel, kind});
    }
    void close() const {
        const std::size_t begun = outline.contourEnds.empty() ? 0 : outline.contourEnds.back();
        if (outline.points.size() > begun) outline.contourEnds.push_back(outline.points.size());
    }
};

const Pen& penOf(void* data) { return *static_cast<const Pen*>(data); }

struct DrawFunctions {
    hb_draw_funcs_t* functions = hb_draw_funcs_create();

    DrawFunctions() {
        using State = hb_draw_state_t;
        hb_draw_funcs_set_move_to_func(
            functions,
            [](hb_draw_funcs_t*, void* pen, State*, float x, float y, void*) {
                penOf(pen).close();
                penOf(pen).add(x, y, Outline::Kind::onCurve);
            },
            nullptr, nullptr);
        hb_draw_funcs_set_line_to_func(
            functions,
            [](hb_draw_funcs_t*, void* pen, State*, float x, float y, void*) {
                penOf(pen).add(x, y, Outline::Kind::onCurve);
            },
            nullptr, nullptr);
        hb_draw_funcs_set_quadratic_to_func(
            functions,
            [](hb_draw_funcs_t*, void* pen, State*, float cx, float cy, float x, float y, void*) {
                penOf(pen).add(cx, cy, Outline::Kind::quadratic);
                penOf(pen).add(x, y, Outline::Kind::onCurve);
            },
            nullptr, nullptr);
        hb_draw_funcs_set_cubic_to_func(
            functions,
            [](hb_draw_funcs_t*, void* pen, State*, float ax, float ay, float bx, float by, float x, float y,
                void*) {
                penOf(pen).add(ax, ay, Outline::Kind::cubic);
                penOf(pen).add(bx, by, Outline::Kind::cubic);
                penOf(pen).add(x, y, Outline::Kind::onCurve);
            },
            nullptr, nullptr);
        hb_draw_funcs_set_close_path_func(
            functions, [](hb_draw_funcs_t*, void* pen, State*, void*) { penOf(pen).close(); }, nullptr,
            nullptr);
        hb_draw_funcs_make_immutable(functions);
    }
    ~DrawFunctions() { hb_draw_funcs_destroy(functions); }
    DrawFunctions(const DrawFunctions&) = delete;
    DrawFunctions& operator=(const DrawFunctions&) = delete;
};

void addRectangle(Outline& outline, double x0, double y0, double x1, double y1, bool isClockwise) {
    const double xa = isClockwise ? x0 : x1, xb = isClockwise ? x1 : x0;
    for (const auto& [x, y] :
        {std::pair{x0, y0}, {xa, isClockwise ? y1 : y0}, {x1, y1}, {xb, isClockwise ? y0 : y1}})
        outline.points.push_back({x, y, Outline::Kind::onCurve});
    outline.contourEnds.push_back(outline.points.size());
}

// An empty box, as fonts draw for a character that they lack.
Outline boxOutline(const LineData& line, const PlacedGlyph& glyph) {
    const double height = line.boxHeightPx, width = glyph.clusterX1 - glyph.clusterX0;
    const double stroke = 0.08 * height, margin = std::min(0.12 * height, width / 4);
    const double x0 = glyph.clusterX0 + margin, x1 = glyph.clusterX1 - margin;
    Outline outline;
    if (x1 - x0 <= 2 * stroke) return outline;
    addRectangle(outline, x0, 0, x1, height, true);
    addRectangle(outline, x0 + stroke, stroke, x1 - stroke, height - stroke, false);
    return outline;
}

}   // namespace

imaging::Rect Outline::bounds() const {
    if (points.empty()) return {};
    constexpr double far = std::numeric_limits<double>::max();
    double minX = far, minY = far, maxX = -far, maxY = -far;
    for (const Point& point : points) {
        minX = std::min(minX, point.x);
        maxX = std::max(maxX, point.x);
        minY = std::min(minY, point.y);
        maxY = std::max(maxY, point.y);
    }
    return imaging::Rect::fromEdges(minX, minY, maxX, maxY);
}

bool belongs(const PlacedGlyph& glyph, const TextRange& range, const LineSpan& span) {
    if (glyph.begin >= range.end || glyph.end <= range.begin) return false;
    return std::min(glyph.clusterX1, span.x1) - std::max(glyph.clusterX0, span.x0) > -1.0 / 512;
}

Outline outlineOf(const LineData& line, const PlacedGlyph& glyph, hb_codepoint_t id) {
    if (glyph.kind == PlacedGlyph::Kind::box) return boxOutline(line, glyph);
    static const DrawFunctions draw;
    Outline outline;
    Pen pen{outline, glyph.x, glyph.y};
    hb_font_get_glyph_shape(line.fonts[glyph.font]->shaper.get(), id, draw.functions, &pen);
    pen.close();
    return outline;
}

bool isPicture(const LineData& line, const PlacedGlyph& glyph) {
    return glyph.kind == PlacedGlyph::Kind::glyph && line.fonts[glyph.font]->hasPictures;
}

imaging::Rect pictureRect(const LineData& line, const PlacedGlyph& glyph) {
    hb_glyph_extents_t extents{};
    if (!hb_font_get_glyph_extents(line.fonts[glyph.font]->shaper.get(), glyph.id, &extents)) return {};
    const double top = glyph.y + extents.y_bearing / unitsPerPixel,
                 left = glyph.x + extents.x_bearing / unitsPerPixel;
    return {left, top + extents.height / unitsPerPixel, extents.width / unitsPerPixel,
        -extents.height / unitsPerPixel};
}

imaging::Rect inkBoundsOf(const LineData& line, const PlacedGlyph& glyph) {
    if (isPicture(line, glyph)) {
        const imaging::Rect rect = pictureRect(line, glyph);
        if (!rect.isEmpty()) return rect;
    }
    return outlineOf(line, glyph).bounds();
}

}   // namespace tavix::text
