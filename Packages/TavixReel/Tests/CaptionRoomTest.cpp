// Captions of upright reels and the device above them.
#include "TavixReel/Captions/CaptionRoom.h"

#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Document/ReelCanvas.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

EffectsSpec reel(std::int64_t width, std::int64_t height) {
    EffectsSpec spec;
    spec.output = {width, height, 30};
    Caption moving{.text = "Keep a note with it", .window = {1, 3}};
    moving.kinetic.emplace();
    moving.style.emplace().fontSizeFraction = 0.042;
    spec.narration.emplace().captions = {moving, {.text = "Plain", .window = {4, 6}}};
    return spec;
}

TEST(CaptionRoom, ALineStandsClearOfTheDevice) {
    for (const auto& [width, height] : {std::pair(1080, 1920), {1178, 2556}}) {
        EffectsSpec spec = reel(width, height);
        CaptionRoom::makeBelow(spec);
        CaptionRoom::seatBelow(spec);
        const Caption& moving = spec.narration->captions[0];
        // The device makes that much room and no more.
        const double room = height > 2 * width ? 0.165 : 0.115;
        EXPECT_NEAR(CanvasGeometry::deviceFrameRect(spec).maxY(), (1 - room) * height, 2.5);
        ASSERT_TRUE(moving.position);
        EXPECT_EQ(moving.position->x, 0.5);
        const double halfLine = 0.042 * height * 1.3 / 2 * (height > 2 * width ? 2 : 1),
                     middle = moving.position->y * height;
        EXPECT_GT(middle - halfLine, CanvasGeometry::deviceFrameRect(spec).maxY());
        EXPECT_LT(middle + halfLine, 0.96 * height + 1);
        EXPECT_FALSE(spec.narration->captions[1].position);   // a bar stands where bars stand
    }
}

TEST(CaptionRoom, WhatHasAPlaceOrNoRoomStaysWhereItIs) {
    EffectsSpec placed = reel(1080, 1920);
    placed.background.padding = 400;
    placed.narration->captions[0].position = NormalizedPoint{0.3, 0.2};
    CaptionRoom::makeBelow(placed);
    EXPECT_EQ(placed.background.padding, 400);
    CaptionRoom::seatBelow(placed);
    EXPECT_EQ(placed.narration->captions[0].position, (NormalizedPoint{0.3, 0.2}));
    EffectsSpec tight = reel(1080, 1920);
    CaptionRoom::seatBelow(tight);   // 120 pixels hold no such line and its margin
    EXPECT_FALSE(tight.narration->captions[0].position);
    EffectsSpec wide = reel(1920, 1080), silent;
    silent.output = {1080, 1920, 30};
    for (EffectsSpec* spec : {&wide, &silent}) {
        const EffectsSpec before = *spec;
        CaptionRoom::makeBelow(*spec);
        CaptionRoom::seatBelow(*spec);
        EXPECT_EQ(*spec, before);
    }
}

}   // namespace
}   // namespace tavix
