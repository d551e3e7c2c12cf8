// Writes any film, given its frames in order, as a movie or an animated GIF.
#pragma once

#include "TavixCore/Document/FrameRate.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixRender/Assets/RenderLog.h"
#include "TavixRender/Encoding/ExportOptions.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>

namespace tavix {

struct FilmFrames {
    imaging::Size size;
    FrameRate fps;
    std::int64_t count = 0;
    std::function<imaging::Image(double atSec)> at;
};

struct FilmFile {
    std::filesystem::path output;
    ExportFormat format = ExportFormat::video;
    VideoCodec codec = VideoCodec::h264;
    ExportContainer container = ExportContainer::mp4;
    media::EncodingEffort effort = media::EncodingEffort::fast;
    ExportRate rate = {};
    std::optional<media::HardwareEncoder> hardware = {};   // of that codec; asked for, and maybe not there

    // The container that it has in the end: ProRes has but one.
    ExportContainer finalContainer() const { return isProRes(codec) ? ExportContainer::mov : container; }
};

namespace FilmWriter {

using Progress = std::function<void(double fraction)>;   // 0 to 1

// How many frames a film of that length has.
std::int64_t frameCount(double lengthSec, const FrameRate& fps);

// Draws every frame in its order and encodes it at once, so memory does not grow with the length. Blocks
// until the file is written. Throws `Failure`; `stop` is looked at before every frame and ends in
// `RenderStopped`.
void write(const FilmFrames& film, const FilmFile& file, imaging::Evaluator& evaluator, const RenderLog& log,
    const Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace FilmWriter

}   // namespace tavix
