// What the driver of a recording tells when the run ends. Times are seconds of the device's clock, rectangles
// are in points of its screen.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/LogicalRect.h"
#include "TavixCore/Values/LogicalSize.h"

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct DoneReport {
    struct StepMark {
        std::int64_t index = 0;   // of the step
        double startedAt = 0, endedAt = 0;
        std::optional<LogicalRect> rect;   // of the target
        std::optional<std::string> type;   // the interaction; absent: a tap
        std::optional<std::string> label;
        std::optional<double> actionAt, motionEndAt;
        bool operator==(const StepMark&) const = default;
    };

    double flowStart = 0;   // the go, from which step times count
    double flowEnd = 0;
    std::vector<StepMark> steps;
    std::optional<double> displayScale;   // pixels per point; absent: 1
    std::optional<LogicalSize> logicalSize;
    bool operator==(const DoneReport&) const = default;
};

const Fields<DoneReport::StepMark>& fieldsOf(std::type_identity<DoneReport::StepMark>);
const Fields<DoneReport>& fieldsOf(std::type_identity<DoneReport>);

}   // namespace tavix
