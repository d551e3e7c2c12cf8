#include "TavixCore/Typography/ElementSchedule.h"

#include "TavixCore/Typography/StaggerRanks.h"
#include "TavixCore/Values/Clamp01.h"

#include <algorithm>

namespace tavix::KineticMath {
namespace {

double ramp(double timeSec, double startSec, double lengthSec) {
    if (lengthSec > 0) return clamp01((timeSec - startSec) / lengthSec);
    return timeSec >= startSec ? 1 : 0;
}

}   // namespace

std::vector<ElementSchedule> schedule(const ScheduleRequest& request) {
    const int count = request.count;
    if (count < 1) return {};
    const double windowSec = std::max(request.windowSec, 0.0);
    double inSec = std::max(request.inSec, 0.0), outSec = std::max(request.outSec, 0.0);
    if (const double wishedSec = inSec + outSec; wishedSec > windowSec) {
        inSec *= windowSec / wishedSec;
        outSec *= windowSec / wishedSec;
    }
    const double spareSec = std::max(windowSec - inSec - outSec, 0.0);
    const double delaySec = count == 1 ? 0 : std::min(request.stagger.delaySec, spareSec / (count - 1));

    std::vector<ElementSchedule> result;
    result.reserve(static_cast<std::size_t>(count));
    for (const int rank : ranks(request.stagger.order, count, request.stagger.seed)) {
        const int followers = count - 1 - rank;
        result.push_back({.inStart = delaySec * rank + request.cardDelaySec,
            .outStart = windowSec - outSec - delaySec * followers,
            .inDur = inSec,
            .outDur = outSec});
    }
    return result;
}

double activityEnvelope(double timeSec, const ElementSchedule& element) {
    return ramp(timeSec, element.inStart, element.inDur) *
           (1 - ramp(timeSec, element.outStart, element.outDur));
}

}   // namespace tavix::KineticMath
