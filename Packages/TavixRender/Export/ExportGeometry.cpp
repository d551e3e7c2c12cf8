#include "TavixRender/Export/ExportGeometry.h"

#include "TavixCore/Document/PixelScaling.h"
#include "TavixCore/Support/FieldTables.h"

#include <algorithm>
#include <cmath>

namespace tavix {

namespace {

int evenBelow(double side) { return std::max(static_cast<int>(side) / 2 * 2, 2); }

}   // namespace

imaging::Size ReelExporter::targetDimensions(
    imaging::Size native, ResolutionPreset resolution, ExportFormat format) {
    const double nativeWidth = std::max(native.width, 1), nativeHeight = std::max(native.height, 1);
    const double ratio = nativeHeight / nativeWidth;
    double width = nativeWidth;
    if (resolution != ResolutionPreset::native) {
        const double shorterSide = resolution == ResolutionPreset::p1080 ? 1080 : 2160;
        width = nativeHeight >= nativeWidth ? shorterSide : std::round(shorterSide / ratio);
    }
    if (isAnimation(format)) width = std::min<double>(width, animatedWidthCap);
    return {evenBelow(width), evenBelow(std::round(ratio * width))};
}

FrameRate ReelExporter::targetFps(const FrameRate& fps, ExportFormat format) {
    const FrameRate atLeastOne = std::max<FrameRate>(fps, 1);
    return format == ExportFormat::gif ? std::min<FrameRate>(atLeastOne, animatedFpsCap) : atLeastOne;
}

CompositionSpec scaledExportSpec(const CompositionSpec& spec, imaging::Size size, const FrameRate& fps) {
    CompositionSpec scaled = spec;
    const double across = size.width / std::max(double(spec.output.widthPx), 1.0);
    const double down = size.height / std::max(double(spec.output.heightPx), 1.0);
    scaled.output.widthPx = size.width;
    scaled.output.heightPx = size.height;
    scaled.output.fps = fps;
    scalePixels(typeOf<CompositionSpec>(), &scaled, across, down);
    return scaled;
}

}   // namespace tavix
