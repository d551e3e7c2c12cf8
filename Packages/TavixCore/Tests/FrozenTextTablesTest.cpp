#include "TavixCore/Support/Names.h"
#include "TavixCore/Tests/FrozenForms.h"
#include "TavixCore/Tests/FrozenTable.h"
#include "TavixCore/Theme/BackgroundCatalog.h"
#include "TavixCore/Theme/FontCatalog.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"
#include "TavixCore/Values/LinearGradient.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace tavix {
namespace {

using frozen::departures;
using testing::IsEmpty;

constexpr std::int64_t seed = 7;
constexpr RGBAColor accent{0.2, 0.4, 0.9, 1};

KineticStyle styleOf(std::string_view preset, KineticSpeed speed, std::optional<KineticWeight> weight,
    KineticIntensity intensity) {
    const auto resolution = KineticPresetCatalog::resolve(
        {.preset = {std::string(preset), speed, weight, intensity}, .seed = seed, .accent = accent});
    EXPECT_THAT(resolution.notes, IsEmpty());
    return resolution.style;
}

// Under the name that the style itself remembers.
Json styleForm(const KineticStyle& style) {
    std::string name = style.presetID;
    for (const std::string_view word : {nameOf(style.speed), nameOf(style.weight), nameOf(style.intensity)})
        name += " " + std::string(word);
    JsonObject form{{"name", name}, {"scope", nameOf(style.scope)},
        {"stagger", frozen::numbers({style.stagger.delaySec, style.stagger.overlap})},
        {"in", frozen::phaseForm(style.inPhase)}, {"out", frozen::phaseForm(style.outPhase)}};
    if (style.stagger.order != StaggerOrder::normal) form.set("order", nameOf(style.stagger.order));
    if (style.stagger.seed != seed) form.set("seed", style.stagger.seed);
    if (const auto& idle = style.idle) {
        form.set("idle", JsonArray{nameOf(idle->target), idle->amplitude, idle->frequencyHz});
        EXPECT_EQ(idle->seed, seed);
    }
    return form;
}

TEST(FrozenTables, HoldEveryTextPresetAtEverySpeedWeightAndIntensity) {
    JsonArray presets, rows;
    for (const auto& [id, displayName] : KineticPresetCatalog::presets) {
        const KineticWeight usualWeight = KineticPresetCatalog::defaultWeight(id);
        presets.push_back(
            JsonObject{{"name", id}, {"displayName", displayName}, {"weight", nameOf(usualWeight)}});
        for (const KineticSpeed speed : allCases<KineticSpeed>())
            for (const KineticWeight weight : allCases<KineticWeight>())
                for (const KineticIntensity intensity : allCases<KineticIntensity>()) {
                    const KineticStyle style = styleOf(id, speed, weight, intensity);
                    rows.push_back(styleForm(style));
                    if (weight == usualWeight) {
                        EXPECT_EQ(styleOf(id, speed, {}, intensity), style);
                    }
                }
    }
    const Json found{JsonObject{{"accent", frozen::numbers({accent.r, accent.g, accent.b, accent.a})},
        {"presets", presets}, {"rows", rows}}};
    EXPECT_THAT(departures(frozen::table("text-presets"), found), IsEmpty());
}

Json fontForm(const FontOption& font) {
    JsonObject form{{"name", font.id}, {"displayName", font.displayName}};
    if (font.postScriptName) form.set("postScriptName", *font.postScriptName);
    if (font.fontPath) form.set("fontPath", *font.fontPath);
    return form;
}

TEST(FrozenTables, HoldTheFontsAndBackgroundsWithShortNames) {
    JsonArray fonts, backgrounds, stops;
    for (const FontOption& font : FontCatalog::standardOptions()) fonts.push_back(fontForm(font));
    for (const BundledBackground& background : BackgroundCatalog::all)
        backgrounds.push_back(JsonObject{{"name", background.id}, {"displayName", background.displayName},
            {"resourceName", background.resourceName}, {"fileExtension", background.fileExtension}});
    for (const auto& [c, location] : LinearGradient::standard().stops)
        stops.push_back(frozen::numbers({c.r, c.g, c.b, c.a, location}));
    const JsonObject gradient{{"stops", stops}, {"angleDegrees", LinearGradient::standard().angleDegrees}};
    EXPECT_THAT(
        departures(frozen::table("catalogs"),
            JsonObject{{"fonts", fonts}, {"backgrounds", backgrounds}, {"standardGradient", gradient}}),
        IsEmpty());
}

}   // namespace
}   // namespace tavix
