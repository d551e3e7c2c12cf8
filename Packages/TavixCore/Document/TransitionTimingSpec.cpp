#include "TavixCore/Document/TransitionTimingSpec.h"

#include "TavixCore/Support/FieldTables.h"

#include <array>
#include <cmath>

namespace tavix {
namespace {

using Preset = TransitionTimingSpec::Preset;

struct PresetSpring {
    double response, damping;
};

const PresetSpring& springOf(Preset preset) {
    static constexpr std::array<PresetSpring, 3> table{{{0.6, 1.0}, {0.35, 0.9}, {0.5, 0.65}}};
    return table.at(static_cast<std::size_t>(preset));   // in the order of the cases
}

bool matches(const std::optional<double>& value, double of) {
    return value && std::abs(*value - of) <= 0.000001;
}

void fillIn(TransitionTimingSpec& timing, Preset preset) {
    const PresetSpring& spring = springOf(preset);
    timing.response = timing.response.value_or(spring.response);
    timing.damping = timing.damping.value_or(spring.damping);
}

}   // namespace

TransitionTimingSpec TransitionTimingSpec::of(Preset preset) {
    TransitionTimingSpec timing;
    timing.kind = Kind::spring;
    fillIn(timing, preset);
    return timing;
}

std::optional<Preset> TransitionTimingSpec::matchedPreset() const {
    if (kind != Kind::spring) return std::nullopt;
    for (const Preset preset : allCases<Preset>())
        if (matches(response, springOf(preset).response) && matches(damping, springOf(preset).damping))
            return preset;
    return std::nullopt;
}

const Names<TransitionTimingSpec::Kind>& namesOf(std::type_identity<TransitionTimingSpec::Kind>) {
    using enum TransitionTimingSpec::Kind;
    static const Names<TransitionTimingSpec::Kind> table{
        "transition timing", {{linear, "linear"}, {spring, "spring"}}};
    return table;
}

const Names<Preset>& namesOf(std::type_identity<Preset>) {
    using enum TransitionTimingSpec::Preset;
    static const Names<Preset> table{
        "transition timing preset", {{gentle, "gentle"}, {snappy, "snappy"}, {bouncy, "bouncy"}}};
    return table;
}

const Fields<TransitionTimingSpec>& fieldsOf(std::type_identity<TransitionTimingSpec>) {
    using T = TransitionTimingSpec;
    static const Fields<T> table{"TransitionTimingSpec",
        {field<&T::kind>("kind", "How its progress runs.").required(),
            field<&T::response>("response", "Of a spring: how long one swing would take without damping.")
                .measuredIn(Unit::seconds),
            field<&T::damping>("damping", "Of a spring: 1 does not swing.").measuredIn(Unit::fraction),
            olderField<T, Preset, fillIn>(
                "preset", "A spring by name, for what the two keys above do not say.")
                .tolerant()}};
    return table;
}

}   // namespace tavix
