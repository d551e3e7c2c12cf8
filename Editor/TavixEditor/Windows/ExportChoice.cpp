#include "TavixEditor/Windows/ExportChoice.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Export/ExportGeometry.h"

#include <limits>

namespace tavix::editor {

std::string_view ExportChoice::extension() const {
    if (format == ExportFormat::gif) return ".gif";
    if (isProRes(codec)) return ".mov";
    switch (container) {
    case ExportContainer::mov: return ".mov";
    case ExportContainer::webm: return ".webm";
    case ExportContainer::mp4: break;
    }
    return ".mp4";
}

std::vector<ExportContainer> containersOf(VideoCodec codec) {
    using enum ExportContainer;
    if (isProRes(codec)) return {mov};
    if (codec == VideoCodec::vp9 || codec == VideoCodec::av1) return {webm, mp4};
    return {mp4, mov};
}

std::string exportFilename(std::string_view documentName, const ExportChoice& choice) {
    return std::string(documentName.empty() ? "composition" : documentName) + std::string(choice.extension());
}

ExportFigures figuresOf(const CompositionSpec& spec, const ExportChoice& choice) {
    const imaging::Size native{int(spec.output.widthPx), int(spec.output.heightPx)};
    return {ReelExporter::targetDimensions(native, choice.resolution, choice.format),
        ReelExporter::targetFps(spec.output.fps, choice.format), CompositionTimeline(spec).totalSec,
        choice.format == ExportFormat::video && spec.audio.has_value()};
}

double remainingSec(double fraction, double elapsedSec) {
    constexpr double enough = 0.02;   // of the film, to tell from
    if (!(fraction >= enough)) return std::numeric_limits<double>::infinity();
    return elapsedSec / fraction * (1 - fraction);
}

}   // namespace tavix::editor
