// A scripted flow: what is driven through an app while its screen is recorded.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixReel/Flow/FlowStep.h"
#include "TavixReel/Flow/FlowTypography.h"
#include "TavixReel/Flow/MotionSpec.h"
#include "TavixReel/Flow/OutputConfig.h"

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

// The view that the recorded app opens.
struct EntryPoint {
    std::string rootViewType;
    std::optional<MockState> initialState;
    bool operator==(const EntryPoint&) const = default;
};

struct FlowSpec {
    std::string name;
    std::int64_t schemaVersion = 1;
    std::optional<std::string> requestText;   // what the flow was written from; a source of captions
    OutputConfig output;
    EntryPoint entry;
    std::vector<Step> steps;
    std::optional<MotionSpec> motion;
    std::optional<FlowTypography> typography;

    // Of the whole flow, or of any step.
    bool hasTypography() const;
    bool operator==(const FlowSpec&) const = default;
};

const Fields<EntryPoint>& fieldsOf(std::type_identity<EntryPoint>);
const Fields<FlowSpec>& fieldsOf(std::type_identity<FlowSpec>);

}   // namespace tavix
