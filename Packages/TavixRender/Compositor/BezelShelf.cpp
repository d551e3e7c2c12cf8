#include "TavixRender/Compositor/BezelShelf.h"

#include "TavixRender/Assets/FileIdentity.h"
#include "TavixRender/Compositor/CanvasDrawing.h"
#include "TavixRender/Compositor/MovedDevice.h"

#include <algorithm>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace tavix::CanvasDrawing {

namespace {

using imaging::Image;
using imaging::Rect;

// All that the picture is drawn from.
struct Key {
    DeviceMockup mockup;
    std::vector<std::optional<FileIdentity>> files;
    double paddingPx;
    Rect bounds;
    bool operator==(const Key&) const = default;
};

struct Entry {
    Key key;
    DevicePlace place;
    double pictureHeightPx;
    std::map<int, Image> byDetail;
};

double bytesOf(const Entry& entry) {
    double bytes = 0;
    for (const auto& [detail, image] : entry.byDetail)
        bytes += image.extent().width * image.extent().height * 4;
    return bytes;
}

// The latest used first.
class Shelf {
public:
    std::optional<Entry> find(const Key& key) {
        const std::lock_guard lock(mutex_);
        const auto known = std::ranges::find(entries_, key, &Entry::key);
        if (known == entries_.end()) return std::nullopt;
        entries_.splice(entries_.begin(), entries_, known);
        return entries_.front();
    }
    void keep(const Entry& entry) {
        const std::lock_guard lock(mutex_);
        entries_.remove_if([&](const Entry& known) { return known.key == entry.key; });
        entries_.push_front(entry);
        double bytes = 0;
        std::erase_if(entries_, [&](const Entry& known) { return (bytes += bytesOf(known)) > mostBytes; });
    }

private:
    static constexpr double mostBytes = 24 << 20;
    std::mutex mutex_;
    std::list<Entry> entries_;
};

Shelf& shelf() {
    static Shelf shared;   // by all previews; locks itself
    return shared;
}

}   // namespace

Image bezelAt(const FittedDevice& device, double detail, const Rect& bounds) {
    const Rect canvas{bounds.x * detail, bounds.y * detail, bounds.width * detail, bounds.height * detail};
    return place(device.picture, moved(device.frameRect, {detail, 0, 0}), canvas, Resampling::still);
}

Bezel keptBezel(const DeviceMockup& mockup, double paddingPx, const Rect& bounds,
    const std::optional<std::filesystem::path>& assetRoot, StillImageCache& images,
    imaging::Evaluator& evaluator) {
    Key key{mockup, {}, paddingPx, bounds};
    for (const auto& file : frameFiles(mockup, assetRoot)) key.files.push_back(FileIdentity::of(file));
    const auto resolved = [=, &images] {
        return resolveDevice(mockup, paddingPx, bounds, assetRoot, images, Keeping::nothing);
    };
    auto device = std::make_shared<std::optional<FittedDevice>>();   // while the bezel is asked for
    auto entry = shelf().find(key);
    if (!entry) {
        *device = resolved();
        entry = Entry{key, **device, (*device)->picture.extent().height, {}};
    }
    Bezel bezel{entry->place, entry->pictureHeightPx, {}};
    bezel.at = [=, &evaluator, entry = std::make_shared<Entry>(std::move(*entry))](int detail) {
        if (const auto known = entry->byDetail.find(detail); known != entry->byDetail.end())
            return known->second;
        if (!*device) *device = resolved();
        Image drawn = bezelAt(**device, detail, bounds);
        const Rect extent = drawn.extent();
        if (extent.isEmpty() || extent.isInfinite()) return drawn;
        drawn = evaluator.baked(drawn, imaging::pixelsCovering(extent));
        entry->byDetail[detail] = drawn;
        shelf().keep(*entry);
        return drawn;
    };
    return bezel;
}

}   // namespace tavix::CanvasDrawing
