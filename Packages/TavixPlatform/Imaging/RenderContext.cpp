#include "TavixPlatform/Imaging/RenderContext.h"

#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace tavix::imaging {

namespace {

constexpr std::size_t mostIdleBytes = 32u << 20;

class EmptyDrawable final : public Drawable {
public:
    using Drawable::Drawable;
    void draw(const Tile& tile, Scratch&) const override { clear(tile); }
    void drawOver(const Tile&, unsigned, Scratch&) const override {}
};

std::int64_t areaOf(const PixelRegion& r) { return r.isEmpty() ? 0 : std::int64_t(r.width()) * r.height(); }

}   // namespace

Digest ResultCache::Subject::key() const {
    return Hash()
        .kind(kind)
        .add(node ? node->hash() : Digest{})
        .add(region)
        .add(bitmapId)
        .add(std::uint64_t(halvings))
        .digest();
}

bool ResultCache::Subject::isSameAs(const Subject& other) const {
    if (kind != other.kind || region != other.region || bitmapId != other.bitmapId ||
        halvings != other.halvings || !node != !other.node)
        return false;
    return !node || haveSameStructure(node, other.node);
}

std::shared_ptr<const void> ResultCache::find(const Subject& subject) {
    const auto found = entries_.find(subject.key());
    if (found == entries_.end()) return nullptr;
    const auto& kept = found->second->subject;
    if (kept && !kept->isSameAs(subject)) throw std::logic_error("Two pictures met under one key.");
    byUse_.splice(byUse_.begin(), byUse_, found->second);
    found->second->lastFrame = frame_;
    return found->second->result;
}

void ResultCache::keep(const Subject& subject, std::shared_ptr<const void> result, std::size_t bytes) {
    const Digest key = subject.key();
    if (bytes > limits_.mostBytes || entries_.contains(key)) return;
    byUse_.push_front({key, std::move(result), bytes, frame_,
        limits_.comparesStructures ? std::optional(subject) : std::nullopt});
    entries_[key] = byUse_.begin();
    bytes_ += bytes;
    while (bytes_ > limits_.mostBytes) dropLast();
}

void ResultCache::endFrame() {
    while (!byUse_.empty() && byUse_.back().lastFrame < frame_) dropLast();
    ++frame_;
}

void ResultCache::dropLast() {
    bytes_ -= byUse_.back().bytes;
    entries_.erase(byUse_.back().key);
    byUse_.pop_back();
}

RenderContext::RenderContext(const EvaluatorOptions& options)
    : loop_(options.threadCount), comparesStructures_(options.comparesStructures),
      cache_({options.cacheBytes, options.comparesStructures}),
      pool_(std::make_shared<BytePool>(mostIdleBytes)) {}
RenderContext::~RenderContext() = default;

DrawableRef RenderContext::prepare(const NodeRef& node, const PixelRegion& wanted) {
    const PixelRegion part = intersection(wanted, node->support());
    if (part.isEmpty()) return std::make_shared<EmptyDrawable>(node);
    return node->prepare(*this, node, part);
}

void RenderContext::drawInto(const NodeRef& node, const Tile& target) {
    const DrawableRef drawable = prepare(node, target.region);
    const std::vector<PixelRegion> tiles = tilesOf(target.region);
    forEach(int(tiles.size()),
        [&](int i, Scratch& scratch) { drawable->draw(target.part(tiles[std::size_t(i)]), scratch); });
}

Picture RenderContext::pictureOf(const NodeRef& node, const PixelRegion& needed) {
    const PixelRegion part = intersection(needed, node->support());
    if (part.isEmpty()) return {};
    if (const auto* bitmap = asBitmap(*node)) return *bitmap;
    const PixelRegion region = worthKeeping(node->support(), part);
    const ResultCache::Subject subject{ResultCache::Kind::picture, node, region};
    if (const auto kept = std::static_pointer_cast<const Bitmap>(cache_.find(subject))) return {kept, region};
    auto bitmap = std::make_shared<Bitmap>(Bitmap::uninitialised({region.width(), region.height()}, pool_));
    drawInto(node, Tile::of(bitmap->view(), region));
    cache_.keep(subject, bitmap, bitmap->byteCount());
    return {bitmap, region};
}

PixelRegion worthKeeping(const PixelRegion& whole, const PixelRegion& needed) {
    constexpr std::int64_t smallArea = 512 * 512, mostArea = 64 << 20;
    const std::int64_t area = areaOf(whole);
    return area <= std::min(4 * areaOf(needed) + smallArea, mostArea) ? whole : needed;
}

}   // namespace tavix::imaging
