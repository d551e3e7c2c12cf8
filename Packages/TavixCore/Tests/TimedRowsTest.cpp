// A record that nobody knows has its times in beats and by marks resolved, because its table says what they
// are.
#include "TavixCore/Time/TimedRows.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/BeatResolver.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

struct Firework {
    double burstSec = 0;
    std::optional<double> burstBeat;
    std::optional<MarkRef> burstMark;
    std::optional<double> lengthSec, lengthBeats;
    bool operator==(const Firework&) const = default;
};
struct Show {
    CompositionScene scene;
    std::vector<Firework> fireworks;
    bool operator==(const Show&) const = default;
};
const Fields<Firework>& fieldsOf(std::type_identity<Firework>) {
    using F = Firework;
    static const Fields<F> table{
        "Firework", {field<&F::burstSec>("burstSec", ""),
                        field<&F::burstBeat>("burstBeat", "").as(Role::beatMoment, "burstSec"),
                        field<&F::burstMark>("burstMark", "").as(Role::markMoment, "burstSec"),
                        field<&F::lengthSec>("lengthSec", ""),
                        field<&F::lengthBeats>("lengthBeats", "").as(Role::beatLength, "lengthSec")}};
    return table;
}
const Fields<Show>& fieldsOf(std::type_identity<Show>) {
    static const Fields<Show> table{
        "Show", {field<&Show::scene>("scene", ""), field<&Show::fireworks>("fireworks", "")}};
    return table;
}

TEST(TimedRows, InBeatsBecomeSecondsInAnyRecord) {
    CompositionBeats::BeatResolver resolver(BeatGrid{.bpm = 120, .offsetSec = 1});
    Show show;
    show.scene.durationBeats = 8;
    show.scene.layers.push_back({.fromBeat = 6});
    show.fireworks = {{.burstBeat = 3, .lengthBeats = 4}, {.burstSec = 7},
        {.burstBeat = -4, .lengthSec = 2, .lengthBeats = 2}};
    const RowFilter inBeats(typeOf<Show>(), isInBeats);
    EXPECT_TRUE(containsRow(typeOf<Show>(), &show, inBeats));
    resolver.resolveLengths(typeOf<Show>(), &show);
    resolver.resolveMoments(typeOf<Show>(), &show, {2.5});
    EXPECT_FALSE(containsRow(typeOf<Show>(), &show, inBeats));
    EXPECT_EQ(show.scene.durationSec, 4);
    EXPECT_EQ(show.scene.layers[0].fromSec, 1.5);
    EXPECT_EQ(show.fireworks[0], (Firework{.burstSec = 2.5, .lengthSec = 2}));
    EXPECT_EQ(show.fireworks[1], (Firework{.burstSec = 7}));
    EXPECT_EQ(show.fireworks[2], (Firework{.burstSec = -1, .lengthSec = 1}));
    const auto findings = std::move(resolver).findings();
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0].path, "fireworks[2].lengthBeats");
    EXPECT_EQ(findings[0].message,
        "lengthSec (2.00) and lengthBeats (2.00) both set — pick one duration authority.");
    EXPECT_EQ(findings[1].path, "fireworks[2].burstBeat");
    EXPECT_EQ(findings[1].message, "Beat -4.00 resolves to -1.00s — before the composition starts.");
}

TEST(TimedRows, ByMarkBecomeSecondsWhereTheMarkIsKnown) {
    Show show;
    show.fireworks = {{.burstMark = MarkRef{"tap"}}, {.burstMark = MarkRef{"swipe"}}};
    std::vector<std::string> asked;
    resolveRows(typeOf<Show>(), &show, KeyPath(), Role::markMoment, [&](const MutablePlace& place) {
        asked.push_back(place.at.text());
        return place.as<MarkRef>()->mark == "tap" ? std::optional(4.5) : std::nullopt;
    });
    EXPECT_EQ(asked, (std::vector<std::string>{"fireworks[0].burstMark", "fireworks[1].burstMark"}));
    EXPECT_EQ(show.fireworks[0], (Firework{.burstSec = 4.5}));
    EXPECT_EQ(show.fireworks[1].burstMark, MarkRef{"swipe"});
    EXPECT_TRUE(containsRow(typeOf<Show>(), &show, RowFilter(typeOf<Show>(), isByMark)));
}

}   // namespace
}   // namespace tavix
