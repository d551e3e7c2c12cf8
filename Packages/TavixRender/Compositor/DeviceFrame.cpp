#include "TavixRender/Compositor/DeviceFrame.h"

#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixCore/Geometry/CanvasGeometry.h"
#include "TavixPlatform/Media/StillHeader.h"
#include "TavixRender/Assets/BundledFrames.h"
#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Assets/FileIdentity.h"
#include "TavixRender/Compositor/CanvasDrawing.h"

#include <algorithm>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

namespace tavix::CanvasDrawing {

namespace {

namespace fs = std::filesystem;
using imaging::Image;

// The frames decoded last, of the whole program, since every preview of an edit to a device asks for the same
// one. They are what decoding gives anew: a file that has changed is another one.
class FramePictures {
public:
    std::optional<Image> image(const fs::path& file, StillImageCache& images, Keeping keeping) {
        const auto identity = FileIdentity::of(file);
        if (!identity) return images.image(file);   // which says what is wrong with it
        if (const auto known = find(*identity)) return known;
        if (keeping == Keeping::nothing) return images.imageOnce(file);
        const auto decoded = images.image(file);
        if (decoded) keep({*identity, *decoded});
        return decoded;
    }

private:
    struct Entry {
        FileIdentity file;
        Image picture;
    };
    static constexpr double mostBytes = 20 << 20;   // one of a phone in full size

    static double bytesOf(const Image& picture) {
        return picture.extent().width * picture.extent().height * 4;
    }

    std::optional<Image> find(const FileIdentity& file) {
        const std::lock_guard lock(mutex_);
        const auto known = std::ranges::find(entries_, file, &Entry::file);
        if (known == entries_.end()) return std::nullopt;
        return known->picture;
    }
    void keep(Entry entry) {
        const std::lock_guard lock(mutex_);
        bytes_ += bytesOf(entry.picture);
        entries_.push_back(std::move(entry));
        for (; bytes_ > mostBytes; entries_.pop_front()) bytes_ -= bytesOf(entries_.front().picture);
    }

    std::mutex mutex_;
    std::deque<Entry> entries_;   // the oldest first
    double bytes_ = 0;
};

FramePictures& framePictures() {
    static FramePictures pictures;   // shared by all renders; locks itself
    return pictures;
}

std::optional<imaging::Size> frameSize(const DeviceMockup& mockup, const std::optional<fs::path>& assetRoot) {
    for (const fs::path& file : frameFiles(mockup, assetRoot)) {
        try {
            return media::readStillHeader(file).size;
        } catch (const media::MediaError&) {}   // the next one stands in for it
    }
    return std::nullopt;
}

double aspectWithoutPicture(const DeviceMockup& mockup) {
    const BundledDevice* device = mockup.bundledID ? DeviceCatalog::device(*mockup.bundledID) : nullptr;
    return (device != nullptr ? *device : DeviceCatalog::defaultDevice()).frameAspect;
}

DevicePlace placeWithAspect(
    double aspect, const DeviceMockup& mockup, double paddingPx, const imaging::Rect& bounds) {
    const PixelRect frame = CanvasGeometry::deviceFrameRect({bounds.width, bounds.height}, paddingPx, aspect);
    const PixelRect screen{frame.x + mockup.screen.x * frame.width, frame.y + mockup.screen.y * frame.height,
        mockup.screen.width * frame.width, mockup.screen.height * frame.height};
    return {frame, screen, std::min(screen.width, screen.height) * mockup.screenCornerRadiusFraction};
}

}   // namespace

std::vector<fs::path> frameFiles(const DeviceMockup& mockup, const std::optional<fs::path>& assetRoot) {
    std::vector<fs::path> files;
    if (mockup.framePath && !mockup.framePath->empty())
        files.push_back(CompositionAssets::resolved(
            CompositionAssets::tildeExpanded(*mockup.framePath).string(), assetRoot));
    const BundledDevice* named = mockup.bundledID ? DeviceCatalog::device(*mockup.bundledID) : nullptr;
    for (const BundledDevice* device : {named, &DeviceCatalog::defaultDevice()})
        if (const auto file = device != nullptr ? BundledFrames::url(*device) : std::nullopt)
            files.push_back(*file);
    return files;
}

Image resolveFrameImage(const DeviceMockup& mockup, const std::optional<fs::path>& assetRoot,
    StillImageCache& images, Keeping keeping) {
    for (const fs::path& file : frameFiles(mockup, assetRoot))
        if (const auto image = framePictures().image(file, images, keeping)) return *image;
    return Image();
}

FittedDevice resolveDevice(const DeviceMockup& mockup, double paddingPx, const imaging::Rect& bounds,
    const std::optional<fs::path>& assetRoot, StillImageCache& images, Keeping keeping) {
    const Image picture = resolveFrameImage(mockup, assetRoot, images, keeping);
    const imaging::Rect extent = picture.extent();
    const double aspect = extent.isEmpty() ? aspectWithoutPicture(mockup) : extent.width / extent.height;
    return {placeWithAspect(aspect, mockup, paddingPx, bounds), picture};
}

DevicePlace placeOfDevice(const DeviceMockup& mockup, double paddingPx, const imaging::Rect& bounds,
    const std::optional<fs::path>& assetRoot) {
    const auto size = frameSize(mockup, assetRoot);
    const double aspect = size ? double(size->width) / size->height : aspectWithoutPicture(mockup);
    return placeWithAspect(aspect, mockup, paddingPx, bounds);
}

}   // namespace tavix::CanvasDrawing
