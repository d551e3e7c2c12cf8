// The inner loops of the renderer. Each is compiled for several instruction sets and picked once per
// renderer; all of them give the same bits: products and sums are rounded apart, nothing is approximate, and
// no result depends on which neighbours shared a vector.
#pragma once

#include "TavixPlatform/Scene3D/Frame.h"
#include "TavixPlatform/Scene3D/Lighting.h"
#include "TavixPlatform/Scene3D/TextureLevels.h"

#include <cstddef>
#include <cstdint>

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

// One tile: its origin in pixels, and its samples block by block.
struct SampleTile {
    int x0, y0;
    float* inverseDepths;   // aligned to 64 bytes, cleared to 0 before
    std::uint32_t* ids;     // 1 + the index in the list; 0 for none; may be null
};

// Sums of one tile's pixels: colour times weight, and weight.
struct Shades {
    float* sums;   // four floats a pixel, cleared to 0 before
    int x0, y0;
    const MaskPoint* points;
};

struct TexturedSurface {
    const TextureLevels* texture;   // null: the tint alone
    Vec3 tint;
    const TexcoordPlanes* const* texcoordsOfGroups;
    float mostProbes;   // along a side of a pixel's footprint: 1 to 8
};

struct SceneKernels {
    void (*project)(const VertexTransform& transform, const VertexRun& run);
    // Keeps the nearest triangle of each sample; of equals the first of the list.
    void (*rasterise)(const SampleTile& tile, const SamplePattern& pattern, const Triangle* const* triangles,
        std::size_t count);
    void (*shadeLit)(const Shades& shades, const Illumination& light, const Surface& surface,
        const Request* requests, std::size_t count);
    void (*shadeUnlit)(
        const Shades& shades, const TexturedSurface& surface, const Request* requests, std::size_t count);
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
void fillLitKernels(SceneKernels& table);
void fillTextureKernels(SceneKernels& table);
void fillResolveKernels(SceneKernels& table);

}   // namespace tavix::scene3d
