#include "Editor/EditorDomain/Inspector/PhaseEditor.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tavix {

namespace {

struct PhaseRow {
    std::string_view key;
    ScrubRange range;   // of its number, or of each; the curve has none
    double step;
};
constexpr std::array heeded{PhaseRow{"durationSec", {0, 10, 2, 0.01}, 0.05}, PhaseRow{"curve", {}, 0},
    PhaseRow{"opacity", {0, 1, 2, {}}, 0.05}, PhaseRow{"offset", {-2, 2, 3, 0.002}, 0.01},
    PhaseRow{"scale", {0, 4, 2, 0.01}, 0.05}, PhaseRow{"rotationDeg", {-720, 720, 1, 1}, 1},
    PhaseRow{"blurRadiusFraction", {0, 0.5, 3, 0.001}, 0.005}};

bool isPhase(const InspectorRow& row) {
    const std::string& first = row.path.tokens().front();
    return first == "enter" || first == "exit";
}

// Where it stands among the rows of its phase; the switch comes first, what is not heeded last.
std::size_t rankOf(const InspectorRow& row) {
    const auto& tokens = row.path.tokens();
    if (tokens.size() == 1) return 0;
    return std::size_t(std::ranges::find(heeded, tokens[1], &PhaseRow::key) - heeded.begin()) + 1;
}

void measure(InspectorRow& row) {
    const std::size_t rank = rankOf(row);
    if (rank == 0) {
        row.label = "On";
        return;
    }
    const PhaseRow& shape = heeded[rank - 1];
    row.depth = 0;   // the switch is the heading of all
    if (shape.step <= 0) return;
    row.range = shape.range;
    row.step = shape.step;
    // A layer is flat: it turns in its plane alone.
    if (shape.key == "rotationDeg") row.parts = {"z"};
}

}   // namespace

void arrangePhases(std::vector<InspectorRow>& rows) {
    std::erase_if(rows, [](const InspectorRow& row) {
        return isPhase(row) && rankOf(row) > heeded.size() && row.value == row.rest && !row.isMixed;
    });
    for (InspectorRow& row : rows)
        if (isPhase(row) && rankOf(row) <= heeded.size()) measure(row);
    for (const std::string_view phase : {"enter", "exit"}) {
        const auto isOf = [&](const InspectorRow& row) { return row.path.tokens().front() == phase; };
        const auto first = std::ranges::find_if(rows, isOf);
        const auto end = std::find_if_not(first, rows.end(), isOf);
        std::stable_sort(
            first, end, [](const InspectorRow& a, const InspectorRow& b) { return rankOf(a) < rankOf(b); });
    }
}

}   // namespace tavix
