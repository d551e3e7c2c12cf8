// How a text names its animation: a preset by name, which stays symbolic in the document, or a whole style.
// There is no wrapper in JSON; an object with the key `preset` is a reference and any other a style.
#pragma once

#include "TavixCore/Typography/KineticStyle.h"

#include <optional>
#include <string>
#include <variant>

namespace tavix {

struct KineticPresetRef {
    std::string preset = "fade-up";
    KineticSpeed speed = KineticSpeed::smooth;
    std::optional<KineticWeight> weight;   // absent: the preset's own
    KineticIntensity intensity = KineticIntensity::medium;
    bool operator==(const KineticPresetRef&) const = default;
};

using KineticSelector = std::variant<KineticPresetRef, KineticStyle>;

const Fields<KineticPresetRef>& fieldsOf(std::type_identity<KineticPresetRef>);
const Alternatives<KineticSelector>& alternativesOf(std::type_identity<KineticSelector>);

}   // namespace tavix
