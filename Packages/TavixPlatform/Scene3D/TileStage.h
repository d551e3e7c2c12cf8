// Tiles of a frame, from triangles to pixels. Inside the library only.
#pragma once

#include "TavixPlatform/Imaging/Geometry.h"
#include "TavixPlatform/Imaging/Tile.h"
#include "TavixPlatform/Scene3D/Geometry.h"
#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"

#include <variant>
#include <vector>

namespace tavix::scene3d {

struct NoSurface {};
using FrameSurface = std::variant<Surface, TexturedSurface, NoSurface>;   // of a material

struct TileStage {
    const SceneKernels& kernels;
    const SamplePattern& pattern;
    const ScreenGeometry& geometry;
    const Illumination& light;
    const std::vector<FrameSurface>& surfaces;   // by material
    imaging::PixelRegion region;                 // what is drawn; within the frame

    // The sums of a tile, and how many samples of each of its pixels are covered: both row by row.
    struct Sums {
        const float* light;
        const std::uint8_t* covered;
    };
    // The part of a tile that lies in the region.
    imaging::PixelRegion pixelsOf(int tile) const;
    // In memory of the scratch. Nothing is covered where no triangle is.
    Sums draw(int tile, imaging::Scratch& scratch) const;

    void shade(const Shades& shades, const FrameSurface& surface, const ShadingJob& job) const;
};

// In memory of the scratch, with nothing in sight.
CellGrid clearedGrid(int x0, int y0, const SamplePattern& pattern, imaging::Scratch& scratch);

}   // namespace tavix::scene3d
