#include "TavixPlatform/Scene3D/Renderer.h"

#include "TavixBase/Overloaded.h"
#include "TavixPlatform/Imaging/ScratchLoop.h"
#include "TavixPlatform/Scene3D/LightStage.h"
#include "TavixPlatform/Scene3D/SceneError.h"
#include "TavixPlatform/Scene3D/TileStage.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace tavix::scene3d {

namespace {

// What the pictures of a frame take. They change their size with what moves, so that more would pile up.
constexpr std::size_t mostIdleBytes = 16u << 20;

View viewOf(const Scene& scene, imaging::Size size) {
    if (!scene.camera || !scene.camera->camera)
        throw SceneError("The scene has no camera; give it an entity with one.");
    const PerspectiveCamera& camera = *scene.camera->camera;
    const Affine3 world = scene.camera->worldTransform();
    const SineCosine half = sineCosine(std::clamp(double(camera.fieldOfViewDeg), 0.01, 179.0) / 2);
    View view;
    view.eye = world.origin();
    view.right = normalized(world.axis(0));
    view.up = normalized(world.axis(1));
    view.forward = normalized(world.axis(2)) * -1;
    view.focalPx = float(size.height / 2.0 * half.cosine / half.sine);
    view.widthPx = size.width;
    view.heightPx = size.height;
    view.near = std::max(camera.near, 1e-5f);
    view.far = camera.far;
    return view;
}

const SamplePattern& patternOf(Samples samples) {
    switch (samples) {
    case Samples::one: return onePerPixel();
    case Samples::four: return fourPerPixel();
    case Samples::sixteen: return sixteenPerPixel();
    case Samples::sixtyFour: break;
    }
    return sixtyFourPerPixel();
}

TextureFilter filterOf(TextureDetail detail) {
    constexpr float rootOfTwo = 1.41421356f;
    switch (detail) {
    case TextureDetail::fine: return {8, 1, rootOfTwo};
    case TextureDetail::coarse: return {1, 1, rootOfTwo};
    case TextureDetail::quick: break;
    }
    // One probe serves up to a texel and a half: a reduction that follows takes what it leaves of finer
    // stripes.
    return {8, 2.0f / 3, 0.75f};
}

}   // namespace

HalfPicture::HalfPicture(imaging::Size size, const std::shared_ptr<imaging::BytePool>& pool)
    : size_(size), bytes_(imaging::takeBytes(std::size_t(size.width) * std::size_t(size.height) * 8, pool)) {}

struct Renderer::Impl {
    explicit Impl(const RendererOptions& options)
        : loop(options.threadCount), kernels(bestSceneKernels()),
          pool(std::make_shared<imaging::BytePool>(mostIdleBytes)) {}

    // Everything up to the tiles. Gives the region that has pixels.
    imaging::PixelRegion prepare(const Scene& scene, const Pass& pass);
    void makeSurfaces(TextureDetail detail);
    TexturedSurface texturedSurfaceOf(const Unlit& unlit, TextureDetail detail);
    // Calls write(pixels of the tile, sums of the tile) for the tiles of the region, on many threads.
    template <class Write> void drawTiles(const imaging::PixelRegion& region, const Write& write);

    imaging::ScratchLoop loop;
    SceneKernels kernels;
    std::shared_ptr<imaging::BytePool> pool;
    DrawList list;
    LightStage lightStage;
    ScreenGeometry geometry;
    std::vector<FrameSurface> surfaces;
    const SamplePattern* pattern = nullptr;
    const Illumination* light = nullptr;
};

imaging::PixelRegion Renderer::Impl::prepare(const Scene& scene, const Pass& pass) {
    const imaging::Size size = pass.size;
    if (size.width < 1 || size.height < 1 || size.width > Pass::mostSidePx || size.height > Pass::mostSidePx)
        throw SceneError("A picture of " + std::to_string(size.width) + " x " + std::to_string(size.height) +
                         " pixels cannot be drawn; give it 1 to " + std::to_string(Pass::mostSidePx) +
                         " on a side.");
    const View view = viewOf(scene, size);
    if (!scene.root) return {};
    pattern = &patternOf(pass.samples);
    list.gather(*scene.root);
    geometry.build(list, view, *pattern, kernels, loop);
    if (geometry.region().isEmpty()) return {};
    makeSurfaces(pass.textures);
    const bool isLit = std::ranges::any_of(
        surfaces, [](const FrameSurface& surface) { return std::holds_alternative<Surface>(surface); });
    if (!isLit) list.lights.clear();   // nobody asks for their shadows
    light = &lightStage.prepare(list, view, scene.environment, kernels, loop);
    return geometry.region();
}

