#include "TavixCore/Choreography/DeviceChoreographyExpander.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Support/Document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace tavix {
namespace {

using enum DeviceChoreographyPreset;
using Direction = DeviceMotionParams::Direction;

CompositionLayer hero() {
    CompositionLayer layer;
    layer.id = "hero";
    layer.fromSec = 0.5;
    layer.fromMark = MarkRef{"tap"};
    layer.enter = KineticPhase{.durationSec = 1};
    layer.exit = KineticPhase{.durationSec = 1};
    layer.effects = {BlurEffect{}};
    layer.content = DeviceContent{.screen = StillScreen{"screen.png"}};
    return layer;
}

DeviceChoreography made(DeviceChoreographyPreset preset, const DeviceChoreographyParams& params = {},
    const CompositionLayer& source = hero()) {
    return *DeviceChoreographyExpander::expand(preset, source, {1080, 1920, 30}, params);
}

const DeviceContent& device(const CompositionLayer& layer) { return std::get<DeviceContent>(layer.content); }

template <class Keyframes, class Time> bool isInOrder(const Keyframes& keyframes, Time time) {
    return std::ranges::is_sorted(keyframes, {}, time);
}

// Every device has its layer, its times are in order, and nothing of the source's own motion is left.
TEST(DeviceFormations, AreSoundAtTheEndsOfEveryRange) {
    for (const DeviceChoreographyPreset preset : allCases<DeviceChoreographyPreset>())
        for (const std::int64_t count : {2, 3, 8})
            for (const double intensity : {0.3, 1.6})
                for (const double spread : {0.3, 1.6})
                    for (const double staggerSec : {0.0, 0.14})
                        for (const Direction direction : {Direction::forward, Direction::reversed}) {
                            SCOPED_TRACE(nameOf(preset));
                            const DeviceChoreography formation =
                                made(preset, {7.3, intensity, direction, count, spread, staggerSec});
                            const std::size_t cards = preset == uiBurst ? 1 : 0;
                            ASSERT_EQ(formation.layers.size(), static_cast<std::size_t>(count) + cards);
                            std::set<std::string> ids;
                            for (const CompositionLayer& layer : formation.layers) {
                                EXPECT_NO_THROW(encodedJson(layer));   // which refuses what is not finite
                                EXPECT_TRUE(ids.insert(*layer.id).second);
                                EXPECT_EQ(layer.effects[0], LayerEffect(BlurEffect{}));
                                for (const PropertyTrack& track : layer.tracks)
                                    EXPECT_TRUE(isInOrder(track.keyframes, &CompositionKeyframe::t));
                                const auto* const phone = std::get_if<DeviceContent>(&layer.content);
                                if (!phone) continue;
                                EXPECT_FALSE(layer.fromMark || layer.enter || layer.exit);
                                EXPECT_EQ(phone->scene3D.has_value(), traitsOf(preset).uses3DDevices);
                                EXPECT_TRUE(
                                    isInOrder(phone->placement->track, &DevicePlacementKeyframe::tSec));
                                for (const DevicePlacementKeyframe& place : phone->placement->track)
                                    EXPECT_GE(place.scale, leastPlacementScale);
                                if (!phone->scene3D) continue;
                                EXPECT_TRUE(isInOrder(phone->scene3D->poseTrack, &DevicePoseKeyframe::tSec));
                                EXPECT_TRUE(
                                    isInOrder(phone->scene3D->depthTrack, &DeviceScalarKeyframe::tSec));
                            }
                        }
}

// The same formation at twice the length is the same motion at half the speed.
TEST(DeviceFormations, StretchWithTheirLength) {
    for (const DeviceChoreographyPreset preset : allCases<DeviceChoreographyPreset>()) {
        if (preset == infiniteTunnel) continue;   // flights keep their pace
        SCOPED_TRACE(nameOf(preset));
        const double naturalSec = traitsOf(preset).naturalDurationSec;
        const auto natural = made(preset), slow = made(preset, {.durationSec = 2 * naturalSec});
        EXPECT_DOUBLE_EQ(slow.durationSec, 2 * natural.durationSec);
        for (std::size_t k = 0; k < natural.layers.size(); ++k) {
            EXPECT_DOUBLE_EQ(slow.layers[k].fromSec - 0.5, 2 * (natural.layers[k].fromSec - 0.5));
            EXPECT_DOUBLE_EQ(*slow.layers[k].durationSec, 2 * *natural.layers[k].durationSec);
            const auto* const phone = std::get_if<DeviceContent>(&natural.layers[k].content);
            if (!phone) continue;
            const auto &quickTrack = phone->placement->track,
                       &slowTrack = device(slow.layers[k]).placement->track;
            for (std::size_t i = 0; i < quickTrack.size(); ++i) {
                EXPECT_NEAR(slowTrack[i].tSec, 2 * quickTrack[i].tSec, 0.0016);
                EXPECT_EQ(slowTrack[i].offset, quickTrack[i].offset);
                EXPECT_EQ(slowTrack[i].scale, quickTrack[i].scale);
            }
        }
    }
}

TEST(DeviceFormations, NameTheirLayersAfterTheSource) {
    EXPECT_EQ(made(fanDeck).layers[0].id, "hero-fan-0");
    EXPECT_EQ(made(fanDeck, {}, {.id = "", .content = DeviceContent{}}).layers[1].id, "fan-1");
    EXPECT_EQ(made(fanDeck, {}, {.content = DeviceContent{}}).layers[3].id, "fan-3");
    EXPECT_EQ(made(uiBurst).layers[0].id, "hero-burst-phone");
    EXPECT_EQ(made(uiBurst).layers[4].id, "hero-burst-card-3");
    EXPECT_FALSE(DeviceChoreographyExpander::expand(fanDeck, {}, {}, {}));
}

TEST(DeviceFormations, StandWhereTheyShould) {
    // The fan deals a card every tenth of a second at most.
    const auto fan = made(fanDeck);
    EXPECT_EQ(device(fan.layers[1]).placement->track[1].tSec, 0.38);
    EXPECT_EQ(device(fan.layers[0]).placement->track[4].offset, (NormalizedVec2{-0.4, 0}));
    EXPECT_EQ(device(fan.layers[2]).scene3D->poseTrack[0].tiltDegrees, (Vector3{13, -68, -5}));

    const auto pair = made(orbitCarousel, {.count = 2});
    const auto& front = device(pair.layers[0]).placement->track[0];
    EXPECT_DOUBLE_EQ(front.scale, 0.62);
    EXPECT_DOUBLE_EQ(device(pair.layers[0]).scene3D->depthTrack[0].value, 0.82);
    EXPECT_DOUBLE_EQ(device(pair.layers[1]).placement->track[0].scale, 0.38);
    EXPECT_DOUBLE_EQ(device(pair.layers[1]).placement->track[0].offset.y, -0.1);

    const auto handoff = made(ecosystemHandoff, {.durationSec = 7.2, .count = 8});
    EXPECT_NEAR(handoff.layers[7].fromSec - 0.5, 3.36 * 2, 1e-12);
    EXPECT_NEAR(*handoff.layers[7].durationSec, 2.4, 1e-12);
    EXPECT_EQ(handoff.durationSec, 7.2);
    EXPECT_EQ(handoff.layers[0].tracks[0].keyframes[1].t, 0.288);

    const auto tunnel = made(infiniteTunnel);
    EXPECT_NEAR(tunnel.durationSec, 4.4267, 0.0001);
    EXPECT_NEAR(*tunnel.layers[0].durationSec, 1.76, 1e-12);
    EXPECT_EQ(tunnel.layers[0].tracks[0].keyframes[1].t, 0.141);

    const auto cascade = made(screenCascade);
    for (std::size_t k = 0; k < 4; ++k)
        EXPECT_DOUBLE_EQ(device(cascade.layers[k]).placement->track[2].scale, k == 2 ? 0.58 : 0.46);
    EXPECT_DOUBLE_EQ(device(made(splitFocus).layers[1]).placement->track[4].scale, 0.72);
    EXPECT_DOUBLE_EQ(device(made(depthWave).layers[4]).scene3D->poseTrack[1].tSec, 1.18);
    EXPECT_EQ(device(made(colorwayDomino).layers[0]).scene3D->motionBlur, 0.95);
    EXPECT_EQ(made(colorwayDomino, {.count = 6}).layers[5].effects[1],
        LayerEffect(TintEffect{{0.96, 0.45, 0.18, 1}, 0.1}));
}

TEST(DeviceFormations, CutCardsFromTheScreen) {
    const CompositionLayer still = made(uiBurst).layers[2];
    EXPECT_EQ(still.position, (PixelPoint{540, 960}));
    EXPECT_EQ(still.content,
        LayerContent(ImageContent{"screen.png", 0.135, 0.075, NormalizedRect{0, 0.2, 1, 0.3}}));
    EXPECT_DOUBLE_EQ(still.tracks[1].keyframes[2].value, 0.162);
    EXPECT_DOUBLE_EQ(still.tracks[2].keyframes[2].value, -0.08);
    CompositionLayer source = hero();
    source.content = DeviceContent{.screen = VideoClip{"clip.mp4", 1, 4, MarkRef{"tap"}}};
    const CompositionLayer moving = made(uiBurst, {}, source).layers[4];
    const auto& video = std::get<VideoContent>(moving.content);
    EXPECT_EQ(video.clip, (VideoClip{"clip.mp4", 1, 4}));
    EXPECT_EQ(video.rect, (NormalizedRect{0.32, 0.445, 0.36, 0.11}));
}

TEST(DeviceFormations, GiveEachDeviceAScreenOfItsOwn) {
    CompositionLayer source = hero();
    std::get<DeviceContent>(source.content).screens = {StillScreen{"a.png"}, VideoClip{"b.mp4"}};
    for (const DeviceChoreographyPreset preset : allCases<DeviceChoreographyPreset>()) {
        SCOPED_TRACE(nameOf(preset));
        const auto formation = made(preset, {.count = 5}, source);
        for (std::size_t k = 0; k < formation.layers.size(); ++k) {
            const CompositionLayer& layer = formation.layers[k];
            if (const auto* const phone = std::get_if<DeviceContent>(&layer.content)) {
                EXPECT_EQ(phone->screen,
                    k % 2 ? ScreenSource(VideoClip{"b.mp4"}) : ScreenSource(StillScreen{"a.png"}));
                EXPECT_TRUE(phone->screens.empty());
            } else {   // a burst's first card is cut from what its phone shows
                EXPECT_EQ(std::holds_alternative<ImageContent>(layer.content), k % 2 == 1);
            }
        }
    }
}

TEST(DeviceFormations, AreCleanAtTheirLargest) {
    for (const std::string_view name : allNames<DeviceChoreographyPreset>())
        for (const std::string_view stagger : {"0", "0.14", "0.5"}) {
            const auto spec = decodeJson<CompositionSpec>(
                R"({"scenes": [{"durationSec": 0.5, "layers": [{"kind": "device", "fromSec": 0.25, "device": {
                    "screen": {"path": "a.png"}, "choreographyPreset": {"preset": ")" +
                std::string(name) + R"(", "params": {"count": 8, "staggerSec": )" + std::string(stagger) +
                "}}}}]}]}");
            for (const CompositionLint::Finding& finding : CompositionLint::lint(spec))
                EXPECT_NE(finding.level, CompositionLint::Level::error)
                    << name << " " << stagger << " " << finding.path << ": " << finding.message;
        }
}

TEST(DeviceFormations, AreBakedByReading) {
    const auto spec = decodeJson<CompositionSpec>(R"({"scenes": [
        {"durationSec": 1, "layers": [
            {"kind": "shape", "id": "below"},
            {"kind": "device", "fromSec": 2, "device": {
                "choreographyPreset": {"preset": "screenCascade"}, "motionPreset": {"preset": "reveal"}}},
            {"kind": "shape", "id": "above"}]},
        {"durationSec": 1, "durationBeats": 2, "layers": [
            {"kind": "device", "device": {"choreographyPreset": {"preset": "infiniteTunnel"}}}]}]})");
    ASSERT_EQ(spec.scenes[0].layers.size(), 6u);
    EXPECT_EQ(spec.scenes[0].layers[0].id, "below");
    EXPECT_EQ(spec.scenes[0].layers[1].id, "cascade-0");
    EXPECT_EQ(spec.scenes[0].layers[5].id, "above");
    EXPECT_DOUBLE_EQ(spec.scenes[0].durationSec, 4.8);
    EXPECT_EQ(spec.scenes[1].durationSec, 1);
    const std::string written = encodedJson(spec);
    EXPECT_EQ(written.find("Preset"), std::string::npos);
    EXPECT_EQ(decodeJson<CompositionSpec>(written), spec);
}

}   // namespace
}   // namespace tavix
