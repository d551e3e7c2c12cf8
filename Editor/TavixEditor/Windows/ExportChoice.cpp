#include "TavixEditor/Windows/ExportChoice.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Export/ExportGeometry.h"

#include <limits>

namespace tavix::editor {

std::string_view ExportChoice::extension() const {
    if (format == ExportFormat::gif) return ".gif";
    return isProRes(codec) || container == ExportContainer::mov ? ".mov" : ".mp4";
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
