#include "TavixPlatform/Imaging/FrameSurface.h"

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/PlaneWriter.h"
#include "TavixPlatform/Imaging/Workshop.h"

#include <vector>

namespace tavix::imaging {

struct FrameSurface::Impl {
    Impl(Workshop& workshopToUse, Size size)
        : workshop(workshopToUse), bitmap(size), all{0, 0, size.width, size.height}, tiles(tilesOf(all)),
          hashes(tiles.size(), 0), stamps(tiles.size(), 0) {}

    Workshop& workshop;
    Bitmap bitmap;
    PixelRegion all;
    std::vector<PixelRegion> tiles;
    std::vector<std::uint64_t> hashes;   // of what each tile shows; 0 is clear, as at the start
    std::vector<std::uint64_t> stamps;   // the update that last changed it
    std::uint64_t updates = 1;
};

FrameSurface::FrameSurface(Evaluator& evaluator, Size size)
    : impl_(std::make_unique<Impl>(evaluator.impl().workshop, size)) {}
FrameSurface::~FrameSurface() = default;

int FrameSurface::update(const Image& image) {
    Impl& s = *impl_;
    ++s.updates;
    std::vector<std::size_t> changed;
    PixelRegion wanted;
    for (std::size_t i = 0; i < s.tiles.size(); ++i) {
        const std::uint64_t hash = image.node()->contribution(s.tiles[i]);
        if (hash == s.hashes[i]) continue;
        s.hashes[i] = hash;
        s.stamps[i] = s.updates;
        changed.push_back(i);
        wanted = unionOf(wanted, s.tiles[i]);
    }
    if (changed.empty()) return 0;
    const DrawableRef drawable = s.workshop.prepare(image.node(), wanted);
    const Tile target = Tile::of(s.bitmap.view(), s.all);
    s.workshop.forEach(int(changed.size()), [&](int i, Scratch& scratch) {
        drawable->draw(target.part(s.tiles[changed[std::size_t(i)]]), scratch);
    });
    return int(changed.size());
}

ConstBitmapView FrameSurface::pixels() const { return std::as_const(impl_->bitmap).view(); }

void FrameSurface::writePlanes(const PlanarView& planes, std::uint64_t& stamp) const {
    const Impl& s = *impl_;
    std::vector<PixelRegion> stale;
    for (std::size_t i = 0; i < s.tiles.size(); ++i) {
        // The first chroma sample of a tile looks one pixel to the left.
        const bool hasLeft = i > 0 && s.tiles[i - 1].y0 == s.tiles[i].y0;
        if (stamp == 0 || s.stamps[i] > stamp || (hasLeft && s.stamps[i - 1] > stamp))
            stale.push_back(s.tiles[i]);
    }
    const ConstBitmapView source = pixels();
    impl_->workshop.forEach(int(stale.size()), [&](int i, Scratch&) {
        const PixelRegion& r = stale[std::size_t(i)];
        imaging::writePlanes(planes, source, {r.x0, s.all.y1 - r.y1, r.x1, s.all.y1 - r.y0});
    });
    stamp = s.updates;
}

}   // namespace tavix::imaging
