// A scripted flow: what is driven through an app while its screen is recorded.
#pragma once

#include "TavixCore/Flow/FlowStep.h"
#include "TavixCore/Flow/FlowTypography.h"
#include "TavixCore/Flow/MotionSpec.h"
#include "TavixCore/Support/Tables.h"

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct OutputConfig {
    enum class Aspect { landscape, vertical };
    enum class Container { mp4, mov };
    enum class Codec { h264, hevc };

    Aspect aspect = Aspect::landscape;
    std::int64_t width = 0, height = 0;   // pixels
    std::int64_t fps = 0;
    std::optional<double> targetLengthSec;
    Container container = Container::mp4;
    Codec codec = Codec::h264;
    bool operator==(const OutputConfig&) const = default;
};

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

const Names<OutputConfig::Aspect>& namesOf(std::type_identity<OutputConfig::Aspect>);
const Names<OutputConfig::Container>& namesOf(std::type_identity<OutputConfig::Container>);
const Names<OutputConfig::Codec>& namesOf(std::type_identity<OutputConfig::Codec>);
const Fields<OutputConfig>& fieldsOf(std::type_identity<OutputConfig>);
const Fields<EntryPoint>& fieldsOf(std::type_identity<EntryPoint>);
const Fields<FlowSpec>& fieldsOf(std::type_identity<FlowSpec>);

}   // namespace tavix
