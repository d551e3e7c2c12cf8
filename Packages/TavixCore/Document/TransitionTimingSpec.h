// How the progress of a screen transition runs: evenly, or as a spring that is fitted into its length.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <optional>
#include <type_traits>

namespace tavix {

struct TransitionTimingSpec {
    enum class Kind { linear, spring };
    enum class Preset { gentle, snappy, bouncy };

    static constexpr double defaultResponse = 0.5;   // seconds of one swing without damping
    static constexpr double defaultDamping = 0.8;    // 1 does not swing

    Kind kind = Kind::linear;
    std::optional<double> response, damping;

    // A spring with both values of a preset. A document may name the preset too; what it says itself wins.
    static TransitionTimingSpec of(Preset preset);
    std::optional<Preset> matchedPreset() const;
    bool operator==(const TransitionTimingSpec&) const = default;
};

const Names<TransitionTimingSpec::Kind>& namesOf(std::type_identity<TransitionTimingSpec::Kind>);
const Names<TransitionTimingSpec::Preset>& namesOf(std::type_identity<TransitionTimingSpec::Preset>);
const Fields<TransitionTimingSpec>& fieldsOf(std::type_identity<TransitionTimingSpec>);

}   // namespace tavix
