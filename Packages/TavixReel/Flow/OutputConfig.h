// The film that a flow asks for.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <cstdint>
#include <optional>
#include <type_traits>

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

const Names<OutputConfig::Aspect>& namesOf(std::type_identity<OutputConfig::Aspect>);
const Names<OutputConfig::Container>& namesOf(std::type_identity<OutputConfig::Container>);
const Names<OutputConfig::Codec>& namesOf(std::type_identity<OutputConfig::Codec>);
const Fields<OutputConfig>& fieldsOf(std::type_identity<OutputConfig>);

}   // namespace tavix
