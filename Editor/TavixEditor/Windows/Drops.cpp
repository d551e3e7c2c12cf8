#include "TavixEditor/Windows/Drops.h"

#include "Editor/EditorDomain/Inspector/Themes.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/System/Continuation.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <fstream>
#include <system_error>

namespace tavix::editor {

namespace fs = std::filesystem;

namespace {

constexpr double usualShare = 0.8;         // of the canvas that a large picture gets
constexpr double aspectTolerance = 0.02;   // within which a clip has the shape of the canvas
constexpr double leastSec = 0.5;           // that a layer is shown, also at the end of its scene

struct Extension {
    std::string_view end;
    DropKind kind;
};
constexpr std::array extensions{Extension{".png", DropKind::picture}, Extension{".jpg", DropKind::picture},
    Extension{".jpeg", DropKind::picture}, Extension{".webp", DropKind::picture},
    Extension{".heic", DropKind::picture}, Extension{".avif", DropKind::picture},
    Extension{".mp4", DropKind::clip}, Extension{".mov", DropKind::clip}, Extension{".m4v", DropKind::clip},
    Extension{".webm", DropKind::clip}, Extension{".mkv", DropKind::clip}, Extension{".wav", DropKind::music},
    Extension{".mp3", DropKind::music}, Extension{".m4a", DropKind::music},
    Extension{".aac", DropKind::music}, Extension{".flac", DropKind::music},
    Extension{".ogg", DropKind::music}, Extension{".opus", DropKind::music}};

bool haveSameBytes(const fs::path& a, const fs::path& b) {
    if (fs::file_size(a) != fs::file_size(b)) return false;
    std::ifstream one(a, std::ios::binary), other(b, std::ios::binary);
    std::vector<char> left(1 << 16), right(1 << 16);
    do {
        one.read(left.data(), std::streamsize(left.size()));
        other.read(right.data(), std::streamsize(right.size()));
        if (one.gcount() != other.gcount() ||
            !std::equal(left.begin(), left.begin() + one.gcount(), right.begin()))
            return false;
    } while (one && other);
    return true;
}

// Written beside its place under a hidden name, which whoever watches the folder passes over, and then
// linked: a link takes no name that is there.
void copyAs(const fs::path& file, const fs::path& target) {
    const fs::path fresh = target.parent_path() / ("." + target.filename().string() + ".taking");
    std::error_code fault;
    if (!fs::copy_file(file, fresh, fs::copy_options::overwrite_existing, fault) || fault) {
        std::error_code ignored;
        fs::remove(fresh, ignored);
        throw fs::filesystem_error("copying", target, fault);
    }
    fs::create_hard_link(fresh, target, fault);
    if (fault && !fs::exists(target)) {   // a file system without links
        fs::rename(fresh, target);
        return;
    }
    fs::remove(fresh);
    if (fault) throw fs::filesystem_error("copying", target, fault);
}

// The name that the file has, or gets, among the assets.
fs::path placed(const fs::path& file, const fs::path& assets) {
    constexpr int mostNames = 10'000;
    for (int i = 1; i < mostNames; ++i) {
        fs::path name = file.filename();
        if (i > 1) name = file.stem().string() + "-" + std::to_string(i) + file.extension().string();
        const fs::path target = assets / name;
        if (!fs::exists(fs::symlink_status(target))) {
            copyAs(file, target);
            return target;
        }
        if (fs::is_regular_file(target) && (fs::equivalent(file, target) || haveSameBytes(file, target)))
            return target;
    }
    throw Failure("There are too many files called \"" + file.filename().string() + "\" among the assets.");
}

imaging::Size sizeOf(const fs::path& file, DropKind kind) {
    try {
        if (kind == DropKind::picture) return media::loadStillImage(file).view().size;
        if (kind != DropKind::clip) return {};
        const media::MediaInfo info = media::probeMedia(file);
        return info.video.empty() ? imaging::Size{} : info.video.front().shownSize;
    } catch (const std::exception&) {
        return {};   // drawing it tells what is wrong
    }
}

// Within the canvas, the middle as near to the point as that allows.
NormalizedRect rectAbout(
    std::pair<double, double> point, double width, double height, const CompositionOutput& canvas) {
    const double x = point.first / double(canvas.widthPx), y = point.second / double(canvas.heightPx);
    return {std::clamp(x - width / 2, 0.0, 1 - width), std::clamp(y - height / 2, 0.0, 1 - height), width,
        height};
}

ImageContent imageOf(const DroppedAsset& asset, const CompositionOutput& canvas) {
    ImageContent content;
    content.path = asset.path;
    if (asset.size.width <= 0 || asset.size.height <= 0) return content;
    const double share = std::min(usualShare * double(canvas.widthPx) / asset.size.width,
        usualShare * double(canvas.heightPx) / asset.size.height);
    if (share < 1) content.heightFraction = share * asset.size.height / double(canvas.heightPx);
    return content;
}

VideoContent videoOf(const DroppedAsset& asset, const CompositionOutput& canvas,
    std::optional<std::pair<double, double>> point) {
    VideoContent content;
    content.clip.path = asset.path;
    if (asset.size.width <= 0 || asset.size.height <= 0) return content;
    const double aspect = double(asset.size.width) / asset.size.height;
    const double ofCanvas = double(canvas.widthPx) / double(canvas.heightPx);
    if (std::abs(aspect / ofCanvas - 1) < aspectTolerance) return content;
    const double width = usualShare * std::min(1.0, aspect / ofCanvas);
    const double height = usualShare * std::min(1.0, ofCanvas / aspect);
    content.rect =
        rectAbout(point.value_or(std::pair(double(canvas.widthPx) / 2, double(canvas.heightPx) / 2)), width,
            height, canvas);
    return content;
}

std::size_t sceneAt(const CompositionSpec& spec, const CompositionTimeline& timeline, double atSec) {
    std::size_t scene = 0;
    for (std::size_t i = 0; i < spec.scenes.size(); ++i)
        if (timeline.startSec[i] <= atSec) scene = i;
    return scene;
}

}   // namespace

DropKind kindOfDrop(const fs::path& file) {
    if (CompositionProjectBundle::isBundle(file)) return DropKind::bundle;
    std::string end = file.extension().string();
    std::ranges::transform(end, end.begin(), [](unsigned char c) { return char(std::tolower(c)); });
    const auto found = std::ranges::find(extensions, std::string_view(end), &Extension::end);
    return found == extensions.end() ? DropKind::other : found->kind;
}

std::string patternsOf(DropKind kind) {
    std::string patterns;
    for (const Extension& each : extensions)
        if (each.kind == kind) patterns += (patterns.empty() ? "*" : " *") + std::string(each.end);
    return patterns;
}

DroppedAsset takeIn(const fs::path& file, const fs::path& bundle) {
    const DropKind kind = kindOfDrop(file);
    if (kind == DropKind::other || kind == DropKind::bundle)
        throw Failure(
            "\"" + file.filename().string() +
            "\" is no picture, clip or sound that can be used here; drop a PNG, a JPEG, an MP4, a WAV "
            "or the like.");
    const fs::path assets = CompositionProjectBundle::assetsFolder(bundle);
    try {
        fs::create_directories(assets);
        const fs::path target = placed(file, assets);
        return {kind, fs::path(assets.filename() / target.filename()).generic_string(), sizeOf(target, kind)};
    } catch (const fs::filesystem_error& error) {
        throw Failure("\"" + file.filename().string() +
                      "\" could not be copied into the project: " + error.code().message() + ".");
    }
}

void addDropped(EditState& state, const std::vector<DroppedAsset>& assets, const DropPlace& place) {
    if (state.spec.scenes.empty()) return;
    const CompositionTimeline timeline(state.spec);
    const std::size_t scene = sceneAt(state.spec, timeline, place.atSec);
    const double lengthSec = state.spec.scenes[scene].durationSec;
    const double fromSec =
        std::clamp(place.atSec - timeline.startSec[scene], 0.0, std::max(lengthSec - leastSec, 0.0));
    auto* phone =
        place.phone ? state.content<DeviceContent>(place.phone->scene, place.phone->layer) : nullptr;
    for (const DroppedAsset& asset : assets) {
        if (phone && fitsAScreen(asset.kind)) {
            phone->screen = asset.kind == DropKind::clip ? ScreenSource(VideoClip{asset.path, 0, {}, {}})
                                                         : ScreenSource(StillScreen{asset.path});
            state.selection = {place.phone->scene, place.phone->layer};
            phone = nullptr;
            continue;
        }
        if (asset.kind == DropKind::music) {
            setTrack(state, asset.path);
            continue;
        }
        const bool isClip = asset.kind == DropKind::clip;
        LayerOperations::addLayer(state, scene, isClip ? ContentKind::video : ContentKind::image);
        CompositionLayer& layer = state.spec.scenes[scene].layers.back();
        layer.fromSec = fromSec;
        if (isClip) {
            layer.content = videoOf(asset, state.spec.output, place.point);
        } else {
            layer.content = imageOf(asset, state.spec.output);
            if (place.point) layer.position = {place.point->first, place.point->second};
        }
    }
}

void drop(Studio& studio, const std::vector<fs::path>& files, const DropPlace& place) {
    struct Taken {
        std::vector<DroppedAsset> assets;
        std::string fault;   // the first
    };
    CompositionEditorModel& model = studio.model;
    if (!model.state.bundle()) return;
    const std::string step = utf8Of(QCoreApplication::translate("Drops", "Add Files"));
    system::runThere(
        studio.files(), studio.main(),
        [files, bundle = *model.state.bundle()] {
            Taken taken;
            for (const fs::path& file : files) try {
                    taken.assets.push_back(takeIn(file, bundle));
                } catch (const std::exception& error) {
                    if (taken.fault.empty()) taken.fault = error.what();
                }
            return taken;
        },
        [&model, place, step, bundle = model.state.bundle()](system::Outcome<Taken>& outcome) {
            const Taken& taken = outcome.value();
            if (model.state.bundle() != bundle) return;   // another project is open by now
            if (!taken.assets.empty())
                model.update(step, [&](EditState& state) { addDropped(state, taken.assets, place); });
            if (!taken.fault.empty()) model.state.errorMessage = taken.fault;
        });
}

}   // namespace tavix::editor
