#include "TavixRender/Assets/AlphaCutout.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/StillImages.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tavix::AlphaCutout {

namespace {

struct Box {
    int minX, minY, maxX, maxY;
    int width() const { return maxX - minX + 1; }
    int height() const { return maxY - minY + 1; }
};

// One flag a pixel: transparent, and not reached from the picture's border through transparent pixels.
class EnclosedPixels {
public:
    EnclosedPixels(const imaging::ConstBitmapView& picture, std::uint8_t alphaThreshold)
        : size_(picture.size), flags_(std::size_t(size_.width) * std::size_t(size_.height)) {
        for (int y = 0; y < size_.height; ++y) {
            const std::uint8_t* row = picture.row(y);
            for (int x = 0; x < size_.width; ++x)
                flags_[index(x, y)] = std::uint8_t(row[x * 4 + 3] < alphaThreshold);
        }
        floodFromBorder();
    }

    bool at(int x, int y) const { return flags_[index(x, y)] != 0; }

    std::optional<Box> bounds() const {
        Box box{size_.width, size_.height, -1, -1};
        for (int y = 0; y < size_.height; ++y)
            for (int x = 0; x < size_.width; ++x)
                if (at(x, y))
                    box = {std::min(box.minX, x), std::min(box.minY, y), std::max(box.maxX, x),
                        std::max(box.maxY, y)};
        if (box.maxX < 0) return std::nullopt;
        return box;
    }

    // In a row, from the left of the box.
    std::optional<int> first(int y, const Box& box) const {
        for (int x = box.minX; x <= box.maxX; ++x)
            if (at(x, y)) return x;
        return std::nullopt;
    }

private:
    struct Place {
        int x, y;
    };

    std::size_t index(int x, int y) const {
        return std::size_t(y) * std::size_t(size_.width) + std::size_t(x);
    }

    void floodFromBorder() {
        std::vector<Place> stack;
        const auto reach = [&](int x, int y) {
            if (x < 0 || y < 0 || x >= size_.width || y >= size_.height || !at(x, y)) return;
            flags_[index(x, y)] = 0;
            stack.push_back({x, y});
        };
        for (int x = 0; x < size_.width; ++x) {
            reach(x, 0);
            reach(x, size_.height - 1);
        }
        for (int y = 0; y < size_.height; ++y) {
            reach(0, y);
            reach(size_.width - 1, y);
        }
        while (!stack.empty()) {
            const Place p = stack.back();
            stack.pop_back();
            reach(p.x - 1, p.y);
            reach(p.x + 1, p.y);
            reach(p.x, p.y - 1);
            reach(p.x, p.y + 1);
        }
    }

    imaging::Size size_;
    std::vector<std::uint8_t> flags_;
};

// How many rows below the top the opening's left edge is reached, that is, the corner has ended.
int cornerRadiusPx(const EnclosedPixels& enclosed, const Box& box) {
    const auto left = enclosed.first(box.minY + box.height() / 2, box);
    if (!left) return 0;
    constexpr int narrowPx = 16, narrowLimitPx = 8;
    const int limit = std::min(box.width() < narrowPx ? narrowLimitPx : box.width() / 2, box.height());
    for (int k = 0; k < limit; ++k) {
        const auto x = enclosed.first(box.minY + k, box);
        if (x && *x <= *left + 1) return k;
    }
    return limit;
}

}   // namespace

std::optional<Result> detect(const imaging::ConstBitmapView& picture, std::uint8_t alphaThreshold) {
    const EnclosedPixels enclosed(picture, alphaThreshold);
    const auto box = enclosed.bounds();
    if (!box) return std::nullopt;
    const double width = picture.size.width, height = picture.size.height;
    const double radius = cornerRadiusPx(enclosed, *box);
    return Result{{box->minX / width, box->minY / height, box->width() / width, box->height() / height},
        std::min(radius / std::min(box->width(), box->height()), 0.5), picture.size.width,
        picture.size.height};
}

std::optional<Result> find(const std::filesystem::path& picture, std::uint8_t alphaThreshold) {
    const auto pixels = [&] {
        try {
            return media::loadStillImage(picture);
        } catch (const media::MediaError&) {
            throw Failure("Could not read frame image: " + picture.filename().string() + ".");
        }
    }();
    if (pixels.isEmpty()) throw Failure("Frame image has zero size.");
    return detect(pixels.view(), alphaThreshold);
}

Result detect(const std::filesystem::path& picture, std::uint8_t alphaThreshold) {
    const auto result = find(picture, alphaThreshold);
    if (!result)
        throw Failure("No interior transparent screen region found in " + picture.filename().string() + ".");
    return *result;
}

}   // namespace tavix::AlphaCutout
