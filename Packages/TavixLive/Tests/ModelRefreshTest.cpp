// When the preview follows the document, at what cost, and what becomes of a refresh that is overtaken.
#include "ManualEditor.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixLive/Operations/SceneOperations.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class ModelRefresh : public testing::ManualEditor {
protected:
    void lengthen(double toSec) {
        model->update("Length", [&](EditState& changed) { changed.spec.scenes[0].durationSec = toSec; });
    }
    std::vector<double> buildStarts() const {
        std::vector<double> starts;
        for (const auto& build : maker->built) starts.push_back(build.startSec);
        return starts;
    }
    std::vector<double> drawnSecs(std::size_t from = 0) const {
        std::vector<double> secs;
        for (std::size_t i = from; i < maker->last->draws.size(); ++i)
            secs.push_back(maker->last->draws[i].atSec);
        return secs;
    }
};

// A first edit after a pause is shown at once; how long after a refresh the next one comes decides when it
// is.
TEST_F(ModelRefresh, WaitsForTheEndOfABurst) {
    const struct {
        double afterSec, delaySec;
    } cases[] = {{0.005, 0.12}, {0.1, 0.12}, {0.249, 0.12}, {0.251, 0}, {3, 0}};
    for (const auto& c : cases) {
        load(testing::smallFilm());
        tint();
        time.advance(maker->buildSec);   // its build ends the refresh
        time.advance(c.afterSec);
        const double editSec = time.nowSec();
        tint();
        time.advance(1);
        ASSERT_EQ(maker->built.size(), 2u) << c.afterSec;
        EXPECT_NEAR(maker->built[1].startSec, editSec + c.delaySec, 1e-9) << c.afterSec;
    }
    // One that runs counts as a burst, however long it takes.
    load(testing::smallFilm());
    maker->buildSec = 1;
    tint();
    time.advance(0.6);
    tint();
    time.advance(3);
    EXPECT_THAT(buildStarts(), ElementsAre(::testing::_, DoubleNear(buildStarts()[0] + 1, 1e-9)))
        << "asked for 0.12 s later, and built after the other";
}

// Under a hand that never rests the stage follows all the same.
TEST_F(ModelRefresh, FollowsADragOfManySeconds) {
    load(testing::smallFilm());
    for (int i = 0; i < 500; ++i) {
        tint();
        time.advance(0.01);
    }
    time.advance(1);
    EXPECT_GE(maker->built.size(), 15u);
    EXPECT_LE(maker->built.size(), 5 / 0.25 + 2);
    EXPECT_EQ(maker->built.back().spec, spec());
}

// Whatever cuts off a refresh, nothing of what it made is seen: neither a picture nor a length.
TEST_F(ModelRefresh, ShowsNothingOfOneThatIsOvertaken) {
    const struct {
        const char* name;
        std::function<void()> overtake;
        double lengthSec;
    } cases[] = {
        {"by an error",
            [&] { model->update("Break", [](EditState& s) { s.spec.scenes[1].durationSec = -1; }); }, 6},
        {"by undo", [&] { model->undo(); }, 6},
        {"by another length", [&] { lengthen(4); }, 7},
        {"by a light edit", [&] { tint(); }, 12},
    };
    for (const auto& c : cases) {
        load(testing::smallFilm());
        maker->buildSec = 0.5;
        lengthen(9);
        time.advance(0.01);   // it is being built
        c.overtake();
        time.advance(0.3);
        EXPECT_EQ(state().outputDuration(), 6) << c.name;
        shown.clear();
        time.advance(3);
        EXPECT_EQ(state().outputDuration(), c.lengthSec) << c.name;
        EXPECT_EQ(model->preview().totalSec(), c.lengthSec) << c.name << ": what is played is what is told";
        for (const auto& picture : shown)
            EXPECT_EQ(picture.number, int(maker->built.size())) << c.name << ": of the last document alone";
        maker->buildSec = 0.01;
    }
}

TEST_F(ModelRefresh, SeeksWhatWasSoughtWhileAnotherItemWasMade) {
    load(testing::smallFilm());
    maker->buildSec = 0.2;
    lengthen(9);
    time.advance(0.01);
    model->seek(1);
    model->seek(2);   // waits behind the first
    model->togglePlay();
    time.advance(0.7);
    EXPECT_GE(model->preview().player().currentSec(), 2);
    EXPECT_GE(state().currentTime(), 2);
}

TEST_F(ModelRefresh, TakesADocumentWithOpenReferencesAsItIs) {
    const testsupport::TemporaryFolder folder;
    const auto bundle = folder / "film.tavixcomp";
    std::filesystem::create_directory(bundle);
    writeBytesAtomically(R"({"scenes": [{"durationBeats": 4, "layers": [{"kind": "shape",
        "position": {"x": 0, "y": 0}, "shape": {"kind": "rectangle", "fill": {"r": 1, "g": 1, "b": 1}}}]}]})",
        bundle / "composition.json");
    model->open(bundle);
    time.advance(1);
    EXPECT_TRUE(state().isLoaded());
    ASSERT_EQ(spec().scenes.size(), 1u);
    EXPECT_EQ(spec().scenes[0].durationBeats, 4) << "its reference stays";
    ASSERT_TRUE(state().errorMessage());
    EXPECT_THAT(*state().errorMessage(), StartsWith("scenes[0]"));
    EXPECT_THAT(state().statusMessage(), HasSubstr("1 scene(s)"));
    // The same of a text: it becomes the document, with its references open.
    load(testing::smallFilm());
    EXPECT_FALSE(model->applySpecJSON(R"({"scenes": [{"durationBeats": 2, "layers": []}]})"));
    EXPECT_EQ(spec().scenes[0].durationBeats, 2);
    EXPECT_TRUE(state().hasUnsavedChanges());
}

