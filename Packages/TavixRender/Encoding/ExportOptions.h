// The choices of an export that do not stand in the document.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>

namespace tavix {

enum class ExportFormat { video, gif, webp, png };   // `png`: pictures, one for each frame
enum class VideoCodec { h264, hevc, proRes422HQ, proRes4444, vp9, av1, vp9Alpha };
enum class ExportContainer { mp4, mov, webm };
enum class ResolutionPreset { native, p1080, k4 };

constexpr bool isProRes(VideoCodec codec) {
    return codec == VideoCodec::proRes422HQ || codec == VideoCodec::proRes4444;
}

constexpr bool isAnimation(ExportFormat format) {
    return format == ExportFormat::gif || format == ExportFormat::webp;
}

// What is kept of a film, in place of what is usual for its codec. At most one of the three.
struct ExportRate {
    std::optional<int> quality = {};               // 0 to 100
    std::optional<std::int64_t> bitsPerSec = {};   // on average, of the pictures
    std::optional<double> coarseness = {};         // the same for all pictures, as MovieSettings::coarseness
    bool operator==(const ExportRate&) const = default;
};

// For people: "H.264", "ProRes 422 HQ", "1080p".
std::string_view displayName(VideoCodec codec);
std::string_view displayName(ExportFormat format);   // "GIF"
std::string_view displayName(ResolutionPreset resolution);

const Names<ExportFormat>& namesOf(std::type_identity<ExportFormat>);
const Names<VideoCodec>& namesOf(std::type_identity<VideoCodec>);
const Names<ExportContainer>& namesOf(std::type_identity<ExportContainer>);
const Names<ResolutionPreset>& namesOf(std::type_identity<ResolutionPreset>);

}   // namespace tavix
