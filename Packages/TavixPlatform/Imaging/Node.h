// A node of the image graph, and what becomes of it when a frame is drawn. Inside the library only.
//
// Drawing has two steps. `prepare` walks the graph once per frame: it computes what must be seen whole (the
// input of a blur or of a resampling), or finds it in the cache, and gives a `Drawable`. Tiles are then drawn
// from the drawables, in parallel and in any order, each row passing through all its steps while it is in the
// processor's cache.
#pragma once

#include "TavixPlatform/Imaging/Geometry.h"
#include "TavixPlatform/Imaging/Hash.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixPlatform/Imaging/Tile.h"

#include <cstdint>
#include <memory>

namespace tavix::imaging {

class Workshop;

// Draws tiles of one node. Immutable: many threads draw from one.
class Drawable {
public:
    explicit Drawable(NodeRef node);
    virtual ~Drawable();
    Drawable(const Drawable&) = delete;
    Drawable& operator=(const Drawable&) = delete;

    const Node& node() const { return *node_; }
    // Sets every pixel of the tile, clear ones too.
    virtual void draw(const Tile& tile, Scratch& scratch) const = 0;
    // Draws over what the tile holds; opacity 0 to 255.
    virtual void drawOver(const Tile& tile, unsigned opacity, Scratch& scratch) const;
    // As `draw`, in float. By default the 8-bit pixels.
    virtual void drawFloat(const FloatTile& tile, Scratch& scratch) const;

protected:
    // For one that draws `inner` within its support, and nothing around it.
    void drawWithin(const Drawable& inner, const Tile& tile, Scratch& scratch) const;
    void drawWithin(const Drawable& inner, const FloatTile& tile, Scratch& scratch) const;

private:
    NodeRef node_;
};
using DrawableRef = std::shared_ptr<const Drawable>;

// One whose pixels are float by nature; the 8-bit ones are rounded from them.
class FloatDrawable : public Drawable {
public:
    using Drawable::Drawable;
    void draw(const Tile& tile, Scratch& scratch) const override;
    void drawFloat(const FloatTile& tile, Scratch& scratch) const override = 0;

protected:
    virtual bool isDithered() const { return false; }
};

class Node {
public:
    virtual ~Node() = default;
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    const Rect& extent() const { return extent_; }   // where it is defined
    const PixelRegion& support() const {
        return support_;
    }   // outside it is clear; never larger than the extent
    std::uint64_t hash() const { return hash_; }
    virtual bool isOpaque(const PixelRegion&) const { return false; }   // may say no when it does not know
    // What the pixels of a region depend on: 0 where there are none.
    virtual std::uint64_t contribution(const PixelRegion& region) const {
        return intersection(support_, region).isEmpty() ? 0 : hash_;
    }
    // Something to draw tiles within `wanted` from. `self` is this node.
    virtual DrawableRef prepare(Workshop& workshop, const NodeRef& self, const PixelRegion& wanted) const = 0;

protected:
    Node(const Rect& extent, const PixelRegion& support, std::uint64_t hash)
        : extent_(extent), support_(intersection(support, pixelsCovering(extent))), hash_(hash) {}

private:
    Rect extent_;
    PixelRegion support_;
    std::uint64_t hash_;
};

}   // namespace tavix::imaging
