#include "TavixLive/Stage/Stage.h"

#include "TavixCore/Project/AssetReferences.h"
#include "TavixLive/Stage/FrameStore.h"
#include "TavixLive/Stage/StageDocument.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Assets/StillImageCache.h"
#include "TavixRender/Audio/CompositionAudioMuxer.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iterator>
#include <set>
#include <string>
#include <utility>

namespace tavix {

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Light squares and dark ones, as everywhere in programs for pictures.
imaging::Image checkered() {
    constexpr int squarePx = 8;
    const auto square = [](double level, int x, int y) {
        return imaging::Image::solid({level, level, level, 1})
            .cropped({double(x * squarePx), double(y * squarePx), squarePx, squarePx});
    };
    return imaging::Image::stacked(
        {square(0.42, 0, 0), square(0.34, 1, 0), square(0.34, 0, 1), square(0.42, 1, 1)})
        .tiled();
}

// The files of pictures that the document names.
std::set<std::filesystem::path> picturesOf(
    CompositionSpec spec, const std::optional<std::filesystem::path>& assetRoot) {
    std::set<std::filesystem::path> paths;
    forEachAsset(spec, [&](AssetKind kind, const std::string& path) {
        if (kind == AssetKind::picture && !path.empty())
            paths.insert(CompositionAssets::resolved(path, assetRoot));
    });
    return paths;
}

}   // namespace

// What all sources of a stage share.
struct Stage::Workroom {
    Workroom(const Options& chosen, RenderLog told)
        : options(chosen), log(std::move(told)), evaluator(chosen.evaluation),
          ground(chosen.showsClear ? checkered() : imaging::Image::solid(imaging::Color::black())) {}

    void resize(imaging::Size wanted) {
        if (surface && store && size == wanted) return;
        size = wanted;
        surface.emplace(evaluator, size);
        store.emplace(size, options.storeBytes);
    }

    // A build of another size draws none of them again.
    void forgetFrames() {
        surface.reset();
        store.reset();
    }

    // Those that a document names for the first time are read together, as far as they may stay; later ones
    // are read by the layers that are built anew.
    void readAhead(std::set<std::filesystem::path> named) {
        std::set<std::filesystem::path> fresh;
        std::ranges::set_difference(named, namedPictures, std::inserter(fresh, fresh.end()));
        memory.images().readAhead(fresh, BuildMemory::mostPictureBytes);
        namedPictures = std::move(named);
    }

    Options options;
    RenderLog log;
    imaging::Evaluator evaluator;
    imaging::Image ground;   // seen where a document is clear
    BuildMemory memory;
    Composition3DRendererPool devices;
    bool showsLiveValues = false;   // frames are not those of the document, and not kept
    imaging::Size size;
    std::optional<imaging::FrameSurface> surface;
    std::optional<FrameStore> store;
    std::set<std::filesystem::path> namedPictures;   // of the document before
    // Of those that nobody shows any more: while a film plays, each goes to the next frame.
    std::shared_ptr<imaging::BytePool> pictures = std::make_shared<imaging::BytePool>(6u << 20);
};

class Stage::Source final : public FrameSource {
public:
    Source(std::shared_ptr<Workroom> room, const CompositionSpec& document,
        const std::optional<std::filesystem::path>& assetRoot)
        : room_(std::move(room)), resolved_(document, assetRoot, room_->evaluator, room_->log,
                                      &room_->devices, room_->options.takesOver ? &room_->memory : nullptr),
          totalSec_(resolved_.timeline().totalSec), hasDevicesInSpace_(resolved_.hasDevicesInSpace()),
          size_(canvasSize(document)) {}

    Drawn draw(double atSec, FrameQuality quality) override;
    bool isStored(double atSec) const override {
        const auto key = resolved_.frameKey(atSec);
        return key && !room_->showsLiveValues && room_->store && size_ == room_->size &&
               room_->store->has(*key);
    }
    // What cannot be had is told when it is drawn.
    bool prepare(double nearSec) override try {
        return resolved_.prepare(nearSec);
    } catch (const std::exception&) {
        return false;
    }
    void rest() override { room_->memory.images().renew(mostRestingPictureBytes); }
    bool hasRoom() const override { return room_->store && room_->store->hasRoom(); }
    double totalSec() const override { return totalSec_; }
    bool hasDevicesInSpace() const override { return hasDevicesInSpace_; }

private:
    static constexpr std::size_t mostRestingPictureBytes = 4u << 20;   // of decoded files

