// Which kind of film is written and where: what was asked for, made whole from the output's extension.
#pragma once

#include "TavixPlatform/Media/HardwareEncoder.h"
#include "TavixRender/Encoding/ExportOptions.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tavix::engine {

struct OutputRequest {
    std::optional<std::string> output;
    std::optional<ExportFormat> format;
    std::optional<VideoCodec> codec;
    std::optional<ExportContainer> container;
    std::optional<media::HardwareEncoder> hardware;
};

struct OutputChoice {
    std::filesystem::path target;
    ExportFormat format = ExportFormat::video;
    VideoCodec codec = VideoCodec::h264;
    ExportContainer container = ExportContainer::mp4;
    std::optional<media::HardwareEncoder> hardware = {};
};

// `documentName` names the film when no output is given. Throws `UsageError` when the wishes contradict each
// other.
OutputChoice chooseOutput(const OutputRequest& request, const std::string& documentName);

}   // namespace tavix::engine
