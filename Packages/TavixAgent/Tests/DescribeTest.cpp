// What is told of a frame against the frame itself.
#include "TavixAgent/Describe/DescribeFrame.h"

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixCore/Support/Document.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Tests/RenderTestKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>
#include <string>

namespace tavix {
namespace {

using ::testing::HasSubstr;
using testing::keyframe;
using testing::Picture;
using testing::Pixel;

constexpr imaging::Size canvas{320, 180};
constexpr RGBAColor backdrop{0, 0.6, 0, 1};
constexpr int clearDifference = 60, faintDifference = 6;

bool differs(const Pixel& a, const Pixel& b, int by) {
    return std::max({std::abs(a.r - b.r), std::abs(a.g - b.g), std::abs(a.b - b.b)}) >= by;
}

class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    double between(double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(engine_);
    }
    bool often() { return engine_() % 3 > 0; }

private:
    std::mt19937 engine_;
};

class Describe : public ::testing::Test {
protected:
    // As its author would have it on the disk.
    OpenFilm film(const CompositionSpec& spec) {
        writeFile(spec, folder.path() / "film.json");
        return OpenFilm(readDocument((folder.path() / "film.json").string()));
    }
    Picture drawn(const CompositionSpec& spec, double sec) {
        ResolvedComposition resolved(spec, folder.path(), evaluator, {});
        return Picture(resolved.frame(sec), canvas);
    }

    testing::TemporaryFolder folder;
    imaging::Evaluator evaluator{{.threadCount = 1}};
};

// Each in a colour that tells it from all others.
CompositionLayer generated(Dice& dice, std::size_t index) {
    static constexpr RGBAColor colors[] = {{1, 0, 1, 1}, {1, 0.9, 0, 1}, {0, 0.1, 1, 1}, {0.9, 0.1, 0.1, 1}};
    CompositionLayer layer;
    if (dice.often())
        layer.content = ShapeContent{.shape = dice.often() ? ShapeKind::rect : ShapeKind::ellipse,
            .fill = colors[index],
            .widthFraction = dice.between(0.15, 0.7),
            .heightFraction = dice.between(0.15, 0.7)};
    else
        layer.content = TextContent{.text = "Ship it today",
            .sizeFraction = dice.between(0.1, 0.25),
            .color = {0.1, 0, 0.4, 1},
            .kinetic = KineticPresetRef{.preset = "fade"}};
    layer.position = {dice.between(40, 280), dice.between(30, 150)};
    if (!dice.often()) layer.fromSec = 0.5;
    if (!dice.often())
        layer.tracks.push_back(
            {AnimProperty::x, {keyframe(0.2, dice.between(-0.2, 0.2)), keyframe(1.1, 0.1)}});
    if (!dice.often())
        layer.tracks.push_back(
            {AnimProperty::scale, {keyframe(0, 0.7), keyframe(0.8, dice.between(0.8, 1.3))}});
    return layer;
}

CompositionSpec generatedFilm(unsigned seed) {
    Dice dice(seed);
    CompositionScene scene = testing::sceneOf(2, {});
    for (std::size_t i = 0; i < 4; ++i) scene.layers.push_back(generated(dice, i));
    CompositionSpec spec = testing::specOf(canvas, 30, {});
    spec.scenes = {scene};
    spec.background = backdrop;
    return spec;
}

// Where two pictures differ.
struct Ink {
    double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;
    int count = 0;
    bool isEmpty() const { return count == 0; }
};
Ink inkOf(const Picture& with, const Picture& without, int by) {
    Ink ink;
    for (int y = 0; y < canvas.height; ++y)
        for (int x = 0; x < canvas.width; ++x)
            if (differs(with.at(x, y), without.at(x, y), by))
                ink = {std::min(ink.left, double(x)), std::min(ink.top, double(y)),
                    std::max(ink.right, x + 1.0), std::max(ink.bottom, y + 1.0), ink.count + 1};
    return ink;
}

CompositionSpec without(CompositionSpec spec, const std::function<bool(std::size_t)>& isDropped) {
    for (std::size_t i = 0; i < spec.scenes[0].layers.size(); ++i)
        if (isDropped(i)) spec.scenes[0].layers[i].opacity = 0;
    return spec;
}

TEST_F(Describe, AgreesWithThePixelsOfGeneratedFilms) {
    int boxes = 0, hidings = 0;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        const CompositionSpec spec = generatedFilm(seed);
        const OpenFilm open = film(spec);
        for (const double sec : {0.1, 0.7, 1.5}) {
            const FrameDescription frame = describeFrame(open, sec);
            ASSERT_EQ(frame.scenes.size(), 1u);
            const Picture all = drawn(spec, sec), none = drawn(without(spec, [](auto) { return true; }), sec);
            for (std::size_t l = 0; l < spec.scenes[0].layers.size(); ++l) {
                SCOPED_TRACE("layer " + std::to_string(l) + " of film " + std::to_string(seed) + " at " +
                             std::to_string(sec));
                const std::string path = "/scenes/0/layers/" + std::to_string(l);
                const auto& told = frame.scenes[0].layers;
                const auto layer = std::ranges::find(told, path, &LayerDescription::path);
                const Picture alone = drawn(without(spec, [&](auto i) { return i != l; }), sec);
                const Ink ink = inkOf(alone, none, faintDifference),
                          clear = inkOf(alone, none, clearDifference);
                if (layer == told.end()) {
                    EXPECT_TRUE(ink.isEmpty());
                    EXPECT_THAT(frame.scenes[0].absent, ::testing::Contains(path));
                    continue;
                }
                if (layer->opacity < 0.9 || clear.count < 30) continue;
                ++boxes;
                const PixelRect& box = layer->box;
                EXPECT_GE(clear.left, box.x - 1.5);
                EXPECT_GE(clear.top, box.y - 1.5);
                EXPECT_LE(clear.right, box.maxX() + 1.5);
                EXPECT_LE(clear.bottom, box.maxY() + 1.5);
                EXPECT_LE(ink.left, std::max(box.x, 0.0) + 1.5);
                EXPECT_LE(ink.top, std::max(box.y, 0.0) + 1.5);
                EXPECT_GE(ink.right, std::min(box.maxX(), double(canvas.width)) - 1.5);
                EXPECT_GE(ink.bottom, std::min(box.maxY(), double(canvas.height)) - 1.5);
                // Letters leave much of their boxes clear.
                if (layer->kind != "shape") continue;
                const Ink left =
                    inkOf(all, drawn(without(spec, [&](auto i) { return i == l; }), sec), faintDifference);
                const bool underLetters = std::any_of(told.begin(), told.end(),
                    [&](const LayerDescription& other) { return other.kind == "text" && other.path > path; });
                if (underLetters) continue;
                ++hidings;
                EXPECT_NEAR(layer->hiddenFraction, 1 - double(left.count) / ink.count, 0.08);
            }
        }
    }
    EXPECT_GT(boxes, 250);
    EXPECT_GT(hidings, 100);
}

