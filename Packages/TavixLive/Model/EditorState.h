// What the views of an editor watch.
#pragma once

#include "TavixCore/Document/BeatAnalysis.h"
#include "TavixCore/Values/NormalizedVec2.h"
#include "TavixLive/Observing/Observable.h"
#include "TavixLive/Operations/DeviceOperations.h"
#include "TavixLive/Operations/EditState.h"
#include "TavixLive/Playback/DrawAhead.h"
#include "TavixLive/Saving/DocumentMerge.h"
#include "TavixLive/Saving/DocumentOnDisk.h"
#include "TavixLive/Saving/LostWorkShelf.h"
#include "TavixLive/Stage/FrameSource.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixRender/Encoding/ExportOptions.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

// What another program made of the file, and what it was before.
struct TakenIn {
    std::shared_ptr<const DocumentOnDisk> before, after;
    bool operator==(const TakenIn&) const = default;   // by identity
};

struct EditorState {
    Observable<bool> isLoaded{false};
    Observable<std::optional<std::filesystem::path>> bundle;   // where the files of the document lie, too
    SharedObservable<EditState> edited;                        // the resolved document, and what is selected
    Observable<std::optional<std::string>> undoName,
        redoName;   // of the steps that these take; none: no step
    Observable<bool> hasUnsavedChanges{false};
    Observable<bool> isKept{true};   // of unsaved changes: a crash would not cost them
    // Values that another program and the user have both changed; empty when there is nothing to choose.
    Observable<DocumentMerge::Conflicts> fileConflicts;
    Observable<std::optional<TakenIn>> takenIn;             // the last time, while the document is open
    Observable<std::vector<LostWorkOffer>> lostWork;        // the latest first
    Observable<double> outputDuration{0}, currentTime{0};   // seconds
    Observable<bool> isPlaying{false};
    Observable<std::optional<FilmRange>> loop;             // what is played again and again
    Observable<std::vector<FilmRange>> cachedRanges;       // whose frames are in memory, in order and apart
    Observable<std::optional<std::string>> errorMessage;   // the one that the user must see
    Observable<std::string> statusMessage;
    Observable<bool> isAnalyzingMusic{false};
    Observable<std::optional<BeatAnalysis>> musicAnalysis;   // what was last heard in the document's music
    Observable<bool> isExporting{false};
    Observable<double> exportProgress{0};   // 0 to 1
    Observable<std::filesystem::path>
        exportTarget;   // of the export that runs, or ran last; a folder of pictures
    Observable<ExportFormat> exportFormat{ExportFormat::video};
    Observable<VideoCodec> exportVideoCodec{VideoCodec::h264};
    Observable<ExportContainer> exportContainer{ExportContainer::mp4};
    Observable<ResolutionPreset> exportResolution{ResolutionPreset::native};
    Observable<media::EncodingEffort> exportEffort{media::EncodingEffort::fast};
    Observable<ExportRate> exportRate;
    Observable<std::optional<std::int64_t>> exportMostBytes;   // that the file may have
    Observable<bool> showsLiveFrame{false};                    // a frame of a drag stands on the stage
    Observable<double> previewOverscan{1};   // 0.1 to 1: how much the device is shrunk to see around it
    Observable<NormalizedVec2> previewPan{NormalizedVec2{}};
};

}   // namespace tavix
