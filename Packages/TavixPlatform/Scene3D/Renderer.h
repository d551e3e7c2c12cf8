// Draws scenes into memory.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Imaging/BytePool.h"
#include "TavixPlatform/Imaging/Geometry.h"
#include "TavixPlatform/Scene3D/Entity.h"

#include <cstdint>
#include <memory>

namespace tavix::scene3d {

struct RendererOptions {
    int threadCount = 0;   // 0: as many as the machine has cores
};

// Pixels of red, green, blue, alpha as 16-bit floats: linear light, Rec. 709, colour multiplied by alpha. The
// top row first, like a bitmap's. Colour may pass 1.
class HalfPicture {
public:
    HalfPicture() = default;
    HalfPicture(imaging::Size size, const std::shared_ptr<imaging::BytePool>& pool);
    imaging::Size size() const { return size_; }
    std::uint16_t* row(int fromTop) { return pixels() + std::size_t(fromTop) * std::size_t(size_.width) * 4; }
    const std::uint16_t* row(int fromTop) const { return const_cast<HalfPicture*>(this)->row(fromTop); }

private:
    std::uint16_t* pixels() { return reinterpret_cast<std::uint16_t*>(bytes_.get()); }
    imaging::Size size_;
    imaging::PooledBytes bytes_;
};

// A drawn part of a pass: nothing but clear pixels lies outside `region`, which is in pixels of the pass with
// the origin at the bottom left, and empty when nothing was in sight.
struct LinearFrame {
    imaging::PixelRegion region;
    HalfPicture pixels;   // of the region
};
// As bytes: sRGB-encoded, premultiplied after encoding, limited to 1. What `imaging::Image::bitmap` takes.
struct EncodedFrame {
    imaging::PixelRegion region;
    imaging::Bitmap pixels;
};

enum class Samples { one, four, sixteen, sixtyFour };   // of coverage per pixel

// How textures are filtered. Quick is for a picture that will be reduced to half its size, and as sharp after
// that as fine ones are, or for one that is looked at in passing: a hair softer than fine ones. Coarse takes
// a quarter of the time: for a picture whose textured surfaces another one will cover, so that only their
// edges are seen.
enum class TextureDetail { fine, quick, coarse };

struct Pass {
    static constexpr int mostSidePx = 8192;
    imaging::Size size;   // 1 to mostSidePx on both sides
    Samples samples = Samples::four;
    TextureDetail textures = TextureDetail::fine;
};

// Used by one thread at a time; it spreads a frame over threads of its own. Pictures do not depend on their
// number, on the processor's instruction set, or on what was drawn before. Memory is kept from frame to
// frame, so that none is asked for once frames are alike; pictures give theirs back when they go.
class Renderer {
public:
    explicit Renderer(const RendererOptions& options = {});
    ~Renderer();
    Renderer(Renderer&&) noexcept;
    Renderer& operator=(Renderer&&) noexcept;

    // Throws SceneError when the size is out of range or the scene has no camera. A scene without a mesh in
    // sight gives an empty region.
    LinearFrame renderLinear(const Scene& scene, const Pass& pass);
    EncodedFrame renderEncoded(const Scene& scene, const Pass& pass);

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}   // namespace tavix::scene3d
