#include "Engine/Presets/KineticPresets.h"

#include "Engine/Console/Words.h"
#include "Engine/Presets/PlayArguments.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixCore/Typography/KineticVocabulary.h"

#include <algorithm>

namespace tavix::engine::KineticPresets {

namespace {

// As it is without any option.
Preset preset(const KineticPresetCatalog::Entry& entry) {
    KineticPresetCatalog::Request request;
    request.preset.preset = entry.id;
    const KineticStyle style = KineticPresetCatalog::resolve(request).style;
    const std::string_view scope = nameOf(style.scope), weight = nameOf(style.weight);
    Preset preset{std::string(entry.id), {}, {}};
    preset.about = std::string(entry.displayName) + ": by " + std::string(scope) + ", " +
                   std::string(weight) + ", " + writeJson(style.inPhase.durationSec) + " s in, " +
                   writeJson(style.outPhase.durationSec) + " s out";
    preset.details = {{"displayName", entry.displayName}, {"scope", scope}, {"defaultWeight", weight},
        {"inSec", style.inPhase.durationSec}, {"outSec", style.outPhase.durationSec},
        {"staggerSec", style.stagger.delaySec}};
    return preset;
}

}   // namespace

std::vector<Preset> all() {
    std::vector<Preset> presets;
    for (const KineticPresetCatalog::Entry& entry : KineticPresetCatalog::presets)
        presets.push_back(preset(entry));
    return presets;
}

Json resolved(const std::string& name, const PlayArguments& play) {
    const auto& known = KineticVocabulary::presetIDs;
    if (std::ranges::find(known, name) == known.end())
        throw UsageError("There is no kinetic preset \"" + name + "\"; use " + listed(known) + "." +
                         suggestion(name, known));
    const auto [style, notes] = KineticPresetCatalog::resolve(play.kineticRequest(name));
    return JsonObject{{"style", Codec<KineticStyle>::write(style)},
        {"notes", Codec<std::vector<std::string>>::write(notes)}};
}

}   // namespace tavix::engine::KineticPresets