TEST_F(Describe, RestsAsLongAsThePixelsDo) {
    int rests = 0, moves = 0;
    for (unsigned seed = 1; seed <= 12; ++seed) {
        const CompositionSpec spec = generatedFilm(seed);
        const OpenFilm open = film(spec);
        const FrameDescription told = describeFrame(open, 0.9);
        for (const LayerDescription& layer : told.scenes[0].layers) {
            const std::size_t index = layer.path.back() - '0';
            const CompositionSpec alone = without(spec, [&](std::size_t i) { return i != index; });
            SCOPED_TRACE(layer.path + " of film " + std::to_string(seed));
            const double frame = 1.0 / 30;
            ASSERT_LE(layer.sinceSec, 0.9);
            ASSERT_GT(layer.untilSec, 0.9);
            const Picture now = drawn(alone, 0.9);
            if (layer.moves) {
                ++moves;
                EXPECT_GT(now.distanceTo(drawn(alone, 0.9 + frame)), 0);
            } else {
                ++rests;
                EXPECT_LE(now.distanceTo(drawn(alone, layer.sinceSec + 0.001)), 8);
                EXPECT_LE(now.distanceTo(drawn(alone, layer.untilSec - 0.001)), 8);
                if (layer.untilSec < 1.95) {
                    EXPECT_GT(now.distanceTo(drawn(alone, layer.untilSec + frame)), 0);
                }
            }
        }
    }
    EXPECT_GT(rests, 10);
    EXPECT_GT(moves, 5);
}

TEST_F(Describe, TellsTextsAsTheyAreRead) {
    CompositionLayer text;
    text.id = "headline";
    text.position = {160, 90};
    text.content = TextContent{.text = "One two three four five six seven",
        .sizeFraction = 0.15,
        .color = RGBAColor::white,
        .trackingEm = 0.2,
        .kinetic = KineticPresetRef{.preset = "fade"}};
    CompositionSpec spec = testing::specOf(canvas, 30, {});
    spec.scenes = {testing::sceneOf(3, {})};
    spec.scenes[0].layers = {text};
    spec.background = RGBAColor::black;
    const FrameDescription frame = describeFrame(film(spec), 1.5);
    ASSERT_EQ(frame.scenes[0].layers.size(), 1u);
    const LayerDescription& layer = frame.scenes[0].layers[0];
    ASSERT_GT(layer.lines.size(), 1u);
    std::string read;
    for (std::size_t i = 0; i < layer.lines.size(); ++i) {
        read += layer.lines[i].text;
        if (i > 0) {
            EXPECT_GE(layer.lines[i].box.y, layer.lines[i - 1].box.y + 5);
        }
        EXPECT_GE(layer.lines[i].box.maxX(), layer.box.x);
    }
    std::erase(read, ' ');   // where lines end, they took the space
    EXPECT_EQ(read, "Onetwothreefourfivesixseven");
    EXPECT_EQ(layer.lines[0].text.substr(0, 7), "One two");
    ASSERT_TRUE(layer.contrast);
    EXPECT_NEAR(*layer.contrast, 21, 0.05);   // white on black
    EXPECT_FALSE(layer.fonts.empty());
    EXPECT_THAT(textOf(frame), HasSubstr("text \"headline\" /scenes/0/layers/0"));
}

