// What a typeset line is made of. Inside the library only.
#pragma once

#include "TavixPlatform/Text/TypesetLine.h"

#include <hb.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tavix::text {

struct HbReleased {
    void operator()(hb_font_t* font) const { hb_font_destroy(font); }
};

// A font that can be drawn from on every thread: HarfBuzz objects that no longer change. Its scale is 1/1024
// pixel.
struct GlyphFont {
    std::unique_ptr<hb_font_t, HbReleased> shaper;
    std::string name;
    bool hasPictures = false;   // colour glyphs that are pictures
    bool hasLayers = false;     // colour glyphs that are outlines in palette colours
};

// A character as far as the line breaker knows it, in logical order.
struct LineCharacter {
    std::uint32_t begin = 0, end = 0;   // in the source
    double x0 = 0, x1 = 0;
    bool isRightToLeft = false;
};

struct PlacedGlyph {
    enum class Kind : std::uint8_t { glyph, box };   // box: no font has the character
    std::uint32_t id = 0;
    std::uint32_t font = 0, color = 0;     // indices
    std::uint32_t begin = 0, end = 0;      // source range of its cluster
    double x = 0, y = 0;                   // of its origin
    double clusterX0 = 0, clusterX1 = 0;   // the cluster's advance
    Kind kind = Kind::glyph;
};

struct LineData {
    TextRange range;
    bool breaksWord = false;   // at its end
    double widthPx = 0;
    double boxHeightPx = 0;                  // of what stands for a character that no font has
    std::vector<LineCharacter> characters;   // by `begin`
    std::vector<PlacedGlyph> glyphs;         // from left to right
    std::vector<std::shared_ptr<const GlyphFont>> fonts;
    std::vector<imaging::Color> colors;
};

}   // namespace tavix::text
