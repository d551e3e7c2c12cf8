#include "TavixEditor/Windows/ExportChoice.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Encoding/FrameNames.h"
#include "TavixRender/Export/ExportGeometry.h"

#include <limits>

namespace tavix::editor {

std::string_view ExportChoice::extension() const {
    switch (format) {
    case ExportFormat::gif: return ".gif";
    case ExportFormat::webp: return ".webp";
    case ExportFormat::png: return "";
    case ExportFormat::video: break;
    }
    if (isProRes(codec)) return ".mov";
    switch (container) {
    case ExportContainer::mov: return ".mov";
    case ExportContainer::webm: return ".webm";
    case ExportContainer::mp4: break;
    }
    return ".mp4";
}

bool ExportChoice::mayChooseEffort() const {
    return format == ExportFormat::webp || (isVideo() && !isProRes(codec));
}

std::vector<ExportKeep> ExportChoice::keeps() const {
    using enum ExportKeep;
    switch (format) {
    case ExportFormat::gif: return {usual, size};
    case ExportFormat::webp: return {usual, quality, size};
    case ExportFormat::png: return {usual};
    case ExportFormat::video: break;
    }
    return isProRes(codec) ? std::vector{usual} : std::vector{usual, quality, rate, size};
}

std::vector<ExportContainer> containersOf(VideoCodec codec) {
    using enum ExportContainer;
    if (isProRes(codec)) return {mov};
    if (codec == VideoCodec::vp9Alpha) return {webm};
    if (codec == VideoCodec::vp9 || codec == VideoCodec::av1) return {webm, mp4};
    return {mp4, mov};
}

std::string exportFilename(std::string_view documentName, const ExportChoice& choice) {
    std::string name(documentName.empty() ? "composition" : documentName);
    name += choice.format == ExportFormat::png ? "-pictures" : choice.extension();
    return name;
}

std::filesystem::path exportTarget(const std::filesystem::path& named, const ExportChoice& choice) {
    return choice.format == ExportFormat::png ? named / FrameNames::usual : named;
}

ExportFigures figuresOf(const CompositionSpec& spec, const ExportChoice& choice) {
    const imaging::Size native{int(spec.output.widthPx), int(spec.output.heightPx)};
    return {ReelExporter::targetDimensions(native, choice.resolution, choice.format),
        ReelExporter::targetFps(spec.output.fps, choice.format), CompositionTimeline(spec).totalSec,
        choice.isVideo() && spec.audio.has_value()};
}

double remainingSec(double fraction, double elapsedSec) {
    constexpr double enough = 0.02;   // of the film, to tell from
    if (!(fraction >= enough)) return std::numeric_limits<double>::infinity();
    return elapsedSec / fraction * (1 - fraction);
}

}   // namespace tavix::editor
