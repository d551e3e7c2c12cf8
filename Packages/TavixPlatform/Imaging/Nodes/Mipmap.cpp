#include "TavixPlatform/Imaging/Nodes/Mipmap.h"

#include <algorithm>

namespace tavix::imaging {

namespace {

BitmapRef halved(RenderContext& context, const Bitmap& source) {
    const Size from = source.size(), to{(from.width + 1) / 2, (from.height + 1) / 2};
    auto half = std::make_shared<Bitmap>(Bitmap::uninitialised(to, context.pool()));
    context.forEach((to.height + 31) / 32, [&](int strip, Scratch&) {
        for (int y = strip * 32; y < std::min(to.height, strip * 32 + 32); ++y) {
            const std::uint8_t* above = source.view().row(2 * y);
            const std::uint8_t* below = source.view().row(std::min(2 * y + 1, from.height - 1));
            std::uint8_t* out = half->view().row(y);
            for (int x = 0; x < to.width; ++x) {
                const int left = 2 * x * 4, right = std::min(2 * x + 1, from.width - 1) * 4;
                for (int c = 0; c < 4; ++c)
                    out[x * 4 + c] = std::uint8_t(
                        (above[left + c] + above[right + c] + below[left + c] + below[right + c] + 2) >> 2);
            }
        }
    });
    return half;
}

}   // namespace

BitmapRef mipmap(RenderContext& context, const BitmapRef& source, int level) {
    BitmapRef result = source;
    for (int i = 1; i <= level; ++i) {
        const ResultCache::Subject subject{
            .kind = ResultCache::Kind::halved, .bitmapId = source->id(), .halvings = i};
        auto kept = std::static_pointer_cast<const Bitmap>(context.cache().find(subject));
        if (!kept) {
            kept = halved(context, *result);
            context.cache().keep(subject, kept, kept->byteCount());
        }
        result = kept;
    }
    return result;
}

}   // namespace tavix::imaging
