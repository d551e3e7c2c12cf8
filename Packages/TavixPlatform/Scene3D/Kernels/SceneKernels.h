// The inner loops of the renderer. Each is compiled for several instruction sets and picked once per
// renderer; all of them give the same bits: products and sums are rounded apart, nothing is approximate, and
// no result depends on which neighbours shared a vector.
#pragma once

#include "TavixPlatform/Imaging/Geometry.h"
#include "TavixPlatform/Scene3D/Frame.h"
#include "TavixPlatform/Scene3D/Lighting.h"
#include "TavixPlatform/Scene3D/TextureLevels.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace tavix::scene3d {

// From a mesh's space to a view's: x right, y up, depth along the axis; and normals to world space.
struct VertexTransform {
    float toView[3][4];
    float normals[3][3];
    float focalPx, near;
    std::int32_t centerX, centerY;   // subpixels
};
struct VertexRun {
    const Vec3 *positions, *normals;
    std::size_t count;
    std::int32_t *x, *y;   // subpixels; x is clippedMark for what must be clipped
    Attributes* attributes;
};

enum class SurfaceKind : std::uint8_t { lit, textured, nothing };

// What a tile wants shaded, in the order in which it is found.
struct RequestList {
    const Triangle* const* triangles;   // of the tile
    const SurfaceKind* kinds;           // by material
    Request* requests;
    PixelRun* runs;
    std::uint8_t* covered;   // samples of each pixel; cleared to 0 before
    std::size_t requestCount = 0, runCount = 0;
};
// What one surface is asked for.
struct ShadingJob {
    std::span<const Request> requests;
    std::span<const PixelRun> runs;
};

// Sums of one tile's pixels: colour times weight, and weight.
struct Shades {
    float* sums;   // four floats a pixel, cleared to 0 before
    int x0, y0;
    float samplesPerPixel;
};

struct TextureFilter {
    float mostProbes;       // along a side of a pixel's footprint: 1 to 8
    float footprint;        // its size, in pixels
    float texelsOfLevel0;   // the narrow side of a pixel spans up to twice as many, or a coarser level serves
};
struct TexturedSurface {
    const TextureLevels* texture;   // null: the tint alone
    Vec3 tint;
    const TexcoordPlanes* const* texcoordsOfGroups;
    TextureFilter filter;
};

struct SceneKernels {
    void (*project)(const VertexTransform& transform, const VertexRun& run);
    // Keeps the nearest triangle of each sample; of equals the first of the list. Owners and depths of the
    // cells are cleared to 0 before.
    void (*rasterise)(const CellGrid& grid, const SamplePattern& pattern, const Triangle* const* triangles,
        std::size_t count);
    // Fills in the samples of all cells that are not mixed.
    void (*spread)(const CellGrid& grid, const SamplePattern& pattern, const Triangle* const* triangles);
    // For the pixels of the tile within `inside`, row by row.
    void (*findRequests)(const CellGrid& grid, const SamplePattern& pattern,
        const imaging::PixelRegion& inside, RequestList& list);
    void (*shadeLit)(
        const Shades& shades, const Illumination& light, const Surface& surface, const ShadingJob& job);
    void (*shadeUnlit)(const Shades& shades, const TexturedSurface& surface, const ShadingJob& job);
    // `count` texels, each the mean light of two by two.
    void (*halveTexels)(
        std::uint32_t* dst, const std::uint32_t* row0, const std::uint32_t* row1, std::size_t count);
    // A row of sums and the number of covered samples of each pixel to pixels; `perSample` is 1 over the
    // samples of a pixel.
    void (*resolveHalf)(std::uint16_t* dst, const float* sums, const std::uint8_t* covered, float perSample,
        std::size_t count);
    void (*resolveBytes)(std::uint32_t* dst, const float* sums, const std::uint8_t* covered, float perSample,
        std::size_t count);
};

SceneKernels bestSceneKernels();
void fillVertexKernels(SceneKernels& table);
void fillVisibilityKernels(SceneKernels& table);
void fillRequestKernels(SceneKernels& table);
void fillLitKernels(SceneKernels& table);
void fillTextureKernels(SceneKernels& table);
void fillResolveKernels(SceneKernels& table);

}   // namespace tavix::scene3d
