// Drawables of filters that make whole rows of float pixels. Inside the library only.
#pragma once

#include "TavixPlatform/Imaging/Node.h"

#include <functional>
#include <memory>

namespace tavix::imaging {

// Pixels from rows of interleaved floats, 0 to 255; the 8-bit ones are dithered.
class RowDrawable : public Drawable {
public:
    using Drawable::Drawable;
    void draw(const Tile& tile, Scratch& scratch) const override;
    void drawFloat(const FloatTile& tile, Scratch& scratch) const override;

protected:
    using UseRow = std::function<void(int y, const float* values)>;
    virtual void forRows(const PixelRegion& region, Scratch& scratch, const UseRow& use) const = 0;
};

// Drawn only where it has support, whatever the rows could say beyond it.
class BoundedDrawable final : public Drawable {
public:
    BoundedDrawable(const NodeRef& node, std::unique_ptr<RowDrawable> inner)
        : Drawable(node), inner_(std::move(inner)) {}
    void draw(const Tile& tile, Scratch& scratch) const override { drawWithin(*inner_, tile, scratch); }
    void drawFloat(const FloatTile& tile, Scratch& scratch) const override {
        drawWithin(*inner_, tile, scratch);
    }

private:
    std::unique_ptr<RowDrawable> inner_;
};

}   // namespace tavix::imaging
