#include "TavixReel/Captions/CaptionLaneLayout.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace tavix::CaptionLaneLayout {

std::map<std::size_t, std::size_t> rowAssignment(
    std::span<const Window> windows, const std::map<std::size_t, std::size_t>& pinnedRow) {
    constexpr double toleranceSec = 0.000000001;
    std::vector<Window> sorted(windows.begin(), windows.end());
    std::ranges::stable_sort(
        sorted, {}, [](const Window& window) { return std::pair(window.range.startSec, window.index); });

    std::map<std::size_t, std::size_t> rows;
    std::vector<double> rowEndsSec;
    for (const Window& window : sorted) {
        if (const auto pinned = pinnedRow.find(window.index); pinned != pinnedRow.end()) {
            const std::size_t row = rows[window.index] = pinned->second;
            if (rowEndsSec.size() <= row) rowEndsSec.resize(row + 1, std::numeric_limits<double>::lowest());
            rowEndsSec[row] = std::max(rowEndsSec[row], window.range.endSec);
            continue;
        }
        const auto free = std::ranges::find_if(
            rowEndsSec, [&](double endSec) { return endSec <= window.range.startSec + toleranceSec; });
        rows[window.index] = static_cast<std::size_t>(free - rowEndsSec.begin());
        if (free == rowEndsSec.end())
            rowEndsSec.push_back(window.range.endSec);
        else
            *free = window.range.endSec;
    }
    return rows;
}

std::size_t maxConcurrent(std::span<const TimeRangeSec> ranges) {
    std::vector<std::pair<double, int>> changes;   // at one time ends come before starts
    for (const TimeRangeSec& range : ranges) {
        if (!(range.endSec > range.startSec)) continue;
        changes.emplace_back(range.startSec, 1);
        changes.emplace_back(range.endSec, -1);
    }
    std::ranges::sort(changes);
    int current = 0, most = 0;
    for (const auto& change : changes) most = std::max(most, current += change.second);
    return static_cast<std::size_t>(most);
}

}   // namespace tavix::CaptionLaneLayout
