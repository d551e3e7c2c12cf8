#include "TavixRender/Encoding/ExportOptions.h"

#include "TavixCore/Support/Names.h"

namespace tavix {

std::string_view displayName(VideoCodec codec) {
    switch (codec) {
    case VideoCodec::h264: return "H.264";
    case VideoCodec::hevc: return "HEVC";
    case VideoCodec::proRes422HQ: return "ProRes 422 HQ";
    case VideoCodec::proRes4444: return "ProRes 4444";
    case VideoCodec::vp9: return "VP9";
    case VideoCodec::vp9Alpha: return "VP9 with alpha";
    case VideoCodec::av1: break;
    }
    return "AV1";
}

std::string_view displayName(ExportFormat format) {
    switch (format) {
    case ExportFormat::video: return "video";
    case ExportFormat::gif: return "GIF";
    case ExportFormat::webp: return "WebP";
    case ExportFormat::png: break;
    }
    return "PNG";
}

std::string_view displayName(ResolutionPreset resolution) {
    switch (resolution) {
    case ResolutionPreset::native: return "Native";
    case ResolutionPreset::p1080: return "1080p";
    case ResolutionPreset::k4: break;
    }
    return "4K";
}

const Names<ExportFormat>& namesOf(std::type_identity<ExportFormat>) {
    static const Names<ExportFormat> table{
        "export format", {{ExportFormat::video, "video"}, {ExportFormat::gif, "gif"},
                             {ExportFormat::webp, "webp"}, {ExportFormat::png, "png"}}};
    return table;
}

const Names<VideoCodec>& namesOf(std::type_identity<VideoCodec>) {
    static const Names<VideoCodec> table{"video codec",
        {{VideoCodec::h264, "h264"}, {VideoCodec::hevc, "hevc"}, {VideoCodec::proRes422HQ, "proRes422HQ"},
            {VideoCodec::proRes4444, "proRes4444"}, {VideoCodec::vp9, "vp9"}, {VideoCodec::av1, "av1"},
            {VideoCodec::vp9Alpha, "vp9Alpha"}}};
    return table;
}

const Names<ExportContainer>& namesOf(std::type_identity<ExportContainer>) {
    static const Names<ExportContainer> table{"container",
        {{ExportContainer::mp4, "mp4"}, {ExportContainer::mov, "mov"}, {ExportContainer::webm, "webm"}}};
    return table;
}

const Names<ResolutionPreset>& namesOf(std::type_identity<ResolutionPreset>) {
    static const Names<ResolutionPreset> table{
        "resolution", {{ResolutionPreset::native, "native"}, {ResolutionPreset::p1080, "p1080"},
                          {ResolutionPreset::k4, "k4"}}};
    return table;
}

}   // namespace tavix