    std::shared_ptr<Workroom> room_;
    ResolvedComposition resolved_;
    double totalSec_;
    bool hasDevicesInSpace_;
    imaging::Size size_;
};

FrameSource::Drawn Stage::Source::draw(double atSec, FrameQuality quality) {
    const auto start = Clock::now();
    room_->resize(size_);
    auto pixels = std::make_shared<imaging::Bitmap>(imaging::Bitmap::uninitialised(size_, room_->pictures));
    Drawn drawn{pixels};
    auto key = room_->showsLiveValues ? std::nullopt : resolved_.frameKey(atSec);
    if (key && room_->store->restore(*key, pixels->view())) {
        drawn.isStored = drawn.isKept = true;
        drawn.paintSec = secondsSince(start);
        return drawn;
    }
    try {
        resolved_.setScrubQuality(quality == FrameQuality::scrub);
        resolved_.setRough(quality != FrameQuality::full);
        const imaging::Rect canvas{0, 0, double(size_.width), double(size_.height)};
        // Opaque, whatever the document leaves clear.
        const imaging::Image frame =
            imaging::Image::stacked({room_->ground.cropped(canvas), resolved_.frame(atSec)});
        drawn.buildSec = secondsSince(start);
        room_->surface->update(frame);
    } catch (const std::exception& error) {
        char sec[32];
        std::snprintf(sec, sizeof sec, "%.2f", atSec);
        tell(room_->log, Finding::warning(RenderCode::frameNotDrawn,
                             "The frame at " + std::string(sec) + " s is not drawn: " + error.what()));
        room_->surface.emplace(room_->evaluator, size_);
        key.reset();   // it is tried again
    }
    const imaging::ConstBitmapView shown = room_->surface->pixels();
    for (int y = 0; y < size_.height; ++y)
        std::memcpy(pixels->view().row(y), shown.row(y), std::size_t(size_.width) * 4);
    drawn.isRough = quality != FrameQuality::full && hasDevicesInSpace_;
    if (key && quality == FrameQuality::full && room_->options.storeBytes > 0) {
        room_->store->keep(*key, shown);
        drawn.isKept = true;
    }
    drawn.paintSec = secondsSince(start) - drawn.buildSec;
    return drawn;
}

Stage::Stage(const Options& options, RenderLog log)
    : room_(std::make_shared<Workroom>(options, std::move(log))) {}

Stage::~Stage() = default;

FrameSourceRef Stage::source(const CompositionSpec& spec, const AssetRoot& assetRoot, imaging::Size room) {
    const imaging::Size size = stageSize(canvasSize(spec), room);
    room_->showsLiveValues = false;
    if (size != room_->size) room_->forgetFrames();
    room_->readAhead(picturesOf(spec, assetRoot));
    return std::make_shared<Source>(
        room_, stageDocument(spec, size, assetRoot, room_->memory.images()), assetRoot);
}

void Stage::liveApply(const Composition3DRendererPool::Key& key, const DeviceScene3D& scene3D,
    const std::optional<DevicePlacementSpec>& placement) {
    room_->showsLiveValues = true;
    room_->devices.liveApply(key, scene3D, placement);
}

void Stage::setLiveMode(bool isOn) { room_->devices.setLiveMode(isOn); }

void Stage::forgetDevices() { room_->devices.removeAll(); }

std::optional<media::AudioTimeline> Stage::sound(
    const CompositionSpec& spec, const AssetRoot& assetRoot) const {
    if (!spec.audio) return std::nullopt;
    media::AudioTimeline timeline;
    const double totalSec = CompositionTimeline(spec).totalSec;
    if (!CompositionAudioMuxer::insertAudio(*spec.audio, timeline, assetRoot, totalSec, room_->log))
        return std::nullopt;
    return timeline;
}

std::size_t Stage::storedBytes() const { return room_->store ? room_->store->byteCount() : 0; }

}   // namespace tavix
