// The browser of device motions and formations: the selected one plays again and again on a small canvas.
#pragma once

#include "TavixCore/Theme/BackgroundCatalog.h"
#include "TavixLive/Gallery/PresetGallery.h"
#include "TavixLive/Observing/Observable.h"
#include "TavixLive/Playback/LivePreview.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace tavix {

// Lives on the main executor.
class PresetGalleryModel {
public:
    // Where the picture of a background lies; nothing when it is not there.
    using Artwork = std::function<std::optional<std::filesystem::path>(const BundledBackground& background)>;

    // Without one of its own it looks among the pictures that are installed.
    PresetGalleryModel(
        const LivePreview::Executors& executors, std::shared_ptr<PreviewMaker> maker, Artwork artwork = {});

    Observable<std::optional<std::string>> selectedID;
    Observable<bool> isLoading{false}, isPlaying{false};
    Observable<std::optional<std::string>> errorMessage;

    static const std::vector<PresetGalleryItem>& items() { return PresetGalleryCatalog::all(); }
    const PresetGalleryItem* selectedItem() const;   // null for none

    // Builds its film and plays it. One that is selected already goes on playing.
    void select(const PresetGalleryItem& item);
    void togglePlayback();
    void restart();
    void stop();

    void setStageSink(std::function<void(const StagePicture&)> sink);
    LivePreview& preview() { return preview_; }

    static constexpr int canvasWidthPx = 360, canvasHeightPx = 640, canvasFps = 30;

private:
    void play();

    LivePreview preview_;
    Artwork artwork_;
    system::Lifeline selection_;   // until another one is made
};

}   // namespace tavix
