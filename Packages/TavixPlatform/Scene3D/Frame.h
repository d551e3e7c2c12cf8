// What a frame is made of on its way through the renderer: views, projected vertices, triangles, and the data
// that surfaces are lit with. Plain data between stages; inside the library only.
#pragma once

#include "TavixPlatform/Scene3D/Vectors.h"

#include <array>
#include <cstdint>

namespace tavix::scene3d {

// Where a picture is taken from: a camera, or a lamp that casts a shadow. Pixels are square, their origin is
// at the bottom left, and the axis goes through the middle of the picture.
struct View {
    Vec3 eye, right, up, forward;   // unit vectors of world space
    float focalPx = 1;              // of a thing at distance 1 that is 1 wide, in pixels
    int widthPx = 0, heightPx = 0;
    float near = 0.01f, far = 100;
};

// Positions on the screen are whole numbers of 1/256 pixel, so that neighbouring triangles share their edge
// exactly. Vertices behind the near plane, or farther than this from the axis, are clipped.
constexpr int subpixelBits = 8;
constexpr int guardPx = 5120;
constexpr std::int32_t clippedMark = INT32_MIN;   // stands for the x of a vertex that must be clipped

constexpr int tilePx = 32;
constexpr int samplesPerVector = 16;   // the samples of one block, tested together
constexpr int mostTileSamples = tilePx * tilePx * 4;

// Normal and 1 over depth along the axis, each divided by that depth, so that they are linear on the screen.
struct Attributes {
    float nx, ny, nz, inverseDepth;
};

// Plane equations: value(x, y) = atAnchor + x perX + y perY, in pixels from the anchor, the first vertex.
struct alignas(16) Triangle {
    Attributes perX, perY, atAnchor;
    std::int32_t x[3], y[3];   // subpixels, counter-clockwise
    float leastInverseDepth, mostInverseDepth;
    std::uint32_t material;    // of the frame
    std::uint32_t texcoords;   // index into the group's, when the material has a texture
    float normalVariance;      // of the normal within a pixel
    std::uint32_t group;
};

struct TexcoordPlanes {
    Vec2 perX, perY, atAnchor;   // divided by depth
};

// The samples of one block of pixels. Entry i of a block stands at (x[i], y[i]) eighths of a pixel.
struct SamplePattern {
    int blockBits;   // of the side of a block
    std::array<std::int32_t, samplesPerVector> x, y;
    int blockPx() const { return 1 << blockBits; }
    int samplesPerPixel() const { return samplesPerVector >> (2 * blockBits); }
    int blocksAcross() const { return tilePx >> blockBits; }
    int entryCount() const { return tilePx * tilePx * samplesPerPixel(); }
};
const SamplePattern& onePerPixel();    // blocks of 4 x 4 pixels, row by row
const SamplePattern& fourPerPixel();   // blocks of 2 x 2 pixels, the samples of a pixel together

// A surface to be shaded: a triangle at the middle of the samples of a pixel that it covers.
struct Request {
    const Triangle* triangle;
    std::uint16_t pixel;   // y * tilePx + x
    std::uint8_t mask;     // bit per sample of the pixel
};
// The middle of the samples of each mask, in pixels from the pixel's corner, and how many there are.
struct MaskPoint {
    float x, y, count;
};
const std::array<MaskPoint, 16>& maskPoints(const SamplePattern& pattern);

}   // namespace tavix::scene3d
