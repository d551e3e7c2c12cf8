// Turns a composition into a file.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixRender/Assets/RenderLog.h"
#include "TavixRender/Encoding/ExportOptions.h"
#include "TavixRender/Encoding/FilmWriter.h"
#include "TavixRender/Encoding/RenderStopped.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

namespace tavix {

namespace CompositionRenderer {

struct Config {
    CompositionSpec spec;   // with its beats, marks and presets resolved
    std::filesystem::path output;
    std::optional<std::filesystem::path> assetRoot;   // of relative paths; absent: the document's own
    ExportFormat fileFormat = ExportFormat::video;
    VideoCodec videoCodec = VideoCodec::h264;
    ExportContainer container = ExportContainer::mp4;
    media::EncodingEffort effort = media::EncodingEffort::fast;
    ExportRate rate = {};
    std::optional<media::HardwareEncoder> hardware = {};
    imaging::EvaluatorOptions evaluation = {};
    // Where finished pieces of films are kept for the next render; absent: nowhere.
    std::optional<std::filesystem::path> pieceStore = {};
    std::size_t memoryBytes = 0;                  // that films may take; 0: a quarter of the machine's
    std::optional<std::int64_t> mostBytes = {};   // as PiecedFilm::mostBytes
};

using Progress = FilmWriter::Progress;

FilmFile fileOf(const Config& config);

// What a render says first: "1080×1920 @ 30fps — 3 scenes, 12.4s (372 frames)".
std::string headline(const CompositionSpec& spec, double totalSec, std::int64_t frameCount);

// Makes the film in one go, without sound and without pieces. As FilmWriter::write.
void render(const Config& config, const RenderLog& log, const Progress& onProgress = {},
    const std::stop_token& stop = {});

// Writes one frame as a PNG. Throws `Failure`.
void renderStill(
    const Config& config, double atSec, const std::filesystem::path& file, const RenderLog& log = {});

// How many frames the composition has at its own rate.
std::int64_t frameCount(const CompositionSpec& spec);

// The time on the global clock of a time in the first scene of that name; nothing when there is no such
// scene.
std::optional<double> globalTime(const CompositionSpec& spec, std::string_view sceneID, double localSec);

}   // namespace CompositionRenderer

}   // namespace tavix