TEST_F(Describe, MeasuresContrastAgainstThePictureUnderAText) {
    // Of WCAG 2: white on 767676 is 4.54 to 1, on 949494 3.03; a picture knows no paint.
    const struct {
        int grey;
        double ratio;
    } cases[] = {{0x76, 4.5}, {0x94, 3.0}, {0xFF, 1.0}, {0x00, 21.0}};
    for (const auto& c : cases) {
        imaging::Bitmap picture(canvas);
        for (int y = 0; y < canvas.height; ++y)
            for (int x = 0; x < canvas.width; ++x) {
                std::uint8_t* pixel = picture.view().row(y) + std::ptrdiff_t{4} * x;
                pixel[0] = pixel[1] = pixel[2] = std::uint8_t(c.grey);
                pixel[3] = 255;
            }
        media::writePng(folder.path() / "grey.png", picture.view());
        const auto spec = decodeValue<CompositionSpec>(parseJson(R"({
            "output": {"widthPx": 320, "heightPx": 180, "fps": 30},
            "background": {"kind": "image", "image": {"path": "grey.png"}},
            "scenes": [{"durationSec": 2, "layers": [{"kind": "text", "position": {"x": 160, "y": 90},
                "text": {"text": "Hello", "sizeFraction": 0.2, "kinetic": {"preset": "none"}}}]}]})"));
        const FrameDescription told = describeFrame(film(spec), 1);
        EXPECT_EQ(told.scenes.at(0).layers.at(0).contrast, c.ratio) << c.grey;
    }
}

TEST_F(Describe, TellsBeatsSoundsAndTransitions) {
    CompositionSpec spec = testing::specOf(canvas, 30,
        {testing::sceneOf(2, {testing::shapeLayer({1, 0, 0, 1})}),
            testing::sceneOf(2, {testing::shapeLayer({0, 0, 1, 1})})});
    spec.scenes[0].transition = testing::transitionOf(TransitionStyle::wipe, 0.5);
    spec.audio =
        CompositionAudio{MusicBed{.path = "song.m4a", .startAtSec = 10, .bpm = 120, .firstBeatSec = 0.1},
            {SoundCue{.atSec = 1.5, .sound = "ding"}, SoundCue{.atSec = 3, .sound = "pop"}}};
    const OpenFilm open = film(spec);
    const FrameDescription frame = describeFrame(open, 1.7);
    ASSERT_EQ(frame.scenes.size(), 2u);
    EXPECT_EQ(frame.transition, "wipe");
    EXPECT_NEAR(*frame.transitionProgress, 0.4, 1e-6);
    EXPECT_NEAR(*frame.musicSec, 11.7, 1e-9);
    ASSERT_TRUE(frame.beat);
    EXPECT_NEAR(frame.beat->beat, 23.2, 1e-6);   // at 11.7 s of the song: (11.7 - 0.1) / 0.5
    EXPECT_NEAR(frame.beat->nearestSec, 1.6, 1e-6);
    ASSERT_EQ(frame.sounds.size(), 1u);
    EXPECT_EQ(frame.sounds[0].path, "/audio/cues/0");

    const RangeDescription range = describeRange(open, 1, 3.2);
    std::vector<std::string> told;
    for (const HappeningDescription& happening : range.happenings)
        told.push_back(
            happening.what + " " + happening.path + " " + std::to_string(int(happening.fromSec * 10)));
    EXPECT_THAT(told, ::testing::IsSupersetOf({"transition /scenes/1 15", "sound /audio/cues/0 15",
                          "sound /audio/cues/1 30", "rests /scenes/0/layers/0 10"}));
    EXPECT_THROW(describeRange(open, 3, 1), UsageError);
    EXPECT_THROW(describeRange(open, 5, 6), UsageError);
}

TEST_F(Describe, StaysWithinAPageWhateverTheDocumentHolds) {
    CompositionSpec spec = testing::specOf(canvas, 30, {});
    spec.scenes = {testing::sceneOf(2, {})};
    for (int i = 0; i < 400; ++i) spec.scenes[0].layers.push_back(testing::shapeLayer({1, 0, 0, 1}, 0.01));
    const OpenFilm open = film(spec);
    EXPECT_LT(textOf(describeFrame(open, 1)).size(), 6000u);
    EXPECT_LT(textOf(describeRange(open, 0, 2)).size(), 12000u);
}

}   // namespace
}   // namespace tavix
