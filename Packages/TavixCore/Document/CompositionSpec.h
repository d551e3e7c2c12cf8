// The root of a composition document.
#pragma once

#include "TavixCore/Document/CompositionAudio.h"
#include "TavixCore/Document/CompositionOutput.h"
#include "TavixCore/Document/CompositionScene.h"
#include "TavixCore/Document/LintSettings.h"
#include "TavixCore/Support/Tables.h"
#include "TavixCore/Theme/BackgroundFill.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct CompositionSpec {
    std::int64_t schemaVersion = 1;   // kept and written back; reading does not act on it
    CompositionOutput output;
    std::optional<std::string> assetRoot;       // what relative paths hang from
    std::map<std::string, std::string> fonts;   // font key to a font's name or file
    BackgroundFill background = RGBAColor::black;
    std::vector<CompositionScene> scenes;
    std::optional<CompositionAudio> audio;
    std::int64_t seed = 0;   // of all that looks random
    std::optional<LintSettings> lint;
    bool operator==(const CompositionSpec&) const = default;
};

const Fields<CompositionSpec>& fieldsOf(std::type_identity<CompositionSpec>);

}   // namespace tavix
