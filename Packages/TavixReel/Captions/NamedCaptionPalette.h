// The colours that an author may name.
#pragma once

#include "TavixCore/Values/RGBAColor.h"

#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace tavix {

struct BrandKit;

namespace NamedCaptionPalette {

inline constexpr std::array<std::pair<std::string_view, RGBAColor>, 16> colors{{
    {"white", {1, 1, 1, 1}},
    {"black", {0, 0, 0, 1}},
    {"gray", {0.56, 0.56, 0.58, 1}},
    {"silver", {0.78, 0.78, 0.8, 1}},
    {"red", {1, 0.23, 0.19, 1}},
    {"orange", {1, 0.58, 0, 1}},
    {"yellow", {1, 0.84, 0.04, 1}},
    {"green", {0.2, 0.78, 0.35, 1}},
    {"mint", {0, 0.78, 0.75, 1}},
    {"teal", {0.19, 0.69, 0.78, 1}},
    {"cyan", {0.33, 0.75, 0.94, 1}},
    {"blue", {0, 0.48, 1, 1}},
    {"indigo", {0.35, 0.34, 0.84, 1}},
    {"purple", {0.69, 0.32, 0.87, 1}},
    {"pink", {1, 0.18, 0.33, 1}},
    {"brown", {0.64, 0.52, 0.37, 1}},
}};

// A name of the table, "brandPrimary" or "brandAccent"; case and white space around it do not count. Null
// stands for no brand. Nothing for any other text, and for a brand's colour without a brand.
std::optional<RGBAColor> resolve(std::string_view name, const BrandKit* brand);

}   // namespace NamedCaptionPalette

}   // namespace tavix
