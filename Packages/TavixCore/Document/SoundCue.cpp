#include "TavixCore/Document/SoundCue.h"

#include "TavixCore/Support/FieldTables.h"

#include <algorithm>

namespace tavix {

SoundCue SoundCue::of(double atSec, SFXCatalog::Sound sound, double gain) {
    return {atSec, std::nullopt, std::string(nameOf(sound)), std::max(gain, 0.0)};
}

std::optional<SFXCatalog::Sound> SoundCue::resolvedSound() const { return named<SFXCatalog::Sound>(sound); }

const Fields<SoundCue>& fieldsOf(std::type_identity<SoundCue>) {
    static const Fields<SoundCue> table{"SoundCue",
        {field<&SoundCue::atSec>("atSec", "When, from the start of the film.").measuredIn(Unit::seconds),
            field<&SoundCue::atBeat>("atBeat", "When, by a beat of the music; wins over atSec.")
                .measuredIn(Unit::beats)
                .as(Role::beatMoment, "atSec"),
            field<&SoundCue::sound>(
                "sound", "A sound of the catalog, as `tavix presets sounds` lists them, or a sound file.")
                .as(Role::sound),
            field<&SoundCue::gain>("gain", "Loudness; 1 is as recorded.")
                .measuredIn(Unit::times)
                .atLeast(0)}};
    return table;
}

}   // namespace tavix
