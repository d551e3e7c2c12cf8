#include "Engine/Output/FilmArguments.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Quantities.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Names.h"
#include "TavixRender/Encoding/FrameNames.h"
#include "TavixRender/Export/ExportGeometry.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tavix::engine {

namespace {

template <NamedEnum E> std::vector<std::pair<std::string_view, E>> wordsOf() {
    std::vector<std::pair<std::string_view, E>> words;
    for (const E value : allCases<E>()) words.emplace_back(nameOf(value), value);
    return words;
}

std::vector<std::pair<std::string_view, media::HardwareEncoder>> wordsOfHardware() {
    std::vector<std::pair<std::string_view, media::HardwareEncoder>> words;
    for (const media::HardwareEncoder& encoder : media::hardwareEncoders())
        words.emplace_back(encoder.name, encoder);
    return words;
}

// A rate that can be rendered.
FrameRate rateNamed(const std::string& text) {
    const std::optional<FrameRate> rate = FrameRate::parsed(text);
    if (!rate || *rate < minFps || FrameRate(maxFps) < *rate)
        throw UsageError("--fps takes frames a second from " + std::to_string(minFps) + " to " +
                         std::to_string(maxFps) + ", as in 30, 29.97 or 30000/1001, not \"" + text + "\".");
    return *rate;
}

}   // namespace

void FilmArguments::declare(Arguments& arguments) {
    using media::EncodingEffort;
    arguments.text("-o,--output", request_.output, "FILE",
        "The film; its extension tells the format, and shots/%05d.png means numbered pictures. The document's "
        "name with .mp4 by default.");
    arguments.choice<EncodingEffort>("--effort", effort_,
        {{"fast", EncodingEffort::fast}, {"balanced", EncodingEffort::balanced},
            {"best", EncodingEffort::best}},
        "Quicker, or better pictures at the same bit rate.");
    arguments.choice("--format", request_.format, wordsOf<ExportFormat>(),
        "A film, an animated GIF or WebP, or a folder of PNG pictures, one for each frame.");
    arguments.choice<VideoCodec>("--codec", request_.codec,
        {{"h264", VideoCodec::h264}, {"hevc", VideoCodec::hevc}, {"vp9", VideoCodec::vp9},
            {"vp9-alpha", VideoCodec::vp9Alpha}, {"av1", VideoCodec::av1},
            {"prores422hq", VideoCodec::proRes422HQ}, {"prores4444", VideoCodec::proRes4444}},
        "How the film is coded; H.264 by default, and VP9 in .webm files. vp9-alpha and prores4444 keep what is clear.");
    arguments.choice<media::HardwareEncoder>("--encoder", request_.hardware, wordsOfHardware(),
        "Encode on the graphics card, by the name of FFmpeg's encoder: VA-API (AMD, Intel), NVENC (NVIDIA) or Quick "
        "Sync (Intel). The film is decoded and compared as with --verify; where there is no such encoder, or the "
        "film is not right, it is encoded without, and that is told.");
    arguments.wholeNumber("--quality", quality_, 0, 100, "N",
        "How good the pictures are, 0 to 100, whatever that takes: 80 is hard to tell from the source.");
    arguments.value(
        "--rate", "BITS", [this](const std::string& text) { bitsPerSec_ = bitsPerSecNamed(text, "--rate"); },
        "Bits a second that the pictures take on average, as in 8M or 800k.");
    arguments.choice("--container", request_.container, wordsOf<ExportContainer>(), "The kind of film file.");
    arguments.choice<ResolutionPreset>("--resolution", resolution_,
        {{"native", ResolutionPreset::native}, {"1080p", ResolutionPreset::p1080},
            {"4k", ResolutionPreset::k4}},
        "The shorter side of the frame; the document's own by default.");
    arguments.value(
        "--fps", "N", [this](const std::string& text) { fps_ = rateNamed(text); },
        "Frames a second, as in 30, 29.97 or 30000/1001; the document's own by default.");
}

imaging::Size FilmArguments::size(imaging::Size native, ExportFormat format) const {
    const imaging::Size size =
        ReelExporter::targetDimensions(native, resolution_.value_or(ResolutionPreset::native), format);
    if (std::max(size.width, size.height) > maxSidePx)
        throw UsageError("--resolution makes frames of " + std::to_string(size.width) + " × " +
                         std::to_string(size.height) + " pixels here; no side may be longer than " +
                         std::to_string(maxSidePx) + ".");
    return size;
}

ExportRate FilmArguments::kept(const OutputChoice& choice) const {
    if (!quality_ && !bitsPerSec_) return {};
    if (quality_ && bitsPerSec_)
        throw UsageError("--quality and --rate contradict each other; give one of the two.");
    const std::string given = quality_ ? "--quality" : "--rate";
    if (choice.format == ExportFormat::webp && quality_) return {quality_, {}};
    if (choice.format != ExportFormat::video)
        throw UsageError(given + " is for video, and a " + std::string(displayName(choice.format)) +
                         " has none; drop one of the two.");
    if (isProRes(choice.codec))
        throw UsageError(
            given + " does not go with ProRes, which has a rate of its own; drop one of the two.");
    return {quality_, bitsPerSec_};
}

FrameRate FilmArguments::rate(const FrameRate& native, ExportFormat format) const {
    if (format == ExportFormat::gif && fps_ && FrameRate(ReelExporter::animatedFpsCap) < *fps_)
        throw UsageError("A GIF shows at most " + std::to_string(ReelExporter::animatedFpsCap) +
                         " frames a second; give --fps that or less.");
    return ReelExporter::targetFps(fps_.value_or(native), format);
}

namespace {

std::int64_t bytesOf(const std::filesystem::path& film, std::int64_t frames) {
    const std::optional<FrameNames> names = FrameNames::parsed(film);
    if (!names || std::filesystem::exists(film)) return fileSize(film);
    std::int64_t bytes = 0;
    for (std::int64_t i = 0; i < frames; ++i) bytes += fileSize(names->of(i));
    return bytes;
}

}   // namespace

JsonObject filmResult(
    const std::filesystem::path& film, std::int64_t frames, const FrameRate& rate, imaging::Size size) {
    return JsonObject{{"output", film.string()}, {"frames", frames}, {"seconds", rate.secAt(frames)},
        {"widthPx", size.width}, {"heightPx", size.height}, {"fps", Codec<FrameRate>::write(rate)},
        {"sizeBytes", bytesOf(film, frames)}};
}

}   // namespace tavix::engine
