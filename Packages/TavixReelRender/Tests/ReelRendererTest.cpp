// Frames of a reel, measured in their pixels.
#include "ReelTestKit.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"
#include "TavixReel/Camera/CameraTrajectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace tavix {
namespace {

using imaging::Image;
using namespace testing;
using ::testing::Contains;
using ::testing::HasSubstr;

// The screen of the plain document, and its middle.
constexpr int left = 100, top = 100, side = 200, middle = 200;

CameraKeyframe at(double tSec, double scale, double x, double y) {
    return {.tSec = tSec, .scale = scale, .centerPx = {x, y}};
}

// What the middle of the screen shows, and how large, from two points of it.
struct Seen {
    PixelPoint center;
    double scale;   // canvas pixels by pixels of the recording
};
Seen seenIn(const Picture& frame) {
    const int step = 60;
    const PixelPoint low = gridPoint(frame.at(middle - step, middle - step));
    const PixelPoint high = gridPoint(frame.at(middle + step - 1, middle + step - 1));
    return {{(low.x + high.x) / 2, (low.y + high.y) / 2}, (2 * step - 1) / (high.x - low.x)};
}

// The camera at 30 frames a second against what a spring does by its law: the zoom is critically damped in
// its logarithm, and the pan too where its damping is 1.
TEST(ReelFrames, TheCameraIsWhereItsSpringsAre) {
    Studio studio;
    EffectsSpec spec = plainSpec();
    spec.cameraTrack = {at(0, 1, 125, 125), at(0.5, 1.8, 120, 140), at(2.5, 1.25, 130, 118)};
    spec.motion = MotionSpring{.zoomResponse = 0.5, .panResponse = 0.7, .damping = 1};
    ReelRenderer renderer = studio.renderer(spec);
    const auto approach = [](double from, double to, double sec, double responseSec) {
        if (sec <= 0) return from;
        const double turn = 2 * M_PI / responseSec * sec;
        return to + (from - to) * (1 + turn) * std::exp(-turn);
    };
    for (double sec = 0; sec < 2.45; sec += 0.1) {
        SCOPED_TRACE(sec);
        const Seen seen = seenIn(studio.picture(renderer.footage(grid(), sec, sec)));
        const double zoom = std::exp(approach(0, std::log(1.8), sec - 0.5, 0.5));
        // A square screen of 200 pixels shows the whole recording of 250 at a scale of 1.
        EXPECT_NEAR(seen.scale, zoom * side / 250.0, 0.02 * zoom);
        // The camera keeps the edges of the recording out of sight.
        const double room = 125 / zoom;
        const auto held = [room](double focal) { return std::clamp(focal, room, 250 - room); };
        EXPECT_NEAR(seen.center.x, held(approach(125, 120, sec - 0.5, 0.7)), 0.75);
        EXPECT_NEAR(seen.center.y, held(approach(125, 140, sec - 0.5, 0.7)), 0.75);
    }
}

TEST(ReelFrames, KeyframesAreReachedWhereTheDocumentEases) {
    Studio studio;
    EffectsSpec spec = plainSpec();
    spec.motion = KeyframeEasing{};
    spec.cameraTrack = {at(0, 2, 100, 100), at(1, 2, 140, 120)};
    spec.cameraTrack[1].easing = Easing::linear;
    ReelRenderer renderer = studio.renderer(spec);
    for (const double sec : {0.0, 0.25, 0.5, 1.0, 3.0}) {
        const Seen seen = seenIn(studio.picture(renderer.footage(grid(), sec, sec)));
        const double way = std::min(sec, 1.0);
        EXPECT_NEAR(seen.center.x, 100 + 40 * way, 0.75);
        EXPECT_NEAR(seen.center.y, 100 + 20 * way, 0.75);
        EXPECT_NEAR(seen.scale, 2 * side / 250.0, 0.02);
    }
}

TEST(ReelFrames, TheRecordingFillsTheScreenAndNothingElse) {
    Studio studio;
    EffectsSpec spec = plainSpec();
    // A camera that would look past the corner, from further away than the whole recording.
    for (const CameraKeyframe& keyframe : {at(0, 0.3, -90, 400), at(0, 3, 0, 0), at(0, 3, 250, 250)}) {
        spec.cameraTrack = {keyframe};
        ReelRenderer renderer = studio.renderer(spec);
        const Picture frame = studio.picture(renderer.footage(grid(77), 0, 0));
        for (const int x : {left, middle, left + side - 1})
            for (const int y : {top, middle, top + side - 1})
                EXPECT_EQ(frame.at(x, y).b, 77) << x << " " << y;
        for (const auto& [x, y] : {std::pair(left - 1, middle), {left + side, middle}, {middle, top - 1},
                 {middle, top + side}, {0, 0}, {399, 399}})
            EXPECT_EQ(frame.at(x, y), ringColor) << x << " " << y;
    }
}

TEST(ReelFrames, AScreenHasRoundCornersAndTheDeviceAShadowAroundIt) {
    Studio studio;
    EffectsSpec spec = plainSpec();
    spec.background.padding = 80;   // the ring stands from 80 to 320, its screen from 140 to 260
    spec.background.device.screenCornerRadiusFraction = 0.5;
    spec.background.device.framePath = "no-frame.png";
    spec.background.device.bundledID = "no such device";
    spec.background.shadow = {.radius = 10, .opacity = 0.5, .offsetY = 20, .color = {0, 0, 0, 1}};
    ReelRenderer bare = studio.renderer(spec);
    EXPECT_THAT(studio.log, Contains(HasSubstr("no-frame.png")));
    spec.background.device.framePath = ringName;
    ReelRenderer renderer = studio.renderer(spec);
    const Picture frame = studio.picture(renderer.footage(grid(77), 0, 0));
    EXPECT_EQ(frame.at(middle, middle).b, 77);
    // Outside of the circle the ring's hole shows the ground, in the shadow of the whole device.
    EXPECT_NEAR(frame.at(143, 143).r, 45, 3);
    EXPECT_NEAR(frame.at(143, 143).b, 45, 3);
    // Half as bright far inside; what is left of it fades out below, further than above.
    EXPECT_NEAR(frame.at(middle, 321).r, 45, 6);
    EXPECT_NEAR(frame.at(middle, 340).r, 90 * (1 - 0.25), 8);
    EXPECT_EQ(frame.at(middle, 60), greyGround);
    EXPECT_EQ(frame.at(middle, 390), greyGround);
}

TEST(ReelFrames, ATransitionGoesFromItsPictureToTheNext) {
    Studio studio;
    EffectsSpec spec = plainSpec();
    ScreenTransition fade;
    fade.atSec = 1;
    fade.revealSec = 2;
    fade.style = TransitionStyle::fade;
    ScreenTransition second = fade;
    second.atSec = 1.5;
    second.revealSec = 3;
    ReelRenderer renderer =
        studio.renderer(spec, {.transitions = {{fade, grid(40), grid(240)}, {second, grid(0), grid(0)}}});
    const auto blueAt = [&](double sec) {
        return studio.picture(renderer.footage(grid(100), sec, sec)).at(middle, middle).b;
    };
    EXPECT_EQ(blueAt(0.99), 100);
    EXPECT_EQ(blueAt(1), 40);
    EXPECT_NEAR(blueAt(1.5), 140, 1);   // half way; the first in the list counts
    EXPECT_NEAR(blueAt(1.9), 240, 4);
    EXPECT_NEAR(blueAt(2), 0, 1);   // and now the second
    EXPECT_EQ(blueAt(3), 100);
}

TEST(ReelFrames, ALiveTransitionEndsInTheRunningFilm) {
    Studio studio;
    ScreenTransition fade;
    fade.atSec = 0;
    fade.revealSec = 1;
    fade.style = TransitionStyle::fade;
    fade.liveIncoming = true;
    ReelRenderer renderer = studio.renderer(plainSpec(), {.transitions = {{fade, grid(40), grid(240)}}});
    EXPECT_NEAR(studio.picture(renderer.footage(grid(100), 0.5, 0.5)).at(middle, middle).b, 70, 1);
}

// Two clocks: the device moves by the finished reel's, and by fractions of the canvas height.
TEST(ReelFrames, ADeviceGoesWhereItIsPlaced) {
    Studio studio({400, 200});
    EffectsSpec spec = plainSpec(studio.size);   // the ring stands from 100 to 300
    DevicePlacementSpec placement;
    placement.track = {{.tSec = 0, .offset = {-0.25, 0.1}, .scale = 0.5}};
    spec.setDevicePlacement(placement);
    ReelRenderer renderer = studio.renderer(spec);
    const Picture frame = studio.picture(renderer.footage(grid(77), 0, 0));
    // The middle is 50 pixels to the left of the canvas's and 20 below it; the ring is 100 pixels wide.
    EXPECT_EQ(frame.at(99, 120), greyGround);
    EXPECT_EQ(frame.at(101, 120), ringColor);
    EXPECT_EQ(frame.at(198, 120), ringColor);
    EXPECT_EQ(frame.at(201, 120), greyGround);
    EXPECT_EQ(frame.at(150, 68), greyGround);
    EXPECT_EQ(frame.at(150, 72), ringColor);
    const PixelPoint shown = gridPoint(frame.at(150, 120));
    EXPECT_NEAR(shown.x, 127.5, 1.5);   // a pixel of the canvas spans five of the recording
    EXPECT_NEAR(shown.y, 127.5, 1.5);
}

TEST(ReelFrames, APlacementComesAtItsTimeOfTheFinishedReel) {
    Studio studio;
    EffectsSpec spec = plainSpec();
    DevicePlacementSpec placement;
    placement.track = {{.tSec = 0}, {.tSec = 2, .offset = {0.25, 0}}};
    placement.responseSec = 0.1;
    placement.damping = 1;
    spec.setDevicePlacement(placement);
    ReelRenderer renderer = studio.renderer(spec, {.compositionSec = [](double sec) { return sec + 3; }});
    const auto edgeColor = [&](double preCut, double composition) {
        return studio.picture(renderer.footage(grid(), preCut, composition)).at(20, middle);
    };
    EXPECT_EQ(edgeColor(2.5, 4.9), ringColor);
    EXPECT_EQ(edgeColor(0, 6), greyGround);
}

Caption captionOf(std::string text, double startSec, double endSec) {
    return {.text = std::move(text), .window = {startSec, endSec}};
}

TEST(ReelFrames, CaptionsGoByTheRecordingAndLeaveCardsAlone) {
    Studio studio;
    EffectsSpec spec = plainSpec();
    TitleCard card;
    card.durationSec = 2;
    card.background = RGBAColor{0, 0, 1, 1};
    spec.titleCards = {card};
    ReelRenderer bare = studio.renderer(spec);
    spec.narration.emplace().captions = {captionOf("Plain words", 1, 3), captionOf("Moving", 1, 3)};
    spec.narration->captions[1].kinetic = KineticPresetCatalog::resolve({}).style;
    spec.narration->captions[1].position = NormalizedPoint{0.5, 0.2};
    ReelRenderer renderer = studio.renderer(spec);
    // The lower part has the bar, the upper part the moving text.
    struct Differs {
        bool above, below;
        bool operator==(const Differs&) const = default;
    };
    const auto differs = [&](const Image& one, const Image& other) {
        const Picture a = studio.picture(one), b = studio.picture(other);
        Differs result{};
        for (int y = 0; y < 400; ++y)
            for (int x = 0; x < 400; ++x)
                if (a.at(x, y) != b.at(x, y)) (y < 200 ? result.above : result.below) = true;
        return result;
    };
    const auto footage = [&](ReelRenderer& from, const std::optional<Image>& recording, double preCut) {
        return from.footage(recording, preCut, 20);
    };
    EXPECT_EQ(differs(footage(renderer, grid(), 2), footage(bare, grid(), 2)), (Differs{true, true}));
    EXPECT_EQ(differs(footage(renderer, grid(), 0.5), footage(bare, grid(), 0.5)), Differs{});
    // Without a picture of the recording only what moves is shown.
    EXPECT_EQ(differs(footage(renderer, {}, 2), footage(bare, {}, 2)), (Differs{true, false}));
    EXPECT_EQ(differs(renderer.card(0, 1.9), bare.card(0, 1.9)), Differs{});
    EXPECT_EQ(studio.picture(renderer.card(0, 0)).at(5, 5), (Pixel{0, 0, 255, 255}));
    // A card that is not there shows the surroundings.
    EXPECT_EQ(studio.picture(renderer.card(7, 0)).at(5, 5), ringColor);
}

TEST(ReelFrames, LightFallsOnSeamsToBothSides) {
    Studio studio;
    EffectsSpec spec = plainSpec();
    spec.cutDressing = CutDressing(CutDressing::Style::flash, 0.8, 0.2);
    const ReelRenderer::Footage footage{.seamsSec = {2, 5}};
    ReelRenderer flash = studio.renderer(spec, footage);
    const auto greenAt = [&](ReelRenderer& renderer, double sec) {
        return studio.picture(renderer.footage(grid(), 0, sec)).at(10, 10).g;
    };
    EXPECT_EQ(greenAt(flash, 1.8), ringColor.g);
    EXPECT_NEAR(greenAt(flash, 2), 160 + 0.8 * 95, 1);
    EXPECT_NEAR(greenAt(flash, 1.9), 160 + 0.4 * 95, 1);
    EXPECT_NEAR(greenAt(flash, 2.1), greenAt(flash, 1.9), 1);
    EXPECT_NEAR(greenAt(flash, 5), 160 + 0.8 * 95, 1);
    spec.cutDressing->style = CutDressing::Style::lightLeak;
    ReelRenderer leak = studio.renderer(spec, footage);
    const Pixel warm = studio.picture(leak.footage(grid(), 0, 2)).at(10, 10);
    EXPECT_NEAR(warm.r, 0.8 * 255, 1);
    EXPECT_NEAR(warm.g, 0.2 * 160 + 0.8 * 0.72 * 255, 1);
    EXPECT_NEAR(warm.b, 0.8 * 0.42 * 255, 1);
}

// The phone fills the middle of the picture and shows the same part of the recording as the flat one.
TEST(ReelFrames, InSpaceTheCameraZoomsOnTheScreenOfThePhone) {
    Studio studio({300, 300});
    EffectsSpec spec = plainSpec(studio.size);
    spec.background.device.screen = {0.1, 0.1, 0.8, 0.8};
    spec.cameraTrack = {at(0, 2, 90, 160)};
    spec.deviceScene.emplace().enabled = true;
    spec.deviceScene->tiltDegrees = {0, 0, 0};
    spec.deviceScene->driftDegrees = 0;
    spec.deviceScene->backdrop = RGBAColor{0, 0, 0, 1};
    ReelRenderer renderer = studio.renderer(spec);
    const Picture frame = studio.picture(renderer.footage(grid(200), 0, 0));
    const Pixel middleOfPhone = frame.at(150, 150);
    EXPECT_NEAR(gridPoint(middleOfPhone).x, 90, 3);
    EXPECT_NEAR(gridPoint(middleOfPhone).y, 160, 3);
    EXPECT_NEAR(middleOfPhone.b, 200, 3);
    EXPECT_EQ(frame.at(3, 150), (Pixel{0, 0, 0, 255}));
    // A flip shows the back of the phone, which is grey, and then the next picture.
    ScreenTransition flip;
    flip.atSec = 1;
    flip.revealSec = 2.5;
    EffectsSpec byHand = spec;
    byHand.setTransitions({flip});
    byHand.deviceScene->poseTrack.clear();
    ReelRenderer turning = studio.renderer(byHand, {.transitions = {{flip, grid(200), grid(40)}}});
    bool hasShownItsBack = false;
    for (double sec = 1; sec < 2; sec += 0.1) {
        const Pixel seen = studio.picture(turning.footage(grid(200), sec, sec)).at(150, 150);
        hasShownItsBack = hasShownItsBack || std::abs(seen.r - seen.b) + std::abs(seen.g - seen.r) < 20;
    }
    EXPECT_TRUE(hasShownItsBack);
    EXPECT_NEAR(studio.picture(turning.footage(grid(200), 2.4, 2.4)).at(150, 150).b, 40, 6);

    const Picture dark = studio.picture(renderer.footage(std::nullopt, 0, 0));
    EXPECT_LT(dark.at(150, 150).b, 12);
}

}   // namespace
}   // namespace tavix
