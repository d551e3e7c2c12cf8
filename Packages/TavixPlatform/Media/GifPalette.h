// The colours of one GIF frame: counting them, and choosing the few that stand for all.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tavix::media {

struct Rgb {
    std::uint8_t red = 0, green = 0, blue = 0;
    std::uint32_t packed() const { return std::uint32_t{red} << 16 | std::uint32_t{green} << 8 | blue; }
    bool operator==(const Rgb&) const = default;
};

// A colour where distance is roughly what the eye sees: encoded channels, weighted as they count for
// lightness.
using PerceivedColor = std::array<float, 3>;
PerceivedColor perceived(float red, float green, float blue);
inline PerceivedColor perceived(Rgb c) { return perceived(c.red, c.green, c.blue); }
float distanceSquared(const PerceivedColor& a, const PerceivedColor& b);
std::size_t nearest(
    std::span<const PerceivedColor> colors, const PerceivedColor& wanted);   // first of equals

class ColorCount {
public:
    // One index of the 256 is kept for transparent pixels.
    static constexpr std::size_t maxColors = 255;

    ColorCount();
    void clear();
    void add(Rgb color);
    // At most `maxColors`, none twice: the colours themselves where there are no more, else the best choice
    // found.
    std::vector<Rgb> palette() const;
    // Whether the palette holds every colour that was counted.
    bool isExact() const { return !hasTooMany_; }

private:
    struct Bin {   // of colours that share their upper bits
        std::uint32_t count = 0;
        std::array<std::uint32_t, 3> sums{};
    };
    void noteDistinct(Rgb color);

    std::vector<Bin> bins_;
    std::vector<Rgb> distinct_;
    std::vector<std::uint16_t> distinctSlots_;   // hash table of places in distinct_, from 1; 0 is free
    bool hasTooMany_ = false;
    Rgb last_;
};

}   // namespace tavix::media
