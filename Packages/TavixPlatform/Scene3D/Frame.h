// What a frame is made of on its way through the renderer: views, projected vertices, triangles, and the data
// that surfaces are lit with. Plain data between stages; inside the library only.
#pragma once

#include "TavixPlatform/Scene3D/Vectors.h"

#include <array>
#include <cstdint>

namespace tavix::scene3d {

// Where a picture is taken from: a camera, or a light that casts a shadow. Pixels are square, their origin is
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

// Samples are tested together in cells of sixteen. A cell is a square of whole pixels or a part of one; every
// cell has the same samples. They share no row and no column of a pixel, or of a quarter of one.
constexpr int samplesPerCell = 16;
struct SamplePattern {
    int samplesPerPixel;
    int unitBits;                                    // of the unit of positions, in subpixels
    int cellUnitBits;                                // of a cell's side, in units
    std::array<std::int32_t, samplesPerCell> x, y;   // units from the cell's corner; every odd one is taken
    std::array<float, samplesPerCell> xPx, yPx;      // the same in pixels
    float leastPx, mostPx;                           // of them
    // What the positions of the lower and the upper eight samples of a mask add up to.
    struct Sum {
        std::uint16_t x, y;
    };
    std::array<Sum, 256> lowSums, highSums;
    int cellBits() const { return unitBits + cellUnitBits; }   // of a cell's side, in subpixels
    int cellsAcross() const { return (tilePx << subpixelBits) >> cellBits(); }
    int cellCount() const { return cellsAcross() * cellsAcross(); }
};
const SamplePattern& onePerPixel();         // cells of 4 x 4 pixels, row by row
const SamplePattern& fourPerPixel();        // cells of 2 x 2 pixels, the samples of a pixel together
const SamplePattern& sixteenPerPixel();     // cells of a pixel
const SamplePattern& sixtyFourPerPixel();   // four cells to a pixel

// Cells of a tile, row by row from the bottom left. Most of them belong to one triangle, and their samples
// are not looked at.
struct CellGrid {
    static constexpr std::uint32_t isMixed = UINT32_MAX;
    int x0, y0;              // the tile's origin, in pixels
    std::uint32_t* owners;   // 0: nothing, i + 1: triangle i at all samples, or isMixed
    // Bounds of the 1 / depth of a cell's samples: none is more than `nearest` and none less than `farthest`.
    float *nearest, *farthest;
    // Of the samples, cell by cell; they hold only where a cell is mixed. Aligned to 64 bytes.
    float* inverseDepths;
    std::uint32_t* ids;   // 0: nothing, i + 1: triangle i
};

// Surfaces to be shaded. Whole pixels of a row, each at its middle: most of a picture is that.
struct PixelRun {
    const Triangle* triangle;
    std::int32_t x, y, length;   // pixels of the tile
};
// A triangle at the middle of the samples of a pixel that it covers.
struct Request {
    const Triangle* triangle;
    float x, y;            // pixels from the tile's corner
    float count;           // of samples
    std::uint32_t pixel;   // y * tilePx + x
};

}   // namespace tavix::scene3d
