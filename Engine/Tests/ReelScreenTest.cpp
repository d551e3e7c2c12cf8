// A reel on the screen of a device in a composition, as lint, stills and packing see it.
#include "Engine/Tests/EngineTest.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/Media/Tests/TestClip.h"

#include <gmock/gmock.h>

#include <memory>
#include <span>

namespace tavix::engine::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class ReelScreen : public EngineTest {
protected:
    ReelScreen() {
        std::filesystem::create_directories(at("films/walk.tavixproj"));
        media::tests::makeClip(
            {.path = at("films/walk.tavixproj/raw.mov"), .times = media::tests::evenTimes(60)});
        // The first second is cut away.
        write("films/walk.tavixproj/effects.json",
            R"({"output": {"widthPx": 64, "heightPx": 64, "fps": 30}, "cuts": [
                {"kind": "trim", "dropRange": {"startSec": 0, "endSec": 1}}]})");
        document("films/walk.tavixproj");
    }
    void document(const std::string& reel, const std::string& more = "", double sec = 1) {
        write("show.json",
            R"({"output": {"widthPx": 64, "heightPx": 64, "fps": 10}, "scenes": [
            {"id": "only", "durationSec": )" +
                std::to_string(sec) + R"(, "layers": [{"kind": "device", "id": "phone", "device": {)" + more +
                R"("basePaddingPx": 0, "mockup": {"framePath": "clear.png", "screen": {"x": 0, "y": 0, "width": 1, "height": 1},
                "screenCornerRadiusFraction": 0}, "screen": {"kind": "reel", "path": ")" +
                reel + R"("}}}]}]})");
        media::writePng(at("clear.png"), imaging::Bitmap({64, 64}).view());
    }
    int numberIn(const std::string& still) const {
        const std::string bytes = readBytes(at(still));
        return media::tests::numberIn(imaging::Image::bitmap(std::make_shared<const imaging::Bitmap>(
            media::decodeStillImage(std::as_bytes(std::span(bytes))))));
    }
};

TEST_F(ReelScreen, AStillShowsTheReelAtItsOwnTime) {
    const Outcome made = tavix({"still", "show.json", "--at", "0.5", "-o", "still.png"});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_EQ(numberIn("still.png"), 45);
}

TEST_F(ReelScreen, APhoneInSpaceHasItToo) {
    document("films/walk.tavixproj", R"("scene3D": {}, )");
    ASSERT_EQ(tavix({"still", "show.json", "--at", "0.2", "-o", "one.png"}).status, 0);
    ASSERT_EQ(tavix({"still", "show.json", "--at", "0.7", "-o", "other.png"}).status, 0);
    EXPECT_NE(readBytes(at("one.png")), readBytes(at("other.png")));
}

TEST_F(ReelScreen, WhatIsMissingIsTold) {
    EXPECT_THAT(tavix({"lint", "show.json"}).out, Not(HasSubstr("clip-missing")));
    document("films/wlak.tavixproj");
    const Outcome judged = tavix({"lint", "show.json", "--json"});
    EXPECT_EQ(judged.status, 1);
    EXPECT_THAT(judged.out, HasSubstr("clip-missing"));
    EXPECT_THAT(judged.out, HasSubstr("scenes[0].layers[0].device.screen.path"));
    EXPECT_THAT(judged.out, HasSubstr("There is no reel"));
    EXPECT_THAT(judged.out, HasSubstr("Did you mean \\\"walk.tavixproj\\\"?"));
    write("films/walk.tavixproj/raw.mov", "no film");
    document("films/walk.tavixproj");
    const std::string broken = tavix({"lint", "show.json"}).out;
    EXPECT_THAT(broken, HasSubstr("Cannot read the media file"));
    EXPECT_THAT(broken, Not(HasSubstr("Did you mean")));
}

// Two seconds of recording, one of which is cut away.
TEST_F(ReelScreen, AReelThatEndsBeforeItsLayerIsTold) {
    EXPECT_THAT(tavix({"audit", "show.json"}).out, Not(HasSubstr("footage")));
    document("films/walk.tavixproj", "", 1.5);
    const Outcome judged = tavix({"audit", "show.json", "--json"});
    EXPECT_THAT(judged.out, HasSubstr("footage-short"));
    EXPECT_THAT(judged.out,
        HasSubstr("the reel on the device screen's footage ends 1.00s into the layer window but the window "
                  "runs to 1.50s"));
}

