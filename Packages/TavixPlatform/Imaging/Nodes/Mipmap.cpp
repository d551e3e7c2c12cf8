#include "TavixPlatform/Imaging/Nodes/Mipmap.h"

#include <algorithm>

namespace tavix::imaging {

namespace {

// The mean of four pixels, rounded, two channels of each at a time.
std::uint32_t meanOf(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    constexpr std::uint32_t two = 0x00FF00FF, half = 0x00020002;
    const std::uint32_t even = (a & two) + (b & two) + (c & two) + (d & two) + half;
    const std::uint32_t odd = (a >> 8 & two) + (b >> 8 & two) + (c >> 8 & two) + (d >> 8 & two) + half;
    return (even >> 2 & two) | (odd >> 2 & two) << 8;
}

void halveRow(std::uint32_t* out, const std::uint32_t* above, const std::uint32_t* below, int fromWidth) {
    const int pairs = fromWidth / 2;
    for (int x = 0; x < pairs; ++x)
        out[x] = meanOf(above[2 * x], above[2 * x + 1], below[2 * x], below[2 * x + 1]);
    if (const int last = fromWidth - 1; fromWidth % 2)
        out[pairs] = meanOf(above[last], above[last], below[last], below[last]);
}

BitmapRef halved(RenderContext& context, const Bitmap& source) {
    const Size from = source.size(), to{(from.width + 1) / 2, (from.height + 1) / 2};
    auto half = std::make_shared<Bitmap>(Bitmap::uninitialised(to, context.pool()));
    context.forEach((to.height + 31) / 32, [&](int strip, Scratch&) {
        for (int y = strip * 32; y < std::min(to.height, strip * 32 + 32); ++y) {
            const auto row = [&](int at) {
                return reinterpret_cast<const std::uint32_t*>(
                    source.view().row(std::min(at, from.height - 1)));
            };
            halveRow(reinterpret_cast<std::uint32_t*>(half->view().row(y)), row(2 * y), row(2 * y + 1),
                from.width);
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
