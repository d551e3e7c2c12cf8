#include "Engine/Tests/EngineTest.h"
#include "TavixPlatform/Media/StillImages.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>

namespace tavix::engine::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Two scenes of two and three seconds that share the second from 1 to 2.
const char* const twoScenes = R"({"output": {"widthPx": 64, "heightPx": 36, "fps": 10}, "scenes": [
    {"id": "first", "durationSec": 2, "transition": {"style": "fade", "durationSec": 1}},
    {"id": "second", "durationSec": 3}]})";

class Sheets : public EngineTest {
protected:
    Sheets() { write("film.json", twoScenes); }

    std::vector<double> timesOf(std::vector<std::string> options) const {
        options.insert(options.begin(), {"sheet", "film.json", "--json"});
        const Json sheet = json(options);
        std::vector<double> times;
        for (const Json& cell : *sheet.find("cells")->array())
            times.push_back(*cell.find("atSec")->doubleValue());
        return times;
    }
};

TEST_F(Sheets, ShowAStretchOfAFilm) {
    EXPECT_THAT(timesOf({"--from", "0.5", "--to", "1.1", "--every", "0.2"}), ElementsAre(0.5, 0.7, 0.9, 1.1));
    EXPECT_THAT(timesOf({"--from", "2.5", "--to", "2.5"}), ElementsAre(2.5));
    EXPECT_THAT(timesOf({"--from", "3.6"}), ElementsAre(3.6, 3.7, 3.8, 3.9)) << "each frame once";
    EXPECT_THAT(timesOf({"--scene", "first", "--every", "0.5"}), ElementsAre(0, 0.5, 1, 1.5));
    EXPECT_THAT(
        timesOf({"--scene", "second", "--from", "1", "--to", "2", "--every", "0.5"}), ElementsAre(2, 2.5, 3))
        << "the scene starts at 1";
    for (const double sec : timesOf({"--from", "1.3", "--to", "3.1"})) {
        EXPECT_GE(sec, 1.3);
        EXPECT_LE(sec, 3.1);
    }
}

TEST_F(Sheets, ShowSeveralMomentsOfATransition) {
    int within = 0;
    for (const double sec : timesOf({})) within += sec > 1.05 && sec < 1.95;
    EXPECT_GE(within, 3);
}

