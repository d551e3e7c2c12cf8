#include "TavixCore/Animation/CompositionMath.h"
#include "TavixCore/Animation/CurveEvaluation.h"
#include "TavixCore/Animation/Easing.h"
#include "TavixCore/Animation/SplineMath.h"
#include "TavixCore/Document/SFXCatalog.h"
#include "TavixCore/Document/TransitionMath.h"
#include "TavixCore/Document/TransitionStyle.h"
#include "TavixCore/Document/TransitionTimingSpec.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Tests/FrozenForms.h"
#include "TavixCore/Tests/FrozenTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavix {
namespace {

using frozen::departures;
using frozen::list;
using frozen::member;
using frozen::number;
using frozen::numbers;
using testing::IsEmpty;

double at(const Json& numbersList, std::size_t index) {
    return numbersList.array()->at(index).doubleValue().value();
}

// Every sample made anew from its first numbers.
template <class Make> Json resampled(const Json& samples, Make make) {
    JsonArray made;
    for (const Json& sample : *samples.array()) made.push_back(make(sample));
    return made;
}

// The row with its samples made anew.
template <class Make> Json resampledRow(Json row, Make make) {
    Json samples = resampled(member(row, "samples"), make);
    row.object()->set("samples", std::move(samples));
    return row;
}

TEST(FrozenTables, HoldTheEasesOfTheCamera) {
    const Json table = frozen::table("curves");
    JsonArray found;
    const JsonArray& rows = list(table, "easings");
    for (const Easing easing : allCases<Easing>())
        found.push_back(JsonObject{{"name", nameOf(easing)},
            {"samples", resampled(member(rows.front(), "samples"), [&](const Json& s) {
                 return numbers({at(s, 0), apply(easing, at(s, 0))});
             })}});
    EXPECT_THAT(departures(member(table, "easings"), found), IsEmpty());
}

TEST(FrozenTables, HoldTheTimingCurvesAndTheirVelocities) {
    const Json table = frozen::table("curves");
    JsonArray found;
    for (const Json& row : list(table, "curves"))
        found.push_back(resampledRow(row, [&](const Json& s) {
            const KineticMath::CurveState state = KineticMath::evaluate(
                frozen::curveIn(member(row, "curve")), at(s, 0), number(row, "durationSec"));
            return numbers({at(s, 0), state.value, state.velocityPerSec});
        }));
    EXPECT_THAT(departures(member(table, "curves"), found), IsEmpty());
}

std::vector<double> numbersIn(const Json& row, std::string_view key) {
    std::vector<double> values;
    for (const Json& value : list(row, key)) values.push_back(value.doubleValue().value());
    return values;
}

TEST(FrozenTables, HoldTheSplinesThroughKeyframes) {
    const Json table = frozen::table("curves");
    JsonArray found;
    for (Json row : list(table, "splines")) {
        const std::vector<double> times = numbersIn(row, "timesSec"), values = numbersIn(row, "values");
        const std::vector<double> tangents = SplineMath::tangents(times, values);
        JsonArray samples;
        for (std::size_t i = 0; i + 1 < times.size(); ++i)
            for (const double progress : {0.0, 0.3, 0.5, 0.9, 1.0})
                samples.emplace_back(SplineMath::hermite(
                    {values[i], values[i + 1], tangents[i], tangents[i + 1], times[i + 1] - times[i]},
                    progress));
        row.object()->set("tangents", JsonArray(tangents.begin(), tangents.end()));
        row.object()->set("samples", samples);
        found.push_back(std::move(row));
    }
    EXPECT_THAT(departures(member(table, "splines"), found), IsEmpty());
}

TEST(FrozenTables, HoldATrackOfEveryPropertyBetweenItsKeyframes) {
    const Json table = frozen::table("curves");
    std::vector<CompositionKeyframe> keyframes;
    for (const Json& k : list(table, "keyframes"))
        keyframes.push_back({.t = at(k, 0), .value = at(k, 1), .ease = frozen::curveIn(k.array()->at(2))});
    JsonArray found;
    const JsonArray& rows = list(table, "tracks");
    for (const AnimProperty property : allCases<AnimProperty>()) {
        const std::vector<PropertyTrack> tracks{{property, keyframes}};
        found.push_back(JsonObject{{"name", nameOf(property)},
            {"samples", resampled(member(rows.front(), "samples"), [&](const Json& s) {
                 return numbers({at(s, 0), CompositionMath::sample(tracks, property, at(s, 0)).value()});
             })}});
    }
    EXPECT_THAT(departures(member(table, "tracks"), found), IsEmpty());
}

TEST(FrozenTables, HoldTheWordsOfTransitions) {
    const Json table = frozen::table("transitions");
    JsonArray timings, styles, sounds;
    for (const auto preset : allCases<TransitionTimingSpec::Preset>()) {
        const TransitionTimingSpec timing = TransitionTimingSpec::of(preset);
        EXPECT_EQ(timing.kind, TransitionTimingSpec::Kind::spring);
        timings.push_back(JsonObject{{"name", nameOf(preset)}, {"response", timing.response.value()},
            {"damping", timing.damping.value()}});
    }
    for (const TransitionStyle style : allCases<TransitionStyle>())
        styles.push_back(JsonObject{{"name", nameOf(style)}, {"isAccent", isAccent(style)},
            {"sound", nameOf(SFXCatalog::sound(style))}});
    for (const std::string_view sound : allNames<SFXCatalog::Sound>()) sounds.emplace_back(sound);
    EXPECT_THAT(departures(member(table, "timings"), timings), IsEmpty());
    EXPECT_THAT(departures(member(table, "styles"), styles), IsEmpty());
    EXPECT_THAT(departures(member(table, "sounds"), sounds), IsEmpty());
    EXPECT_EQ(TransitionTimingSpec::defaultResponse, number(table, "defaultResponse"));
    EXPECT_EQ(TransitionTimingSpec::defaultDamping, number(table, "defaultDamping"));
    EXPECT_EQ(TransitionMath::wipeFeatherFraction, number(table, "wipeFeatherFraction"));
}

std::optional<TransitionTimingSpec> timingIn(const Json& row) {
    using Kind = TransitionTimingSpec::Kind;
    const Json& timing = member(row, "timing");
    if (timing == Json("none")) return std::nullopt;
    if (timing == Json("linear")) return TransitionTimingSpec{.kind = Kind::linear};
    TransitionTimingSpec spring{.kind = Kind::spring};
    if (timing.find("response")) spring.response = number(timing, "response");
    if (timing.find("damping")) spring.damping = number(timing, "damping");
    return spring;
}

TEST(FrozenTables, HoldTheProgressOfTransitions) {
    using namespace TransitionMath;
    const Json table = frozen::table("transitions");
    JsonArray eased, progressed, settled;
    for (Json row : list(table, "easedProgress")) {
        const double atSec = number(row, "atSec");
        const auto timing = timingIn(row);
        row.object()->set("ofNoLength",
            numbers({easedProgress(1, atSec, atSec, timing), easedProgress(2, atSec, atSec, timing),
                easedProgress(3, atSec, atSec, timing)}));
        eased.push_back(resampledRow(row, [&](const Json& s) {
            return numbers({at(s, 0), easedProgress(at(s, 0), atSec, number(row, "revealSec"), timing)});
        }));
    }
    for (const Json& row : list(table, "springProgress"))
        progressed.push_back(resampledRow(row, [&](const Json& s) {
            return numbers({at(s, 0), springProgress(at(s, 0), number(row, "damping"))});
        }));
    for (const Json& row : list(table, "springSettleDurationSec"))
        settled.push_back(resampledRow(row, [&](const Json& s) {
            return numbers({at(s, 0), springSettleDurationSec(number(row, "responseSec"), at(s, 0))});
        }));
    EXPECT_THAT(departures(member(table, "easedProgress"), eased), IsEmpty());
    EXPECT_THAT(departures(member(table, "springProgress"), progressed), IsEmpty());
    EXPECT_THAT(departures(member(table, "springSettleDurationSec"), settled), IsEmpty());
    const Json cubic = resampled(member(table, "easeInOutCubic"), [](const Json& s) {
        return numbers({at(s, 0), easeInOutCubic(at(s, 0))});
    });
    EXPECT_THAT(departures(member(table, "easeInOutCubic"), cubic), IsEmpty());
}

TEST(FrozenTables, HoldTheEdgesOfWipesAndPushes) {
    const Json table = frozen::table("transitions");
    const Json wipes = resampled(member(table, "wipe"), [](const Json& s) {
        const TransitionMath::WipeEdge edge = TransitionMath::wipeEdge(at(s, 0), at(s, 1));
        return numbers({at(s, 0), at(s, 1), edge.x0, edge.x1});
    });
    const Json pushes = resampled(member(table, "push"), [](const Json& s) {
        const TransitionMath::PushOffsets offsets = TransitionMath::pushOffsets(at(s, 0), at(s, 1));
        return numbers({at(s, 0), at(s, 1), offsets.outgoingDx, offsets.incomingDx});
    });
    EXPECT_THAT(departures(member(table, "wipe"), wipes), IsEmpty());
    EXPECT_THAT(departures(member(table, "push"), pushes), IsEmpty());
}

// The comparison itself: whatever is missing, too much or changed is told by its place.
TEST(FrozenTables, TellEveryDeparture) {
    const Json kept = frozen::table("teaser-clips");
    EXPECT_THAT(departures(kept, kept), IsEmpty());
    const Json two = JsonArray{JsonObject{{"name", "a"}, {"x", 1}}, JsonObject{{"name", "b"}, {"x", 2.5}}};
    const struct {
        Json found;
        std::string line;
    } cases[] = {
        {JsonArray{JsonObject{{"name", "a"}, {"x", 1}}, JsonObject{{"name", "b"}, {"x", 2.500001}}},
            " b x: expected 2.5, found 2.500001"},
        {JsonArray{JsonObject{{"name", "a"}, {"x", 1}}, JsonObject{{"name", "b"}}},
            " b x: expected 2.5, found nothing"},
        {JsonArray{JsonObject{{"name", "a"}, {"x", 1}, {"y", 3}}, JsonObject{{"name", "b"}, {"x", 2.5}}},
            " a y: expected nothing, found 3"},
        {JsonArray{JsonObject{{"name", "a"}, {"x", 1}}}, " b: expected this row, found none"},
        {JsonArray{JsonObject{{"name", "b"}, {"x", 2.5}}, JsonObject{{"name", "a"}, {"x", 1}}},
            " row 0: expected a, found b"},
        {JsonArray{JsonObject{{"name", "a"}, {"x", JsonArray{1}}}, JsonObject{{"name", "b"}, {"x", 2.5}}},
            " a x: expected 1, found [\n  1\n]"},
    };
    for (const auto& c : cases) EXPECT_THAT(departures(two, c.found), testing::ElementsAre(c.line));
    EXPECT_THAT(
        departures(numbers({1, 2}), numbers({1})), testing::ElementsAre(" [1]: expected 2, found nothing"));
    EXPECT_THAT(
        departures(numbers({1}), numbers({1, 2})), testing::ElementsAre(" [1]: expected nothing, found 2"));
}

}   // namespace
}   // namespace tavix
