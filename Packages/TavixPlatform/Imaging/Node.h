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

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tavix::imaging {

class RenderContext;

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
    // Rounded from its floats.
    void drawRounded(const Tile& tile, Scratch& scratch) const;

private:
    NodeRef node_;
};
using DrawableRef = std::shared_ptr<const Drawable>;

// One whose pixels are float by nature; the 8-bit ones are rounded from them.
class FloatDrawable : public Drawable {
public:
    using Drawable::Drawable;
    void draw(const Tile& tile, Scratch& scratch) const override { drawRounded(tile, scratch); }
    void drawFloat(const FloatTile& tile, Scratch& scratch) const override = 0;
};

// What a node is made of: its fields and its inputs. All that its pixels follow from.
class Structure {
public:
    enum class Keeping { digest, everything };
    explicit Structure(Keeping keeping) : hash_(keeping == Keeping::everything ? &fields_ : nullptr) {}
    Structure(const Structure&) = delete;
    Structure& operator=(const Structure&) = delete;

    template <class Field> Structure& add(const Field& field) {
        hash_.add(field);
        return *this;
    }
    Structure& add(const NodeRef& input);
    template <class Enumeration> Structure& kind(Enumeration value) {
        hash_.kind(value);
        return *this;
    }
    Hash& hash() { return hash_; }   // for what adds its own fields

    // Kept when everything is.
    const std::string& fields() const { return fields_; }
    const std::vector<NodeRef>& inputs() const { return inputs_; }

private:
    std::string fields_;
    std::vector<NodeRef> inputs_;
    Hash hash_;
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
    const Digest& hash() const { return hash_; }
    virtual void describe(Structure& structure) const = 0;              // always the same way
    virtual bool isOpaque(const PixelRegion&) const { return false; }   // may say no when it does not know
    // Whether its floats are finer than bytes, as those of ramps are. They are dithered when they are
    // rounded.
    virtual bool isFine() const { return false; }
    // What the pixels of a region depend on: nothing where there are none.
    virtual Digest contribution(const PixelRegion& region) const {
        return intersection(support_, region).isEmpty() ? Digest{} : hash_;
    }
    // Something to draw tiles within `wanted` from. `self` is this node.
    virtual DrawableRef prepare(
        RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const = 0;

protected:
    Node(const Rect& extent, const PixelRegion& support)
        : extent_(extent), support_(intersection(support, pixelsCovering(extent))) {}

private:
    template <class Made, class... Arguments> friend NodeRef makeNode(Arguments&&... arguments);
    void takeHash();   // once it is whole

    Rect extent_;
    PixelRegion support_;
    Digest hash_;
};

template <class Made, class... Arguments> NodeRef makeNode(Arguments&&... arguments) {
    auto node = std::make_shared<Made>(std::forward<Arguments>(arguments)...);
    node->takeHash();
    return node;
}

// Whether two graphs are the same in every field of every node, whatever their hashes say.
bool haveSameStructure(const NodeRef& a, const NodeRef& b);

}   // namespace tavix::imaging
