// What the views of a reel's editor watch.
#pragma once

#include "TavixLive/Observing/Observable.h"
#include "TavixLive/Saving/DocumentMerge.h"
#include "TavixLive/Saving/LostWorkShelf.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixRender/Encoding/ExportOptions.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tavix {

struct ReelEditorState {
    Observable<bool> isLoaded{false};
    Observable<EffectsSpec> spec;
    Observable<bool> hasUnsavedChanges{false};
    Observable<bool> isKept{true};   // of unsaved changes: a crash would not cost them
    // Values that another program and the user have both changed; empty when there is nothing to choose.
    Observable<DocumentMerge::Conflicts> fileConflicts;
    Observable<std::vector<LostWorkOffer>> lostWork;   // the latest first; each names a bundle or a video
    // What is selected; all of it is there.
    Observable<std::set<std::size_t>> selectedCaptions, selectedTransitions;
    Observable<std::optional<std::size_t>> selectedCard;
    Observable<double> outputDuration{0}, currentTime{0};   // seconds of the finished reel
    Observable<bool> isPlaying{false};
    Observable<std::optional<std::string>> errorMessage;   // the one that the user must see
    Observable<std::string> statusMessage{"Open a reel to begin."};
    Observable<bool> isExporting{false};
    Observable<double> exportProgress{0};   // 0 to 1
    Observable<ExportFormat> exportFormat{ExportFormat::video};
    Observable<VideoCodec> exportVideoCodec{VideoCodec::h264};
    Observable<ExportContainer> exportContainer{ExportContainer::mp4};
    Observable<ResolutionPreset> exportResolution{ResolutionPreset::native};
};

}   // namespace tavix
