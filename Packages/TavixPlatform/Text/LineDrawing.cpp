#include "TavixPlatform/Text/LineDrawing.h"

#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixPlatform/Text/CoverageMask.h"
#include "TavixPlatform/Text/GlyphShape.h"

#include <cairo.h>
#include <hb-ot.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <span>
#include <vector>

namespace tavix::text {
namespace {

struct Destroyed {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
};
template <class T> using Held = std::unique_ptr<T, Destroyed>;

struct BytesLeft {
    const char* at;
    unsigned count;
};

// No picture of a font has a longer side; a file that claims more is not read.
constexpr std::uint32_t maxPictureSidePx = 2048;
// Nor is one drawn larger than this.
constexpr int maxPlacedSidePx = 8192;

std::uint32_t bigEndian(const char* bytes) {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

bool hasSensibleSize(const BytesLeft& png) {
    constexpr unsigned headBytes = 24;   // signature, chunk head, width, height
    return png.count > headBytes && bigEndian(png.at + 16) <= maxPictureSidePx &&
           bigEndian(png.at + 20) <= maxPictureSidePx;
}

Held<cairo_surface_t> decodedPicture(const GlyphFont& font, hb_codepoint_t glyph) {
    const Held<hb_blob_t> blob(hb_ot_color_glyph_reference_png(font.shaper.get(), glyph));
    BytesLeft left{};
    left.at = hb_blob_get_data(blob.get(), &left.count);
    if (!hasSensibleSize(left)) return nullptr;
    const auto read = [](void* closure, unsigned char* to, unsigned count) {
        auto& source = *static_cast<BytesLeft*>(closure);
        if (source.count < count) return CAIRO_STATUS_READ_ERROR;
        std::memcpy(to, source.at, count);
        source.at += count;
        source.count -= count;
        return CAIRO_STATUS_SUCCESS;
    };
    Held<cairo_surface_t> surface(cairo_image_surface_create_from_png_stream(read, &left));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
    return surface;
}

class PartPainter {
public:
    PartPainter(const LineData& line, imaging::Point origin, const LinePart& part, double scale,
        const imaging::PixelRegion& region, imaging::Bitmap& bitmap)
        : line_(line), origin_(origin), part_(part), scale_(scale), region_(region), bitmap_(bitmap),
          mask_({region.width(), region.height()}) {}

    void paint() {
        for (const PlacedGlyph& glyph : line_.glyphs) {
            if (!belongs(glyph, part_.range, part_.span)) continue;
            imaging::checkStop();
            paint(glyph);
        }
        flush();
    }

private:
    void paint(const PlacedGlyph& glyph) {
        if (glyph.kind == PlacedGlyph::Kind::glyph) {
            const GlyphFont& font = *line_.fonts[glyph.font];
            if (font.hasPictures && paintPicture(glyph, font)) return;
            if (font.hasLayers && paintLayers(glyph, font)) return;
        }
        setColor(line_.colors[glyph.color]);
        cover(glyph, outlineOf(line_, glyph), outlinesBefore(glyph));
    }

    // Drawn as its outline, in the colour of the text.
    bool isPlain(const PlacedGlyph& glyph) const {
        if (glyph.kind == PlacedGlyph::Kind::box) return true;
        const GlyphFont& font = *line_.fonts[glyph.font];
        return !font.hasPictures && !font.hasLayers;
    }

    // Of the glyphs that this one may abut, in the part or not: letters of a script that joins them, marks on
    // their letters, dashes.
    std::vector<Outline> outlinesBefore(const PlacedGlyph& glyph) const {
        constexpr std::ptrdiff_t mostBefore = 4;
        std::vector<Outline> outlines;
        const PlacedGlyph* const first = line_.glyphs.data();
        for (const PlacedGlyph* other = &glyph; other != first && &glyph - other < mostBefore;) {
            --other;
            if (other->color == glyph.color && isPlain(*other)) outlines.push_back(outlineOf(line_, *other));
        }
        return outlines;
    }

    // Glyphs of one colour are joined before they are laid over what is there.
    void setColor(const imaging::Color& color) {
        if (color == color_) return;
        flush();
        color_ = color;
    }

    void flush() { mask_.paintOver(bitmap_.view(), color_); }

    void cover(const PlacedGlyph& glyph, const Outline& outline, std::span<const Outline> before = {}) {
        mask_.cover(outline, {scale_, (origin_.x * scale_) - region_.x0, (origin_.y * scale_) - region_.y0},
            columnsOf(glyph), before);
    }

    // The columns that a glyph may touch: all of them, or those of the part where its cluster leaves the
    // part. Neighbours round the common edge alike, so every pixel belongs to one of them.
    Columns columnsOf(const PlacedGlyph& glyph) const {
        Columns columns{0, region_.width()};
        if (glyph.begin >= part_.range.begin && glyph.end <= part_.range.end) return columns;
        constexpr double least = 1.0 / 512;
        const auto column = [&](double x) {
            const double at = std::round((origin_.x + x) * scale_) - region_.x0;
            return static_cast<int>(std::clamp(at, 0.0, double(region_.width())));
        };
        if (glyph.clusterX0 < part_.span.x0 - least) columns.begin = column(part_.span.x0);
        if (glyph.clusterX1 > part_.span.x1 + least) columns.end = column(part_.span.x1);
        return columns;
    }

    bool paintLayers(const PlacedGlyph& glyph, const GlyphFont& font) {
        hb_face_t* face = hb_font_get_face(font.shaper.get());
        unsigned count = hb_ot_color_glyph_get_layers(face, glyph.id, 0, nullptr, nullptr);
        if (count == 0) return false;
        std::vector<hb_ot_color_layer_t> layers(count);
        hb_ot_color_glyph_get_layers(face, glyph.id, 0, &count, layers.data());
        unsigned colorCount = hb_ot_color_palette_get_colors(face, 0, 0, nullptr, nullptr);
        std::vector<hb_color_t> palette(colorCount);
        hb_ot_color_palette_get_colors(face, 0, 0, &colorCount, palette.data());
        const imaging::Color& own = line_.colors[glyph.color];
        for (const hb_ot_color_layer_t& layer : layers) {
            if (layer.color_index < palette.size()) {
                const hb_color_t color = palette[layer.color_index];
                const auto part = [](unsigned value) { return value / 255.0; };
                setColor({part(hb_color_get_red(color)), part(hb_color_get_green(color)),
                    part(hb_color_get_blue(color)), part(hb_color_get_alpha(color)) * own.a});
            } else {
                setColor(own);
            }
            cover(glyph, outlineOf(line_, glyph, layer.glyph));
            flush();
        }
        return true;
    }

    // A picture is resampled on the grid of the canvas, whatever the region, so that its pixels are the same
    // in every region.
    bool paintPicture(const PlacedGlyph& glyph, const GlyphFont& font) {
        const imaging::Rect rect = pictureRect(line_, glyph);
        const Held<cairo_surface_t> picture = rect.isEmpty() ? nullptr : decodedPicture(font, glyph.id);
        if (!picture) return false;
        flush();
        const imaging::Rect place{(origin_.x + rect.x) * scale_, (origin_.y + rect.y) * scale_,
            rect.width * scale_, rect.height * scale_};
        const imaging::PixelRegion pixels = pixelsCovering(place);
        if (intersection(pixels, region_).isEmpty() ||
            std::max(pixels.width(), pixels.height()) > maxPlacedSidePx)
            return true;
        layOver(
            resampled(picture.get(), place, pixels, line_.colors[glyph.color].a), pixels, columnsOf(glyph));
        return true;
    }

    static imaging::Bitmap resampled(cairo_surface_t* picture, const imaging::Rect& place,
        const imaging::PixelRegion& pixels, double alpha) {
        imaging::Bitmap result({pixels.width(), pixels.height()});
        const imaging::BitmapView view = result.view();
        const Held<cairo_surface_t> target(cairo_image_surface_create_for_data(view.pixels,
            CAIRO_FORMAT_ARGB32, view.size.width, view.size.height, static_cast<int>(view.strideBytes)));
        const Held<cairo_t> context(cairo_create(target.get()));
        cairo_translate(context.get(), place.x - pixels.x0, pixels.y1 - place.maxY());
        cairo_scale(context.get(), place.width / cairo_image_surface_get_width(picture),
            place.height / cairo_image_surface_get_height(picture));
        cairo_set_source_surface(context.get(), picture, 0, 0);
        cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_GOOD);
        cairo_paint_with_alpha(context.get(), alpha);
        return result;
    }

    void layOver(const imaging::Bitmap& picture, const imaging::PixelRegion& pixels, const Columns& columns) {
        const imaging::PixelRegion common = intersection(
            pixels, intersection(region_,
                        {region_.x0 + columns.begin, region_.y0, region_.x0 + columns.end, region_.y1}));
        for (int y = common.y0; y < common.y1; ++y) {
            const std::uint8_t* from = picture.view().row(pixels.y1 - 1 - y) + 4 * (common.x0 - pixels.x0);
            std::uint8_t* to = bitmap_.view().row(region_.y1 - 1 - y) + 4 * (common.x0 - region_.x0);
            for (int x = common.x0; x < common.x1; ++x, from += 4, to += 4)
                for (int channel = 0; channel < 4; ++channel)
                    to[channel] = static_cast<std::uint8_t>(
                        from[channel] + dividedBy255(to[channel] * (255u - from[3])));
        }
    }

    const LineData& line_;
    imaging::Point origin_;
    LinePart part_;
    double scale_;
    imaging::PixelRegion region_;
    imaging::Bitmap& bitmap_;
    CoverageMask mask_;
    imaging::Color color_ = imaging::Color::clear();
};

}   // namespace

imaging::Bitmap drawn(const TypesetLine& line, imaging::Point origin, const LinePart& part, double scale,
    const imaging::PixelRegion& region) {
    if (region.isEmpty()) return {};
    imaging::Bitmap bitmap({region.width(), region.height()});
    PartPainter(line.data(), origin, part, scale, region, bitmap).paint();
    return bitmap;
}

imaging::PixelRegion inkRegion(
    const TypesetLine& line, imaging::Point origin, const LinePart& part, double scale) {
    const imaging::Rect ink = line.inkBounds(part.range, part.span);
    if (ink.isEmpty()) return {};
    return imaging::pixelsCovering(
        {(origin.x + ink.x) * scale, (origin.y + ink.y) * scale, ink.width * scale, ink.height * scale});
}

}   // namespace tavix::text
