#include "TavixLive/Gallery/PresetGalleryModel.h"

#include "TavixRender/Assets/BundledBackgrounds.h"

#include <algorithm>
#include <span>
#include <utility>

namespace tavix {

namespace {

// Neighbours show different ones. The first is that of new documents.
const BundledBackground& artworkOf(const PresetGalleryItem& item) {
    const std::span others = std::span(BackgroundCatalog::all).subspan(1);
    return others.empty() ? BackgroundCatalog::standard
                          : others[std::size_t(item.accentIndex) % others.size()];
}

}   // namespace

PresetGalleryModel::PresetGalleryModel(
    const LivePreview::Executors& executors, std::shared_ptr<PreviewMaker> maker, Artwork artwork)
    : preview_(executors, std::move(maker), nullptr), artwork_(std::move(artwork)) {
    if (!artwork_) artwork_ = BundledBackgrounds::url;
    preview_.player().setOnEnd([this] { restart(); });
}

void PresetGalleryModel::setStageSink(std::function<void(const StagePicture&)> sink) {
    preview_.player().setSink(std::move(sink));
}

const PresetGalleryItem* PresetGalleryModel::selectedItem() const {
    const auto found = std::ranges::find_if(
        items(), [this](const PresetGalleryItem& item) { return item.id == selectedID(); });
    return found == items().end() ? nullptr : &*found;
}

void PresetGalleryModel::play() {
    preview_.player().play();
    isPlaying = preview_.player().isPlaying();
}

void PresetGalleryModel::select(const PresetGalleryItem& item) {
    if (selectedID() == item.id && preview_.player().item()) return play();
    stop();
    selectedID = item.id;
    errorMessage = std::nullopt;
    isLoading = true;
    const auto screen = artwork_(artworkOf(item));
    if (!screen) {
        isLoading = false;
        errorMessage = "The bundled preview artwork is missing.";
        return;
    }
    CompositionSpec spec = item.previewSpec(screen->string(), {canvasWidthPx, canvasHeightPx, canvasFps});
    spec.background = LinearGradient::standard();   // on which dark devices stand out, too
    preview_.show(spec, std::nullopt, {canvasWidthPx, canvasHeightPx},
        selection_.guard([this](const LivePreview::Ended& ended) {
            if (ended.isOvertaken) return;
            isLoading = false;
            if (ended.failure)
                errorMessage = "Video preview failed: " + *ended.failure;
            else
                play();
        }));
}

void PresetGalleryModel::togglePlayback() {
    if (!preview_.player().isPlaying()) return play();
    preview_.player().pause();
    isPlaying = false;
}

void PresetGalleryModel::restart() {
    preview_.player().seek(0);
    play();
}

void PresetGalleryModel::stop() {
    selection_.cut();
    preview_.close();
    const Batch together;
    isPlaying = false;
    isLoading = false;
}

}   // namespace tavix