TEST_F(ModelRefresh, TellsOfAFilmOfNoLength) {
    CompositionSpec empty = testing::smallFilm();
    empty.scenes.clear();
    model->loadInMemory(empty, "/nowhere");
    time.advance(1);
    ASSERT_TRUE(state().errorMessage());
    LivePreview::Ended ended;
    model->preview().show(empty, std::nullopt, {100, 100}, [&](const LivePreview::Ended& e) { ended = e; });
    time.advance(1);
    EXPECT_EQ(ended.failure, "The composition is empty (0 seconds).");
    EXPECT_TRUE(maker->built.empty());
}

// Thirty pictures a second at most; the document keeps its own rate.
TEST_F(ModelRefresh, PlaysThirtyPicturesASecondAtMost) {
    for (const auto& [fps, played] : {std::pair{60, 30.0}, {48, 30.0}, {30, 30.0}, {24, 24.0}}) {
        CompositionSpec film = testing::smallFilm();
        film.output.fps = FrameRate(fps);
        load(film);
        ASSERT_TRUE(model->preview().player().item());
        EXPECT_EQ(model->preview().player().item()->framesPerSec, played);
        EXPECT_EQ(double(spec().output.fps), fps);
    }
}

// What the time line and the sound are made from makes a new item; nothing else does.
TEST(StructuralKey, HoldsTheTimeLineAndTheSoundAlone) {
    const CompositionSpec film = testing::smallFilmWithDevice();
    const std::string key = structuralKey(film);
    EXPECT_EQ(key, "3@-,3@-|30|1080x1920|");
    using Edit = void (*)(CompositionSpec&);
    const Edit light[] = {[](CompositionSpec& s) { s.seed = 9; },
        [](CompositionSpec& s) {
            s.background = RGBAColor{1, 0, 0, 1};
        },
        [](CompositionSpec& s) { s.scenes[0].layers.clear(); },
        [](CompositionSpec& s) { s.scenes[0].layers[0].opacity = 0.5; },
        [](CompositionSpec& s) {
            s.scenes[0].layers[0].tracks.push_back({AnimProperty::x, {}});
        },
        [](CompositionSpec& s) { s.scenes[1].id = "three"; }};
    const Edit heavy[] = {[](CompositionSpec& s) { s.scenes[0].durationSec = 3.5; },
        [](CompositionSpec& s) { s.scenes.pop_back(); },
        [](CompositionSpec& s) { s.scenes[0].transition.emplace().durationSec = 0.5; },
        [](CompositionSpec& s) { s.output.fps = FrameRate(24); },
        [](CompositionSpec& s) { s.output.widthPx = 720; },
        [](CompositionSpec& s) { s.output.heightPx = 720; },
        [](CompositionSpec& s) { s.audio.emplace().cues.emplace_back(); }};
    for (const Edit edit : light) {
        CompositionSpec changed = film;
        edit(changed);
        EXPECT_EQ(structuralKey(changed), key);
    }
    for (const Edit edit : heavy) {
        CompositionSpec changed = film;
        edit(changed);
        EXPECT_NE(structuralKey(changed), key);
    }
}

// The stages of devices are set up before anybody comes to them, for a document that lasts.
TEST_F(ModelRefresh, SetsUpADeviceThatAnEditBrought) {
    CompositionSpec film = testing::smallFilmWithDevice();
    std::swap(film.scenes[0], film.scenes[1]);
    auto& device = std::get<DeviceContent>(film.scenes[1].layers[0].content);
    const DeviceScene3D inSpace = *device.scene3D;
    device.scene3D.reset();
    load(film);
    time.advance(1);
    const auto show = [&](bool isInSpace) {
        model->update("Space", [&](EditState& changed) {
            changed.content<DeviceContent>(1, 0)->scene3D = isInSpace ? std::optional(inSpace) : std::nullopt;
        });
    };
    show(true);
    time.advance(0.2);
    EXPECT_THAT(drawnSecs(), ElementsAre(0, DoubleNear(3.3, 1e-9), DoubleNear(3.55, 1e-9)));
    time.advance(1);
    tint();
    time.advance(0.2);
    EXPECT_THAT(drawnSecs(), ElementsAre(0)) << "it is set up";
    // An edit meanwhile ends it; the document that comes then is set up whole.
    show(false);
    time.advance(1);
    maker->drawSec = 0.1;
    show(true);
    time.advance(0.15);   // the first of the two is being drawn
    tint();
    time.advance(2);
    EXPECT_THAT(drawnSecs(), ElementsAre(0, DoubleNear(3.3, 1e-9), DoubleNear(3.55, 1e-9)));
}

TEST_F(ModelRefresh, LeavesNothingOfWhatWasUnderWayToTheNextDocument) {
    load(testing::smallFilmWithDevice());
    model->liveUpdateScene3D(0, 0, DeviceScene3D{});
    model->zoomPreview(0.5);
    time.advance(0.02);
    EXPECT_TRUE(maker->isLive);
    state().isAnalyzingMusic = true;   // its result goes with the document
    model->close();
    time.advance(2);
    EXPECT_FALSE(maker->isLive);
    EXPECT_FALSE(state().isAnalyzingMusic());
    EXPECT_FALSE(state().showsLiveFrame());
}

}   // namespace
}   // namespace tavix
