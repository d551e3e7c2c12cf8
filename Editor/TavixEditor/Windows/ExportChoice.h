// What an export will be, as it is told before it begins.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixRender/Encoding/ExportOptions.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavix::editor {

struct ExportChoice {
    ExportFormat format = ExportFormat::video;
    VideoCodec codec = VideoCodec::h264;
    ExportContainer container = ExportContainer::mp4;
    ResolutionPreset resolution = ResolutionPreset::native;
    media::EncodingEffort effort = media::EncodingEffort::fast;
    ExportRate rate = {};

    // With its dot: ".gif", ".mov" for ProRes or where it is asked for, ".webm", otherwise ".mp4".
    std::string_view extension() const;
    bool mayChooseRate() const { return format == ExportFormat::video && !isProRes(codec); }
};

// Of files that the codec can stand in, the usual one first.
std::vector<ExportContainer> containersOf(VideoCodec codec);

// The name of the document with that extension.
std::string exportFilename(std::string_view documentName, const ExportChoice& choice);

struct ExportFigures {
    imaging::Size size;
    FrameRate fps;
    double durationSec = 0;
    bool hasSound = false;   // a GIF has none
};
ExportFigures figuresOf(const CompositionSpec& spec, const ExportChoice& choice);

// How long the rest takes, from what went before; nothing before anything can be said.
double remainingSec(double fraction, double elapsedSec);

}   // namespace tavix::editor
