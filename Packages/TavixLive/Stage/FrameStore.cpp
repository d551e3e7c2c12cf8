#include "TavixLive/Stage/FrameStore.h"

#include <xxhash.h>

#include <algorithm>

namespace tavix {

namespace {

using imaging::PixelRegion;

constexpr int packedBytes = 3;
constexpr std::uint8_t opaqueAlpha = 255;

Digest digestOf(const std::vector<std::uint8_t>& bytes) {
    const XXH128_hash_t hash = XXH3_128bits(bytes.data(), bytes.size());
    return {hash.low64, hash.high64};
}

}   // namespace

FrameStore::FrameStore(imaging::Size size, std::size_t mostBytes)
    : size_(size), mostBytes_(mostBytes), tilesAcross_(std::size_t(size.width + tilePx - 1) / tilePx),
      tileCount_(tilesAcross_ * (std::size_t(size.height + tilePx - 1) / tilePx)) {}

PixelRegion FrameStore::tileAt(std::size_t index) const {
    const int x = int(index % tilesAcross_) * tilePx, y = int(index / tilesAcross_) * tilePx;
    return {x, y, std::min(x + tilePx, size_.width), std::min(y + tilePx, size_.height)};
}

bool FrameStore::restore(const Digest& key, const imaging::BitmapView& into) {
    const auto known = byKey_.find(key);
    if (known == byKey_.end()) return false;
    byUse_.splice(byUse_.begin(), byUse_, known->second);
    for (std::size_t i = 0; i < tileCount_; ++i) {
        const PixelRegion tile = tileAt(i);
        const std::uint8_t* from = known->second->tiles[i]->second.bytes.data();
        for (int y = tile.y0; y < tile.y1; ++y) {
            std::uint8_t* to = into.row(y) + tile.x0 * 4;
            for (int x = tile.x0; x < tile.x1; ++x, from += packedBytes, to += 4) {
                to[0] = from[0];
                to[1] = from[1];
                to[2] = from[2];
                to[3] = opaqueAlpha;
            }
        }
    }
    return true;
}

void FrameStore::keep(const Digest& key, const imaging::ConstBitmapView& frame) {
    if (byKey_.contains(key)) return;
    Frame kept{key, {}};
    kept.tiles.reserve(tileCount_);
    for (std::size_t i = 0; i < tileCount_; ++i) kept.tiles.push_back(shared(frame, tileAt(i)));
    bytes_ += tileCount_ * sizeof(void*);
    byUse_.push_front(std::move(kept));
    byKey_.emplace(key, byUse_.begin());
    while (bytes_ > mostBytes_ && !byUse_.empty()) dropOldest();
}

FrameStore::Tiles::value_type* FrameStore::shared(
    const imaging::ConstBitmapView& frame, const PixelRegion& tile) {
    scratch_.resize(std::size_t(tile.width() * tile.height() * packedBytes));
    std::uint8_t* to = scratch_.data();
    for (int y = tile.y0; y < tile.y1; ++y) {
        const std::uint8_t* from = frame.row(y) + tile.x0 * 4;
        for (int x = tile.x0; x < tile.x1; ++x, from += 4, to += packedBytes) {
            to[0] = from[0];
            to[1] = from[1];
            to[2] = from[2];
        }
    }
    const auto [entry, isNew] = tiles_.try_emplace(digestOf(scratch_));
    if (isNew) {
        entry->second.bytes = scratch_;
        bytes_ += scratch_.size();
    }
    ++entry->second.useCount;
    return &*entry;
}

bool FrameStore::hasRoom() const {
    const std::size_t frameBytes =
        std::size_t(size_.width) * std::size_t(size_.height) * packedBytes + tileCount_ * sizeof(void*);
    return bytes_ + frameBytes <= mostBytes_;
}

void FrameStore::dropOldest() {
    Frame& oldest = byUse_.back();
    for (Tiles::value_type* tile : oldest.tiles) {
        if (--tile->second.useCount > 0) continue;
        bytes_ -= tile->second.bytes.size();
        tiles_.erase(tiles_.find(tile->first));
    }
    bytes_ -= tileCount_ * sizeof(void*);
    byKey_.erase(oldest.key);
    byUse_.pop_back();
}

}   // namespace tavix