void Renderer::Impl::makeSurfaces(TextureDetail detail) {
    surfaces.clear();
    for (const Material* material : list.materials)
        surfaces.push_back(std::visit(
            Overloaded{
                [](const PhysicallyBased& lit) -> FrameSurface { return surfaceOf(lit); },
                [&](const Unlit& unlit) -> FrameSurface { return texturedSurfaceOf(unlit, detail); },
                [](const Cutout&) -> FrameSurface { return NoSurface{}; },
            },
            *material));
}

TexturedSurface Renderer::Impl::texturedSurfaceOf(const Unlit& unlit, TextureDetail detail) {
    TextureLevels* texture = unlit.texture ? &unlit.texture->levels() : nullptr;
    if (texture) makeLevels(*texture, kernels, loop);
    // A texture without a picture is black.
    const bool isBlack = texture && texture->count == 0;
    const Vec3 tint = isBlack ? Vec3{} : Vec3{unlit.tint.r, unlit.tint.g, unlit.tint.b};
    return {isBlack ? nullptr : texture, tint, geometry.texcoordsOfGroups(), filterOf(detail)};
}

template <class Write>
void Renderer::Impl::drawTiles(const imaging::PixelRegion& region, const Write& write) {
    const TileStage stage{kernels, *pattern, geometry, *light, surfaces, region};
    const int firstX = region.x0 / tilePx, firstY = region.y0 / tilePx;
    struct Job {
        const TileStage& stage;
        const Write& write;
        int firstX, firstY, across;
    } job{stage, write, firstX, firstY, (region.x1 - 1) / tilePx - firstX + 1};
    const int rows = (region.y1 - 1) / tilePx - firstY + 1;
    loop.run(job.across * rows, [&job](int i, imaging::Scratch& scratch) {
        const int tileX = job.firstX + i % job.across, tileY = job.firstY + i / job.across;
        const int tile = tileY * job.stage.geometry.tilesAcross() + tileX;
        const imaging::PixelRegion pixels = job.stage.pixelsOf(tile);
        const TileStage::Sums sums = job.stage.draw(tile, scratch);
        for (int y = pixels.y0; y < pixels.y1; ++y) {
            const auto first = std::size_t((y % tilePx) * tilePx + pixels.x0 % tilePx);
            job.write(
                pixels.x0, y, sums.light + first * 4, sums.covered + first, std::size_t(pixels.width()));
        }
    });
}

Renderer::Renderer(const RendererOptions& options) : impl_(std::make_unique<Impl>(options)) {}
Renderer::~Renderer() = default;
Renderer::Renderer(Renderer&&) noexcept = default;
Renderer& Renderer::operator=(Renderer&&) noexcept = default;

LinearFrame Renderer::renderLinear(const Scene& scene, const Pass& pass) {
    LinearFrame frame;
    frame.region = impl_->prepare(scene, pass);
    if (frame.region.isEmpty()) return frame;
    frame.pixels = HalfPicture({frame.region.width(), frame.region.height()}, impl_->pool);
    const float perSample = 1 / float(impl_->pattern->samplesPerPixel);
    impl_->drawTiles(frame.region, [&](int x, int y, const float* sums, const std::uint8_t* covered,
                                       std::size_t count) {
        std::uint16_t* row = frame.pixels.row(frame.region.y1 - 1 - y) + std::size_t(x - frame.region.x0) * 4;
        impl_->kernels.resolveHalf(row, sums, covered, perSample, count);
    });
    return frame;
}

EncodedFrame Renderer::renderEncoded(const Scene& scene, const Pass& pass) {
    EncodedFrame frame;
    frame.region = impl_->prepare(scene, pass);
    if (frame.region.isEmpty()) return frame;
    frame.pixels = imaging::Bitmap::uninitialised({frame.region.width(), frame.region.height()}, impl_->pool);
    const imaging::BitmapView view = frame.pixels.view();
    const float perSample = 1 / float(impl_->pattern->samplesPerPixel);
    impl_->drawTiles(
        frame.region, [&](int x, int y, const float* sums, const std::uint8_t* covered, std::size_t count) {
            auto* row =
                reinterpret_cast<std::uint32_t*>(view.row(frame.region.y1 - 1 - y)) + (x - frame.region.x0);
            impl_->kernels.resolveBytes(row, sums, covered, perSample, count);
        });
    return frame;
}

}   // namespace tavix::scene3d
