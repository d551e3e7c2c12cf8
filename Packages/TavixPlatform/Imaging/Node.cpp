#include "TavixPlatform/Imaging/Node.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

namespace tavix::imaging {

Structure& Structure::add(const NodeRef& input) {
    hash_.add(input->hash());
    if (!fields_.empty())
        inputs_.push_back(input);   // a kind comes first, so there are some when they are kept
    return *this;
}

void Node::takeHash() {
    Structure structure(Structure::Keeping::digest);
    describe(structure);
    hash_ = structure.hash().digest();
}

bool haveSameStructure(const NodeRef& a, const NodeRef& b) {
    using Pair = std::pair<NodeRef, NodeRef>;
    std::vector<Pair> open{{a, b}};
    std::set<Pair> known;   // inputs are shared; each pair is looked at once
    while (!open.empty()) {
        const Pair pair = std::move(open.back());
        open.pop_back();
        if (pair.first == pair.second || !known.insert(pair).second) continue;
        Structure one(Structure::Keeping::everything), other(Structure::Keeping::everything);
        pair.first->describe(one);
        pair.second->describe(other);
        if (one.fields() != other.fields() || one.inputs().size() != other.inputs().size()) return false;
        for (std::size_t i = 0; i < one.inputs().size(); ++i)
            open.emplace_back(one.inputs()[i], other.inputs()[i]);
    }
    return true;
}

Drawable::Drawable(NodeRef node) : node_(std::move(node)) {}
Drawable::~Drawable() = default;

void Drawable::drawOver(const Tile& tile, unsigned opacity, Scratch& scratch) const {
    const PixelRegion part = intersection(tile.region, node_->support());
    if (part.isEmpty() || opacity == 0) return;
    if (opacity == 255 && node_->isOpaque(part)) {
        draw(tile.part(part), scratch);
        return;
    }
    const Scratch::Mark mark(scratch);
    const Tile own = scratch.tile(part);
    draw(own, scratch);
    for (int y = part.y0; y < part.y1; ++y)
        kernels().over(tile.at(part.x0, y), own.row(y), own.width(), opacity);
}

void Drawable::drawFloat(const FloatTile& tile, Scratch& scratch) const {
    const Scratch::Mark mark(scratch);
    const Tile bytes = scratch.tile(tile.region);
    draw(bytes, scratch);
    for (int y = tile.region.y0; y < tile.region.y1; ++y)
        kernels().unpack(tile.row(y), bytes.row(y), tile.width());
}

void Drawable::drawWithin(const Drawable& inner, const Tile& tile, Scratch& scratch) const {
    const PixelRegion part = intersection(tile.region, node_->support());
    if (part != tile.region) clear(tile);
    if (!part.isEmpty()) inner.draw(tile.part(part), scratch);
}

void Drawable::drawWithin(const Drawable& inner, const FloatTile& tile, Scratch& scratch) const {
    const PixelRegion part = intersection(tile.region, node_->support());
    if (part == tile.region) return inner.drawFloat(tile, scratch);
    clear(tile);
    if (part.isEmpty()) return;
    const Scratch::Mark mark(scratch);
    const FloatTile own = scratch.floatTile(part);
    inner.drawFloat(own, scratch);
    for (int y = part.y0; y < part.y1; ++y)
        for (int c = 0; c < 4; ++c)
            std::copy_n(own.row(y).plane[c], own.width(), tile.row(y).plane[c] + (part.x0 - tile.region.x0));
}

void Drawable::drawRounded(const Tile& tile, Scratch& scratch) const {
    const Scratch::Mark mark(scratch);
    const FloatTile values = scratch.floatTile(tile.region);
    drawFloat(values, scratch);
    for (int y = tile.region.y0; y < tile.region.y1; ++y) {
        const float* dither = node_->isFine() ? ditherOfPixels(tile.region.x0, y) : nullptr;
        kernels().pack(tile.row(y), values.row(y), dither, tile.width());
    }
}

}   // namespace tavix::imaging
