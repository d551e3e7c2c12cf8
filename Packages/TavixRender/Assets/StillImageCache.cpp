#include "TavixRender/Assets/StillImageCache.h"

#include "TavixPlatform/Imaging/ParallelLoop.h"
#include "TavixPlatform/Media/StillHeader.h"
#include "TavixPlatform/Media/StillImages.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tavix {

namespace {

imaging::Image decoded(const std::filesystem::path& path) {
    imaging::Bitmap pixels = media::loadStillImage(path);
    const imaging::Size size = pixels.size();
    const bool isOpaque =
        pixels.coverage({0, 0, size.width, size.height}) == imaging::Bitmap::Coverage::opaque;
    if (!isOpaque) pixels.indexCoverage();
    return imaging::Image::bitmap(std::make_shared<const imaging::Bitmap>(std::move(pixels)));
}

}   // namespace

std::optional<imaging::Image> StillImageCache::image(const std::filesystem::path& path) {
    auto known = byPath_.find(path);
    if (known == byPath_.end()) {
        // First what the file is: one that changes while it is read is read again.
        const auto file = FileIdentity::of(path);
        known = byPath_.emplace(path, Entry{file, load(path), renewals_}).first;
    }
    known->second.lastAsked = renewals_;
    return known->second.image;
}

std::optional<imaging::Image> StillImageCache::imageOnce(const std::filesystem::path& path) const {
    const auto known = byPath_.find(path);
    return known == byPath_.end() ? load(path) : known->second.image;
}

void StillImageCache::renew(std::size_t mostBytes) {
    ++renewals_;
    std::erase_if(
        byPath_, [](const auto& known) { return FileIdentity::of(known.first) != known.second.file; });
    std::vector<decltype(byPath_)::iterator> byUse;
    for (auto known = byPath_.begin(); known != byPath_.end(); ++known) byUse.push_back(known);
    std::ranges::stable_sort(
        byUse, std::greater(), [](const auto& known) { return known->second.lastAsked; });
    double bytes = 0;
    for (const auto& known : byUse) {
        if (!known->second.image) continue;
        const imaging::Rect extent = known->second.image->extent();
        bytes += extent.width * extent.height * 4;
        if (bytes > double(mostBytes)) byPath_.erase(known);
    }
}

// From the head of the file, which costs a thousandth of its pixels.
std::optional<imaging::Size> StillImageCache::size(const std::filesystem::path& path) {
    const auto file = FileIdentity::of(path);
    Measured& known = sizes_[path];
    if (known.file && known.file == file) return known.size;
    known = {file, {}};
    try {
        known.size = media::readStillHeader(path).size;
    } catch (const media::MediaError&) {}   // `image` tells why
    return known.size;
}

void StillImageCache::readAhead(const std::set<std::filesystem::path>& paths, std::size_t mostBytes) {
    struct Reading {
        const std::filesystem::path* path;
        Entry entry;
    };
    std::vector<Reading> readings;
    double bytes = 0;
    for (const std::filesystem::path& path : paths) {
        const auto stated = byPath_.contains(path) ? std::nullopt : size(path);
        if (!stated) continue;
        bytes += 4.0 * stated->width * stated->height;
        if (bytes > double(mostBytes)) break;
        readings.push_back({&path, {{}, {}, renewals_}});
    }
    if (readings.empty()) return;
    imaging::ParallelLoop(0).run(int(readings.size()), [&](int i) {
        Reading& reading = readings[std::size_t(i)];
        reading.entry.file = FileIdentity::of(*reading.path);
        try {
            reading.entry.image = decoded(*reading.path);
        } catch (const media::MediaError&) {}
    });
    for (Reading& reading : readings)
        if (reading.entry.image) byPath_.emplace(*reading.path, std::move(reading.entry));
}

std::optional<imaging::Image> StillImageCache::load(const std::filesystem::path& path) const {
    try {
        return decoded(path);
    } catch (const media::MediaError& error) {
        tell(log_, Finding::warning(RenderCode::pictureMissing,
                       "The image " + path.string() + " is not drawn: " + error.what(), path.string()));
        return std::nullopt;
    }
}

}   // namespace tavix