// A folder of the same name is another reel once its document or its recording is another one.
TEST_F(ReelScreen, PiecesOfFilmsAreMadeAnewWhenTheReelIsAnother) {
    const auto reused = [&] {
        const Outcome made = tavix({"render", "show.json", "-o", "show.mp4", "--json"});
        EXPECT_EQ(made.status, 0) << made.err;
        return parseJson(made.out).find("segments")->find("reused")->integerValue();
    };
    EXPECT_EQ(reused(), 0);
    EXPECT_EQ(reused(), 1);
    write("films/walk.tavixproj/effects.json", R"({"output": {"widthPx": 64, "heightPx": 64, "fps": 30}})");
    EXPECT_EQ(reused(), 0);
    EXPECT_EQ(reused(), 1);
    media::tests::makeClip(
        {.path = at("films/walk.tavixproj/raw.mov"), .times = media::tests::evenTimes(59)});
    EXPECT_EQ(reused(), 0);
    write("films/walk.tavixproj/notes.txt", "of no matter");
    EXPECT_EQ(reused(), 1);
}

// The others of a film with several reels are shown as they are.
TEST_F(ReelScreen, ABrokenReelIsToldAndLeavesTheOthersAlone) {
    std::filesystem::create_directories(at("films/broken.tavixproj"));
    write("films/broken.tavixproj/raw.mov", "no film");
    const std::string phone =
        R"({"kind": "device", "id": "%", "position": {"x": ?, "y": 32}, "device": {"basePaddingPx": 0,
        "mockup": {"framePath": "clear.png", "screen": {"x": 0, "y": 0, "width": 1, "height": 1},
        "screenCornerRadiusFraction": 0}, "screen": {"kind": "reel", "path": "films/%.tavixproj"}}})";
    const auto layer = [&](const std::string& name, const std::string& x) {
        std::string text = phone;
        for (std::size_t i = text.find('%'); i != std::string::npos; i = text.find('%'))
            text.replace(i, 1, name);
        return text.replace(text.find('?'), 1, x);
    };
    write("show.json", R"({"output": {"widthPx": 128, "heightPx": 64, "fps": 10}, "scenes": [
        {"id": "only", "durationSec": 1, "layers": [)" +
                           layer("walk", "64") + ", " + layer("broken", "96") + ", " + layer("gone", "96") +
                           "]}]}");
    const Outcome made = tavix({"still", "show.json", "--at", "0.5", "-o", "still.png"});
    EXPECT_EQ(made.status, 0);
    EXPECT_THAT(made.out, HasSubstr("films/broken.tavixproj\" is not shown: Could not read raw recording"));
    EXPECT_THAT(made.out, HasSubstr("films/gone.tavixproj\" is not shown: there is no such folder"));
}

TEST_F(ReelScreen, PackingTakesTheFolderAlong) {
    const Outcome packed = tavix({"pack", "show.json", "-o", "show.tavixcomp"});
    ASSERT_EQ(packed.status, 0) << packed.err;
    EXPECT_EQ(readBytes(at("show.tavixcomp/assets/walk.tavixproj/raw.mov")),
        readBytes(at("films/walk.tavixproj/raw.mov")));
    EXPECT_THAT(readBytes(at("show.tavixcomp/composition.json")), HasSubstr("\"assets/walk.tavixproj\""));
    std::filesystem::remove_all(at("films"));
    ASSERT_EQ(tavix({"still", "show.tavixcomp", "--at", "0.5", "-o", "still.png"}).status, 0);
    EXPECT_EQ(numberIn("still.png"), 45);
    // Packed again, it stays what it is.
    ASSERT_EQ(tavix({"pack", "show.tavixcomp", "-o", "again.tavixcomp"}).status, 0);
    EXPECT_TRUE(std::filesystem::is_regular_file(at("again.tavixcomp/assets/walk.tavixproj/effects.json")));
}

TEST_F(ReelScreen, AFolderThatIsNoReelIsNotPacked) {
    write("films/notes/letter.txt", "private");
    document("films/notes");
    const Outcome packed = tavix({"pack", "show.json", "-o", "show.tavixcomp"});
    EXPECT_NE(packed.status, 0);
    EXPECT_THAT(packed.err, HasSubstr("films/notes\" is no reel"));
    EXPECT_FALSE(std::filesystem::exists(at("show.tavixcomp")));
}

}   // namespace

}   // namespace tavix::engine::testing
