// What an export will be, as it is told before it begins.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixRender/Encoding/ExportOptions.h"

#include <string>
#include <string_view>

namespace tavix::editor {

struct ExportChoice {
    ExportFormat format = ExportFormat::video;
    VideoCodec codec = VideoCodec::h264;
    ExportContainer container = ExportContainer::mp4;
    ResolutionPreset resolution = ResolutionPreset::native;

    // With its dot: ".gif", ".mov" for ProRes or where it is asked for, otherwise ".mp4".
    std::string_view extension() const;
    bool mayChooseContainer() const { return format == ExportFormat::video && !isProRes(codec); }
};

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
