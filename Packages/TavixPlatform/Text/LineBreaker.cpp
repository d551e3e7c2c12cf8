#include "TavixPlatform/Text/LineBreaker.h"

namespace tavix::text {
namespace {

// Widths are sums of rounded parts: what fits but for a thousandth of a pixel fits.
constexpr double tolerancePx = 1e-3;

}   // namespace

std::vector<std::size_t> lineEnds(const std::vector<BreakPoint>& points, double maxWidthPx) {
    std::vector<std::size_t> ends;
    std::size_t lineStart = 0, lastBreak = 0, lastCharacter = 0;
    double width = 0, widthAtBreak = 0, widthAtCharacter = 0;   // of the line so far, all white space counted
    for (std::size_t i = 0; i < points.size(); ++i) {
        const BreakPoint& point = points[i];
        if (i > lineStart && point.startsCharacter) {
            lastCharacter = i;
            widthAtCharacter = width;
            if (point.mayBreakBefore) {
                lastBreak = i;
                widthAtBreak = width;
            }
        }
        width += point.widthPx;
        while (!point.isWhite && width > maxWidthPx + tolerancePx && lastCharacter > lineStart) {
            const bool isAtBreak = lastBreak > lineStart;
            lineStart = isAtBreak ? lastBreak : lastCharacter;
            width -= isAtBreak ? widthAtBreak : widthAtCharacter;
            widthAtCharacter -= isAtBreak ? widthAtBreak : widthAtCharacter;
            ends.push_back(lineStart);
        }
    }
    ends.push_back(points.size());
    return ends;
}

}   // namespace tavix::text
