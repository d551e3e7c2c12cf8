// What an export will be, as it is told before it begins.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixRender/Encoding/ExportOptions.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::editor {

// What of the file is held: what is usual for it, the quality, the bits of a second, or its bytes.
enum class ExportKeep { usual, quality, rate, size };

struct ExportChoice {
    ExportFormat format = ExportFormat::video;
    VideoCodec codec = VideoCodec::h264;
    ExportContainer container = ExportContainer::mp4;
    ResolutionPreset resolution = ResolutionPreset::native;
    media::EncodingEffort effort = media::EncodingEffort::fast;
    ExportRate rate = {};
    std::optional<std::int64_t> mostBytes = {};

    // With its dot: ".gif", ".webp", ".mov" for ProRes or where it is asked for, ".webm", otherwise ".mp4";
    // nothing of pictures, which have a folder.
    std::string_view extension() const;
    bool isVideo() const { return format == ExportFormat::video; }
    bool mayChooseEffort() const;
    // The usual first.
    std::vector<ExportKeep> keeps() const;
};

// Of files that the codec can stand in, the usual one first.
std::vector<ExportContainer> containersOf(VideoCodec codec);

// The name of the document with that extension; of pictures, a name for their folder.
std::string exportFilename(std::string_view documentName, const ExportChoice& choice);
// Where an export goes to that is called so: pictures into a folder of that name.
std::filesystem::path exportTarget(const std::filesystem::path& named, const ExportChoice& choice);

struct ExportFigures {
    imaging::Size size;
    FrameRate fps;
    double durationSec = 0;
    bool hasSound = false;   // animations and pictures have none
};
ExportFigures figuresOf(const CompositionSpec& spec, const ExportChoice& choice);

// How long the rest takes, from what went before; nothing before anything can be said.
double remainingSec(double fraction, double elapsedSec);

}   // namespace tavix::editor
