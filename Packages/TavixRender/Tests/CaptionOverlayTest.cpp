// Captions as they are seen over a grey picture.
#include "TavixRender/Captions/CaptionOverlay.h"

#include "RenderTestKit.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"
#include "TavixReel/Document/Narration.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavix {
namespace {

using imaging::Image;
using testing::Picture;
using testing::Pixel;

constexpr imaging::Size canvas{540, 960};
constexpr Pixel grey{100, 100, 100, 255};

Caption captionOf(std::string text, double startSec, double endSec) {
    Caption caption;
    caption.text = std::move(text);
    caption.window = {startSec, endSec};
    return caption;
}

class Captions : public ::testing::Test {
protected:
    static Image frame() {
        return Image::solid({100 / 255.0, 100 / 255.0, 100 / 255.0, 1})
            .cropped({0, 0, canvas.width, canvas.height});
    }
    std::optional<CaptionOverlay> plain(std::vector<Caption> captions) {
        narration_.captions = std::move(captions);
        return CaptionOverlay::make(narration_, canvas, fonts_, evaluator_);
    }
    std::optional<KineticTextOverlay> moving(std::vector<Caption> captions) {
        narration_.captions = std::move(captions);
        return KineticTextOverlay::make(narration_, canvas, 30, fonts_, evaluator_);
    }

    text::FontBook fonts_;
    imaging::Evaluator evaluator_;
    Narration narration_;
};

// The rows and columns in which a picture is not grey any more.
struct Ink {
    int left = canvas.width, right = -1, top = canvas.height, bottom = -1;
    bool isEmpty() const { return right < 0; }
};
Ink inkOf(const Picture& picture) {
    Ink ink;
    for (int y = 0; y < canvas.height; ++y)
        for (int x = 0; x < canvas.width; ++x)
            if (picture.at(x, y) != grey)
                ink = {std::min(ink.left, x), std::max(ink.right, x), std::min(ink.top, y),
                    std::max(ink.bottom, y)};
    return ink;
}
int countLight(const Picture& picture) {
    int count = 0;
    for (int y = 0; y < canvas.height; ++y)
        for (int x = 0; x < canvas.width; ++x) count += picture.at(x, y).r > 200;
    return count;
}

TEST_F(Captions, ABarStandsInTheMiddleAboveTheInset) {
    const auto overlay = plain({captionOf("Save it", 1, 3)});
    ASSERT_TRUE(overlay);
    const Picture seen(overlay->apply(frame(), 2), canvas);
    const Ink ink = inkOf(seen);
    EXPECT_NEAR(ink.left + ink.right, canvas.width - 1, 1);
    EXPECT_NEAR(canvas.height - 1 - ink.bottom, 48, 1);   // a twentieth of the height
    EXPECT_GT(countLight(seen), 100);
    // Over grey the bar of 62 percent is dark, right inside its left end; its corner is round.
    const Pixel inside = seen.at(ink.left + 12, (ink.top + ink.bottom) / 2);
    EXPECT_NEAR(inside.r, 0.62 * 0.05 * 255 + 0.38 * 100, 2);
    EXPECT_EQ(seen.at(ink.left, ink.top), grey);
}

TEST_F(Captions, ComeAndGoWithinTheirWindow) {
    const auto overlay = plain({captionOf("Save it", 1, 3)});
    const auto lightAt = [&](double sec) {
        return countLight(Picture(overlay->apply(frame(), sec), canvas));
    };
    for (const double sec : {0.5, 1.0, 3.0, 4.0})
        EXPECT_TRUE(inkOf(Picture(overlay->apply(frame(), sec), canvas)).isEmpty());
    EXPECT_GT(lightAt(2), 0);
    EXPECT_EQ(lightAt(2.5), lightAt(1.5));
    // A fade of 0.3 seconds: half way in is half of the bar.
    const Ink ink = inkOf(Picture(overlay->apply(frame(), 2), canvas));
    const auto barAt = [&](double sec) {
        return Picture(overlay->apply(frame(), sec), canvas).at(ink.left + 12, (ink.top + ink.bottom) / 2).r;
    };
    EXPECT_NEAR(barAt(1.15), (100 + barAt(2)) / 2, 2);
    EXPECT_NEAR(barAt(2.85), barAt(1.15), 2);
}

TEST_F(Captions, TheFirstOfTheListHidesWhatOverlapsIt) {
    const Caption early = captionOf("Early", 1, 5), late = captionOf("A later and longer one", 2, 6);
    const auto alone = plain({early}), both = plain({early, late});
    EXPECT_EQ(Picture(both->apply(frame(), 3), canvas), Picture(alone->apply(frame(), 3), canvas));
    EXPECT_NE(Picture(both->apply(frame(), 5.5), canvas), Picture(frame(), canvas));
}

TEST_F(Captions, WithoutWordsOrTimeThereIsNoOverlay) {
    EXPECT_FALSE(plain({captionOf("  \n", 1, 2), captionOf("Save", 2, 2), captionOf("Save", 3, 2)}));
    EXPECT_FALSE(plain({}));
    narration_.placement = Narration::Placement::topStrip;
    EXPECT_FALSE(plain({captionOf("Save", 1, 2)}));
    EXPECT_FALSE(moving({captionOf("Save", 1, 2)}));   // nothing says how it moves
}

TEST_F(Captions, AtAnEdgeABarStaysOnTheCanvasAndLongTextWraps) {
    Caption caption = captionOf("A caption that is much too long for one line of this canvas", 0, 9);
    caption.position = NormalizedPoint{1, 0};
    caption.style = CaptionStyleOverride{.fontSizeFraction = 0.04};
    const auto overlay = plain({caption});
    const Ink ink = inkOf(Picture(overlay->apply(frame(), 4), canvas));
    EXPECT_EQ(ink.top, 0);
    EXPECT_EQ(ink.right, canvas.width - 1);
    EXPECT_GT(ink.bottom, 2 * 0.04 * canvas.height);
}

TEST_F(Captions, OfManyThatMoveTheTwoThatStartedLastAreSeen) {
    const KineticStyle still =
        KineticPresetCatalog::resolve({.preset = {.preset = "none"}, .text = {}, .seed = 0, .accent = {}})
            .style;
    std::vector<Caption> captions{captionOf("one", 1, 9), captionOf("two", 2, 9), captionOf("three", 3, 9)};
    const double heights[] = {0.2, 0.5, 0.8};
    for (std::size_t i = 0; i < 3; ++i) {
        captions[i].kinetic = still;
        captions[i].position = NormalizedPoint{0.5, heights[i]};
    }
    std::swap(captions[0], captions[2]);   // their order in the document does not matter
    const auto overlay = moving(captions);
    ASSERT_TRUE(overlay);
    const auto isSeen = [&](double sec, double height) {
        const Picture seen(overlay->apply(frame(), sec), canvas);
        for (int y = int(height * canvas.height) - 20; y < int(height * canvas.height) + 20; ++y)
            for (int x = 0; x < canvas.width; ++x)
                if (seen.at(x, y).r > 180) return true;
        return false;
    };
    EXPECT_TRUE(isSeen(2.5, 0.2));
    EXPECT_TRUE(isSeen(2.5, 0.5));
    EXPECT_FALSE(isSeen(2.5, 0.8));
    EXPECT_FALSE(isSeen(5, 0.2));
    EXPECT_TRUE(isSeen(5, 0.5));
    EXPECT_TRUE(isSeen(5, 0.8));
}

}   // namespace
}   // namespace tavix