TEST_F(Sheets, RefuseWhatIsNotThere) {
    const struct {
        std::vector<std::string> options;
        const char* sentence;
    } cases[] = {
        {{"--from", "-1"}, "There are no pictures from -1 s to 4 s; the film runs from 0 to 4 s."},
        {{"--to", "9"}, "There are no pictures from 0 s to 9 s; the film runs from 0 to 4 s."},
        {{"--from", "3", "--to", "2"}, "There are no pictures from 3 s to 2 s"},
        {{"--scene", "second", "--to", "3.5"}, "the scene runs from 0 to 3 s."},
        {{"--scene", "secnd"},
            "There is no scene \"secnd\"; the document has first, second. Did you mean \"second\"?"},
        {{"--every", "0.01"},
            "--every 0.01 makes more than the 48 pictures that a sheet holds; give at least 0.083 s"},
        {{"--every", "0"}, "--every 0 makes more than"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words{"sheet", "film.json"};
        words.insert(words.end(), c.options.begin(), c.options.end());
        const Outcome outcome = tavix(words);
        EXPECT_EQ(outcome.status, 2) << c.sentence;
        EXPECT_THAT(outcome.err, HasSubstr(c.sentence));
    }
    EXPECT_THAT(names(), ::testing::UnorderedElementsAre("film.json", "tiny.json")) << "nothing was written";
}

struct Extent {
    int x0 = 1 << 20, y0 = 1 << 20, x1 = 0, y1 = 0;
    bool isEmpty() const { return x1 <= x0; }
};

// Above a row; what stands below is the legend.
Extent extentOf(const imaging::Bitmap& picture, const std::function<bool(int r, int g, int b)>& belongs,
    int endRow = 1 << 20) {
    Extent extent;
    for (int y = 0; y < std::min(picture.size().height, endRow); ++y)
        for (int x = 0; x < picture.size().width; ++x) {
            const std::uint8_t* p = picture.view().row(y) + std::ptrdiff_t{4} * x;
            if (belongs(p[2], p[1], p[0]))
                extent = {std::min(extent.x0, x), std::min(extent.y0, y), std::max(extent.x1, x + 1),
                    std::max(extent.y1, y + 1)};
        }
    return extent;
}

// A white square of half the width in the middle of green, drawn with an effect that lint does not let pass.
TEST_F(Sheets, DrawFindingsAtTheirLayers) {
    const auto document = [](const std::string& layerKeys) {
        return R"({"output": {"widthPx": 400, "heightPx": 400, "fps": 30},
            "background": {"kind": "solid", "color": {"r": 0, "g": 0.6, "b": 0, "a": 1}},
            "scenes": [{"durationSec": 2, "layers": [{"kind": "shape", "position": {"x": 200, "y": 200},
                "shape": {"widthFraction": 0.5, "heightFraction": 0.5})" +
               layerKeys + "}]}]}";
    };
    write("film.json", document(R"(, "effects": [{"kind": "tint", "intensity": 3}])"));
    const std::vector<std::string> words{
        "sheet", "film.json", "--from", "1", "--to", "1", "--width", "800", "--json"};
    const imaging::Bitmap plain = (json(words), media::loadStillImage(at("film-sheet.png")));
    std::vector<std::string> annotated = words;
    annotated.push_back("--annotate");
    const Json sheet = json(annotated);
    ASSERT_EQ(sheet.find("findings")->array()->size(), 1u);
    EXPECT_THAT(*sheet.find("findings")->array()->front().find("path")->text(),
        HasSubstr("scenes[0].layers[0].effects[0]"));

    const imaging::Bitmap picture = media::loadStillImage(at("film-sheet.png"));
    EXPECT_GT(picture.size().height, plain.size().height) << "a legend";
    const auto isGreen = [](int r, int g, int b) { return r < 20 && g > 130 && b < 20; };
    const auto isRed = [](int r, int g, int b) { return r > 235 && g > 70 && g < 110 && b > 70 && b < 110; };
    const Extent cell = extentOf(plain, isGreen), box = extentOf(picture, isRed, cell.y1);
    EXPECT_TRUE(extentOf(plain, isRed).isEmpty());
    const double side = cell.x1 - cell.x0;
    ASSERT_GT(side, 300);
    EXPECT_NEAR(box.x0, cell.x0 + 0.25 * side, 0.02 * side);
    EXPECT_NEAR(box.x1, cell.x0 + 0.75 * side, 0.02 * side);
    EXPECT_NEAR(box.y0, cell.y0 + 0.25 * side, 0.02 * side);
    EXPECT_NEAR(box.y1, cell.y0 + 0.75 * side, 0.02 * side);

    write("film.json", document(""));
    EXPECT_EQ(json(annotated).find("findings")->array()->size(), 0u);
    EXPECT_TRUE(extentOf(media::loadStillImage(at("film-sheet.png")), isRed).isEmpty());
}

// What no pixel shows is drawn where it stands, at the edge of the frame; what a scene is found wrong with,
// in the corner.
TEST_F(Sheets, DrawFindingsOfWhatIsNotSeen) {
    write("film.json", R"({"output": {"widthPx": 400, "heightPx": 400, "fps": 30},
        "background": {"kind": "solid", "color": {"r": 0, "g": 0.6, "b": 0, "a": 1}},
        "scenes": [{"durationSec": 2, "layers": [{"kind": "shape", "position": {"x": 700, "y": 300},
            "shape": {"widthFraction": 0.25, "heightFraction": 0.25}}]}]})");
    const std::vector<std::string> words{
        "sheet", "film.json", "--from", "1", "--to", "1", "--width", "800", "--json"};
    const imaging::Bitmap plain = (json(words), media::loadStillImage(at("film-sheet.png")));
    std::vector<std::string> annotated = words;
    annotated.push_back("--annotate");
    const Json sheet = json(annotated);
    std::vector<std::string> codes;
    for (const Json& finding : *sheet.find("findings")->array())
        codes.push_back(*finding.find("code")->text());
    EXPECT_THAT(codes, ::testing::Contains("never-visible"));
    const Json linted = parseJson(tavix({"lint", "film.json", "--json"}).out);
    EXPECT_EQ(*sheet.find("findings"), linted) << "all that lint tells";

    const Extent cell = extentOf(plain, [](int r, int g, int b) { return r < 20 && g > 130 && b < 20; });
    const Extent box = extentOf(
        media::loadStillImage(at("film-sheet.png")),
        [](int r, int g, int b) { return r > 235 && g > 180 && g < 210 && b > 50 && b < 90; }, cell.y1);
    ASSERT_FALSE(box.isEmpty());
    const double side = cell.x1 - cell.x0;
    EXPECT_NEAR(box.x1, cell.x1, 0.02 * side) << "at the right edge, where the layer is outside";
    EXPECT_NEAR(box.y1, cell.y0 + (300 + 50) / 400.0 * side, 0.02 * side);
}

// One box around all that a formation became.
TEST_F(Sheets, DrawAFindingOfAFormationOnce) {
    write(
        "film.json", R"({"output": {"widthPx": 640, "heightPx": 360, "fps": 30}, "scenes": [{"durationSec": 1,
        "layers": [{"kind": "device", "effects": [{"kind": "tint", "intensity": 3}], "device": {
            "screen": {"path": "no.png"}, "choreographyPreset": {"preset": "splitFocus"}}}]}]})");
    const Json sheet = json({"sheet", "film.json", "--from", "2", "--to", "2", "--annotate", "--json"});
    int errors = 0;
    for (const Json& finding : *sheet.find("findings")->array())
        errors += *finding.find("level") == Json("error");
    EXPECT_EQ(errors, 2) << "the effect, and the picture that is not there";
    const Extent red = extentOf(media::loadStillImage(at("film-sheet.png")),
        [](int r, int g, int b) { return r > 235 && g > 70 && g < 110 && b > 70 && b < 110; });
    EXPECT_FALSE(red.isEmpty());
}

}   // namespace

}   // namespace tavix::engine::testing
