// Finished frames in memory, by what they show. A frame is kept as tiles without their alpha, three bytes a
// pixel, and each tile that several frames share is kept once: a still background costs nothing after the
// first frame. What comes back is what was put in, to the byte.
#pragma once

#include "TavixBase/Digest.h"
#include "TavixPlatform/Imaging/Bitmap.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace tavix {

// Used by one thread at a time.
class FrameStore {
public:
    static constexpr int tilePx = 64;

    // Of frames of that size; the least recently used go when there are more bytes than allowed.
    FrameStore(imaging::Size size, std::size_t mostBytes);

    bool has(const Digest& key) const { return byKey_.contains(key); }
    // False when it is not there. The target has the size of the frames.
    bool restore(const Digest& key, const imaging::BitmapView& into);
    // The frame is opaque.
    void keep(const Digest& key, const imaging::ConstBitmapView& frame);

    // Whether any one more frame fits without another one going.
    bool hasRoom() const;
    std::size_t byteCount() const { return bytes_; }
    std::size_t frameCount() const { return byKey_.size(); }

private:
    struct ByDigest {
        std::size_t operator()(const Digest& digest) const { return std::size_t(digest.low); }
    };
    struct Tile {
        std::vector<std::uint8_t> bytes;   // rows of blue, green, red
        std::size_t useCount = 0;
    };
    using Tiles = std::unordered_map<Digest, Tile, ByDigest>;
    struct Frame {
        Digest key;
        std::vector<Tiles::value_type*> tiles;   // row by row; elements of a map stay where they are
    };
    using Frames = std::list<Frame>;

    imaging::PixelRegion tileAt(std::size_t index) const;   // from the top left
    Tiles::value_type* shared(const imaging::ConstBitmapView& frame, const imaging::PixelRegion& tile);
    void dropOldest();

    imaging::Size size_;
    std::size_t mostBytes_, bytes_ = 0;
    std::size_t tilesAcross_, tileCount_;
    Tiles tiles_;
    Frames byUse_;   // the latest first
    std::unordered_map<Digest, Frames::iterator, ByDigest> byKey_;
    std::vector<std::uint8_t> scratch_;
};

}   // namespace tavix
