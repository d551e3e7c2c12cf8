#include "TavixPlatform/Imaging/FrameSurface.h"

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/PlaneWriter.h"
#include "TavixPlatform/Imaging/RenderContext.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <utility>
#include <vector>

namespace tavix::imaging {

namespace {

// Calls use(region) for runs of neighbours among the tiles first ... end - 1 that `isWanted`: fewer starts of
// rows than tile by tile, and still at home in the cache.
template <class IsWanted, class Use>
void forRuns(const std::vector<PixelRegion>& tiles, std::size_t first, std::size_t end,
    const IsWanted& isWanted, const Use& use) {
    PixelRegion run;
    for (std::size_t i = first; i < end; ++i) {
        const bool continues = !run.isEmpty() && run.width() < mostRunTiles * tileWidthPx;
        if (isWanted(i)) {
            if (!run.isEmpty() && !continues) use(std::exchange(run, {}));
            run = unionOf(run, tiles[i]);
        } else if (!run.isEmpty()) {
            use(std::exchange(run, {}));
        }
    }
    if (!run.isEmpty()) use(run);
}

}   // namespace

struct FrameSurface::Impl {
    Impl(RenderContext& contextToUse, Size size)
        : context(contextToUse), bitmap(size), all{0, 0, size.width, size.height}, tiles(tilesOf(all)),
          hashes(tiles.size()), stamps(tiles.size(), 0),
          tilesAcross(std::size_t(size.width + tileWidthPx - 1) / tileWidthPx) {}

    // Notes what each tile is to show. Returns the changed tiles' bounds.
    PixelRegion noteChanges(const Node& node);
    int update(const Image& image, const Planes* planes);
    void compareWithDrawnAnew(const Image& image) const;
    void drawStrip(std::size_t first, const Drawable* drawable, const Planes* planes, Scratch& scratch) const;
    bool isStale(std::size_t tile, std::size_t first, std::uint64_t stamp) const {
        // The first chroma sample of a tile looks one pixel to the left.
        return stamp == 0 || stamps[tile] > stamp || (tile > first && stamps[tile - 1] > stamp);
    }

    RenderContext& context;
    Bitmap bitmap;
    PixelRegion all;
    std::vector<PixelRegion> tiles;      // row by row, from the bottom
    std::vector<Digest> hashes;          // of what each tile shows; nothing is clear, as at the start
    std::vector<std::uint64_t> stamps;   // the update that last changed it
    std::size_t tilesAcross;
    std::uint64_t updates = 1;
    int changedCount = 0;
};

PixelRegion FrameSurface::Impl::noteChanges(const Node& node) {
    PixelRegion changed;
    changedCount = 0;
    ++updates;
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const Digest hash = node.contribution(tiles[i]);
        if (hash == hashes[i]) continue;
        hashes[i] = hash;
        stamps[i] = updates;
        changed = unionOf(changed, tiles[i]);
        ++changedCount;
    }
    return changed;
}

void FrameSurface::Impl::drawStrip(
    std::size_t first, const Drawable* drawable, const Planes* planes, Scratch& scratch) const {
    const std::size_t end = first + tilesAcross;
    const ConstBitmapView view = std::as_const(bitmap).view();
    const Tile target = Tile::of({const_cast<std::uint8_t*>(view.pixels), view.size, view.strideBytes}, all);
    const auto isChanged = [&](std::size_t i) { return stamps[i] == updates; };
    if (drawable)
        forRuns(tiles, first, end, isChanged,
            [&](const PixelRegion& r) { drawable->draw(target.part(r), scratch); });
    if (!planes) return;
    const auto isOld = [&](std::size_t i) { return isStale(i, first, planes->stamp); };
    forRuns(tiles, first, end, isOld, [&](const PixelRegion& r) {
        writePlanes(planes->view, view, {r.x0, all.y1 - r.y1, r.x1, all.y1 - r.y0}, scratch);
    });
}

int FrameSurface::Impl::update(const Image& image, const Planes* planes) {
    const PixelRegion changed = noteChanges(*image.node());
    const DrawableRef drawable = changed.isEmpty() ? nullptr : context.prepare(image.node(), changed);
    std::vector<std::size_t> strips;   // first tiles of the rows with work
    for (std::size_t first = 0; first < tiles.size(); first += tilesAcross) {
        bool hasWork = false;
        for (std::size_t i = first; i < first + tilesAcross; ++i)
            hasWork = hasWork || stamps[i] == updates || (planes && isStale(i, first, planes->stamp));
        if (hasWork) strips.push_back(first);
    }
    context.forEach(int(strips.size()),
        [&](int i, Scratch& scratch) { drawStrip(strips[std::size_t(i)], drawable.get(), planes, scratch); });
    if (planes) planes->stamp = updates;
    if (context.comparesStructures()) compareWithDrawnAnew(image);
    if (drawable) context.cache().endFrame();
    return changedCount;
}

void FrameSurface::Impl::compareWithDrawnAnew(const Image& image) const {
    Bitmap anew = Bitmap::uninitialised(bitmap.size());
    if (anew.isEmpty()) return;
    context.drawInto(image.node(), Tile::of(anew.view(), all));
    for (int y = 0; y < all.height(); ++y)
        if (std::memcmp(bitmap.view().row(y), anew.view().row(y), std::size_t(all.width()) * 4) != 0)
            throw std::logic_error("A tile was kept though its picture had changed.");
}

FrameSurface::FrameSurface(Evaluator& evaluator, Size size)
    : impl_(std::make_unique<Impl>(evaluator.impl().context, size)) {}
FrameSurface::~FrameSurface() = default;

int FrameSurface::update(const Image& image) { return impl_->update(image, nullptr); }
int FrameSurface::update(const Image& image, const Planes& planes) { return impl_->update(image, &planes); }
ConstBitmapView FrameSurface::pixels() const { return std::as_const(impl_->bitmap).view(); }

}   // namespace tavix::imaging
