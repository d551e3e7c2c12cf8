// The arithmetic of a number field that is dragged, without any widget.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavix {

struct ScrubRange {
    double lower = 0, upper = 1;   // may be infinite
    int decimals = 2;
    std::optional<double> pointStep = {};   // what one point of travel adds, where the range does not say

    // The whole range is 170 points of travel. An empty range goes by the last decimal.
    double stepPerPoint() const;
    // From where the drag began; fine dragging is 0.16 of the speed.
    double dragged(double start, double deltaPoints, bool isFine) const;
    double rounded(double value) const;   // to the decimals, and into the range
    double clamped(double value) const;
    std::string text(double value) const;   // as the field shows it
    bool operator==(const ScrubRange&) const = default;

    // The decimals that a format such as "%.2f" states; 6 where it states none, and 0 of one for whole
    // numbers.
    static int decimalsOf(std::string_view format);
};

// How many decimals show a step.
int decimalsOfStep(double step);

}   // namespace tavix
