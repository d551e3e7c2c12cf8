#include "TavixPlatform/Imaging/Nodes/RowDrawable.h"

namespace tavix::imaging {

void RowDrawable::draw(const Tile& tile, Scratch& scratch) const {
    const Scratch::Mark mark(scratch);
    forRows(tile.region, scratch, [&](int y, const float* values) {
        kernels().packInterleaved(tile.row(y), values, ditherOfChannels(tile.region.x0, y), tile.width());
    });
}

void RowDrawable::drawFloat(const FloatTile& tile, Scratch& scratch) const {
    const Scratch::Mark mark(scratch);
    forRows(tile.region, scratch,
        [&](int y, const float* values) { kernels().deinterleave(tile.row(y), values, tile.width()); });
}

}   // namespace tavix::imaging
