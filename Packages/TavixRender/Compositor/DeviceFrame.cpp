#include "TavixRender/Compositor/DeviceFrame.h"

#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixCore/Geometry/CanvasGeometry.h"
#include "TavixRender/Assets/BundledFrames.h"
#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Assets/FileIdentity.h"
#include "TavixRender/Compositor/CanvasDrawing.h"

#include <algorithm>
#include <deque>
#include <mutex>
#include <string>

namespace tavix::CanvasDrawing {

namespace {

namespace fs = std::filesystem;
using imaging::Image;

// Decoded frames of the whole program, since every preview of every edit asks for the same few. They are what
// decoding gives anew: a file that has changed is another one.
class FramePictures {
public:
    std::optional<Image> image(const fs::path& file, StillImageCache& images) {
        const auto identity = FileIdentity::of(file);
        if (!identity) return images.image(file);   // which says what is wrong with it
        if (const auto known = find(*identity)) return known;
        const auto decoded = images.image(file);
        if (decoded) keep({*identity, *decoded});
        return decoded;
    }

private:
    struct Entry {
        FileIdentity file;
        Image picture;
    };
    static constexpr std::size_t mostEntries = 8;   // of some 16 MiB each

    std::optional<Image> find(const FileIdentity& file) {
        const std::lock_guard lock(mutex_);
        const auto known = std::ranges::find(entries_, file, &Entry::file);
        if (known == entries_.end()) return std::nullopt;
        return known->picture;
    }
    void keep(Entry entry) {
        const std::lock_guard lock(mutex_);
        if (entries_.size() == mostEntries) entries_.pop_front();
        entries_.push_back(std::move(entry));
    }

    std::mutex mutex_;
    std::deque<Entry> entries_;   // the oldest first
};

FramePictures& framePictures() {
    static FramePictures pictures;   // shared by all renders; locks itself
    return pictures;
}

std::optional<Image> bundledFrame(const BundledDevice& device, StillImageCache& images) {
    const auto file = BundledFrames::url(device);
    return file ? framePictures().image(*file, images) : std::nullopt;
}

double aspectWithoutPicture(const DeviceMockup& mockup) {
    const BundledDevice* device = mockup.bundledID ? DeviceCatalog::device(*mockup.bundledID) : nullptr;
    return (device != nullptr ? *device : DeviceCatalog::defaultDevice()).frameAspect;
}

}   // namespace

Image resolveFrameImage(
    const DeviceMockup& mockup, const std::optional<fs::path>& assetRoot, StillImageCache& images) {
    if (mockup.framePath && !mockup.framePath->empty()) {
        const fs::path file = CompositionAssets::resolved(
            CompositionAssets::tildeExpanded(*mockup.framePath).string(), assetRoot);
        if (const auto image = framePictures().image(file, images)) return *image;
    }
    if (const auto* device = mockup.bundledID ? DeviceCatalog::device(*mockup.bundledID) : nullptr)
        if (const auto image = bundledFrame(*device, images)) return *image;
    return bundledFrame(DeviceCatalog::defaultDevice(), images).value_or(Image());
}

FittedDevice resolveDevice(const DeviceMockup& mockup, double paddingPx, const imaging::Rect& bounds,
    const std::optional<fs::path>& assetRoot, StillImageCache& images) {
    FittedDevice fitted{.picture = resolveFrameImage(mockup, assetRoot, images)};
    const imaging::Rect extent = fitted.picture.extent();
    const double aspect = extent.isEmpty() ? aspectWithoutPicture(mockup) : extent.width / extent.height;
    const PixelRect frame = CanvasGeometry::deviceFrameRect({bounds.width, bounds.height}, paddingPx, aspect);
    fitted.frameRect = frame;
    fitted.screenRect = {frame.x + mockup.screen.x * frame.width, frame.y + mockup.screen.y * frame.height,
        mockup.screen.width * frame.width, mockup.screen.height * frame.height};
    fitted.cornerRadiusPx =
        std::min(fitted.screenRect.width, fitted.screenRect.height) * mockup.screenCornerRadiusFraction;
    return fitted;
}

}   // namespace tavix::CanvasDrawing
