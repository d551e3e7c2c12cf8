// Devices under a hand: drags, the zoom of the stage, flat and in space.
#include "ManualEditor.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Operations/LayerOperations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace tavix {
namespace {

class ModelDevices : public testing::ManualEditor {};

TEST_F(ModelDevices, ShowsADragWithoutTouchingTheDocumentUntilItEnds) {
    load(testing::smallFilmWithDevice());
    maker->drawSec = 0.02;
    model->refreshNow();
    time.advance(1);
    const EditState before = state().edited();
    DeviceScene3D turned = *std::get<DeviceContent>(before.spec.scenes[0].layers[0].content).scene3D;
    const std::size_t drawn = maker->last->draws.size();
    for (int i = 0; i < 100; ++i) {
        turned.tiltDegrees.y = i;
        model->liveUpdateScene3D(0, 0, turned);
        time.advance(0.01);
    }
    time.advance(0.04);   // what is being drawn, and the last one
    EXPECT_EQ(state().edited(), before);
    EXPECT_TRUE(state().showsLiveFrame());
    EXPECT_TRUE(maker->isLive);
    EXPECT_EQ(maker->applied.back().first.tiltDegrees.y, 99);
    EXPECT_NEAR(double(maker->last->draws.size() - drawn), 1 / 0.02, 3) << "as fast as it goes, none queued";
    model->commitLiveEdits();
    EXPECT_EQ(std::get<DeviceContent>(state().edited().spec.scenes[0].layers[0].content).scene3D, turned);
    EXPECT_EQ(model->history().stepCount(), 1u);
    time.advance(0.05);
    EXPECT_TRUE(state().showsLiveFrame()) << "until the document's own frame has come";
    time.advance(1);
    EXPECT_FALSE(state().showsLiveFrame());
    EXPECT_FALSE(maker->isLive);
    EXPECT_EQ(shown.back().number, int(maker->built.size()));
}

TEST_F(ModelDevices, MakesRoomAroundDevicesInThePreviewAlone) {
    load(testing::smallFilmWithDevice());
    const CompositionSpec before = state().edited().spec;
    model->setPreviewOverscan(0.5);
    time.advance(1);
    const auto placed = [](const CompositionSpec& spec) {
        return std::get<DeviceContent>(spec.scenes[0].layers[0].content).placement->track[0];
    };
    EXPECT_EQ(placed(maker->built.back().spec).offset.x, 0.1);
    EXPECT_EQ(placed(maker->built.back().spec).scale, 0.5);
    EXPECT_EQ(state().edited().spec, before);
    model->setPreviewOverscan(0.01);
    EXPECT_EQ(state().previewOverscan(), 0.1);
    maker->built.clear();
    time.advance(1);
    maker->built.clear();
    for (int i = 0; i < 5; ++i) {
        model->zoomPreview(1.2);
        time.advance(0.1);
    }
    EXPECT_TRUE(maker->built.empty()) << "while zooming only the drag's road is gone";
    EXPECT_TRUE(maker->isLive);
    time.advance(1);
    EXPECT_EQ(maker->built.size(), 1u);
    EXPECT_FALSE(maker->isLive);
}

TEST_F(ModelDevices, KeepsWhatADeviceWasInSpaceWhileTheDocumentIsOpen) {
    CompositionSpec spec = testing::smallFilmWithDevice();
    const auto in3D = [this] { return state().edited().spec.scenes[0].layers[0]; };
    std::get<DeviceContent>(spec.scenes[0].layers[0].content).scene3D->tiltDegrees.y = 42;
    load(spec);
    model->setDevice3D(0, 0, false);
    EXPECT_FALSE(std::get<DeviceContent>(in3D().content).scene3D);
    model->setDevice3D(0, 0, true);
    EXPECT_EQ(state().edited().spec, spec);
    EXPECT_EQ(model->history().stepCount(), 2u);
    model->setDevice3D(0, 0, false);
    load(testing::smallFilmWithDevice());
    model->setDevice3D(0, 0, false);
    model->setDevice3D(0, 0, true);
    EXPECT_EQ(state().edited().spec, testing::smallFilmWithDevice());
}

TEST_F(ModelDevices, GoesToAKeyframeThatIsAppended) {
    CompositionSpec spec = testing::smallFilmWithDevice();
    std::swap(spec.scenes[0], spec.scenes[1]);
    load(spec);
    model->appendKeyframe(1, 0, 1.5);
    time.advance(1);
    EXPECT_EQ(state().outputDuration(), 7.5);
    EXPECT_EQ(state().currentTime(), 7.5);
    EXPECT_EQ(std::get<DeviceContent>(state().edited().spec.scenes[1].layers[0].content)
                  .placement->track.back()
                  .tSec,
        4.5);
    model->appendKeyframe(0, 0, 1);   // no device
    time.advance(1);
    EXPECT_EQ(state().outputDuration(), 7.5);
}

TEST_F(ModelDevices, FollowsAHandOverTheStageAsOneStep) {
    load(testing::smallFilmWithDevice());
    model->seek(1);
    time.advance(1);
    const CompositionSpec before = spec();
    const auto device = [&] { return *state().edited().content<DeviceContent>(0, 0); };
    const auto stands = [&] { return DeviceKeyframes::unifiedState(device(), spec().output, 1); };
    const DeviceKeyframes::UnifiedState start = stands();
    const auto dragged = [&](const std::function<void()>& drag) {
        model->beginDeviceDrag(0, 0);
        EXPECT_EQ(model->deviceDragStart()->state, start);
        EXPECT_EQ(model->deviceDragStart()->atSec, 1);
        drag();
        time.advance(0.1);
        EXPECT_EQ(spec(), before) << "not before it ends";
        EXPECT_TRUE(state().showsLiveFrame());
        model->endDeviceDrag();
        EXPECT_FALSE(model->deviceDragStart());
        EXPECT_EQ(model->history().stepCount(), 1u);
        EXPECT_EQ(*model->history().undoName(), "Move device");
        const auto now = stands();
        model->undo();
        time.advance(1);
        EXPECT_EQ(spec(), before);
        return now;
    };
    using enum DeviceOperations::DeviceMoveAxis;
    // At a depth of 0.5 the whole height of the canvas is one unit.
    auto now = dragged([&] {
        model->dragDeviceMove(400, 99, 800, free);
        model->dragDeviceMove(80, -40, 800, free);
    });
    EXPECT_NEAR(now.offset.x - start.offset.x, 0.1 * (1.5 - start.depth), 1e-9) << "from its start alone";
    EXPECT_NEAR(now.offset.y - start.offset.y, -0.05 * (1.5 - start.depth), 1e-9);
    now = dragged([&] { model->dragDeviceMove(80, -40, 800, y); });
    EXPECT_EQ(now.offset.x, start.offset.x);
    EXPECT_EQ(now.tiltDegrees, start.tiltDegrees);
    now = dragged([&] { model->dragDeviceScale(100); });
    EXPECT_NEAR(now.scale, start.scale * std::exp(-0.6), 1e-9);
    now = dragged([&] { model->dragDeviceRotate({100, 100}, {130, 100}, {{100, 100}, 60}); });
    EXPECT_GT(now.tiltDegrees.y, start.tiltDegrees.y + 5);

    model->beginDeviceDrag(0, 0);
    model->dragDeviceMove(80, -40, 0, free);   // the canvas is not seen
    model->endDeviceDrag();
    model->beginDeviceDrag(0, 7);
    model->dragDeviceScale(20);
    model->endDeviceDrag();
    EXPECT_EQ(spec(), before);
    EXPECT_EQ(model->history().stepCount(), 0u);
}

TEST_F(ModelDevices, FollowsAHandWhenItIsFlat) {
    CompositionSpec film = testing::smallFilmWithDevice();
    std::get<DeviceContent>(film.scenes[0].layers[0].content).scene3D.reset();
    load(film);
    model->beginDeviceDrag(0, 0);
    for (int i = 0; i < 5; ++i) {
        model->dragDeviceMove(10 * i, 0, 500, DeviceOperations::DeviceMoveAxis::free);
        time.advance(0.3);
    }
    EXPECT_GT(maker->built.size(), 2u) << "seen while it is dragged";
    model->endDeviceDrag();
    EXPECT_EQ(model->history().stepCount(), 1u);
    model->undo();
    EXPECT_EQ(spec(), film);
}

TEST_F(ModelDevices, TurnsWithAllItsPoses) {
    CompositionSpec film = testing::smallFilmWithDevice();
    auto& scene3D = *std::get<DeviceContent>(film.scenes[0].layers[0].content).scene3D;
    scene3D.tiltDegrees = {1, 10, 3};
    scene3D.poseTrack = {{0, {1, 20, 3}}, {1, {5, 50, 7}}};
    load(film);
    model->liveSetRestTilt(0, 0, DeviceKeyframes::TiltAxis::y, 25);
    model->liveSetRestTilt(0, 0, DeviceKeyframes::TiltAxis::y, 30);
    time.advance(0.1);
    EXPECT_EQ(spec(), film);
    model->commitLiveEdits();
    const auto& turned = *state().edited().content<DeviceContent>(0, 0)->scene3D;
    EXPECT_EQ(turned.poseTrack[0].tiltDegrees, (Vector3{1, 40, 3}));
    EXPECT_EQ(turned.poseTrack[1].tiltDegrees, (Vector3{5, 70, 7}));
    EXPECT_EQ(turned.tiltDegrees, (Vector3{1, 30, 3}));
}

// A build of a new item takes the chain with it that drew the frames of the drag.
TEST_F(ModelDevices, GoesOnWithADragWhenThePlayerGetsAnotherItem) {
    load(testing::smallFilmWithDevice());
    maker->drawSec = 0.2;
    maker->buildSec = 0.1;
    model->refreshNow();
    time.advance(1);
    DeviceScene3D turned = *state().edited().content<DeviceContent>(0, 0)->scene3D;
    model->update("Longer", [](EditState& changed) { changed.spec.scenes[1].durationSec = 5; });
    for (int i = 0; i < 40; ++i) {
        turned.tiltDegrees.y = i;
        model->liveUpdateScene3D(0, 0, turned);
        time.advance(0.02);
    }
    maker->applied.clear();
    time.advance(1);
    shown.clear();
    turned.tiltDegrees.y = 77;
    model->liveUpdateScene3D(0, 0, turned);
    time.advance(1);
    EXPECT_EQ(maker->applied.back().first.tiltDegrees.y, 77);
    EXPECT_FALSE(shown.empty()) << "the drag is still drawn";
    EXPECT_TRUE(state().showsLiveFrame());
    model->commitLiveEdits();
    time.advance(2);
    EXPECT_FALSE(state().showsLiveFrame()) << "and its frame gives way to the document";
    EXPECT_EQ(state().edited().content<DeviceContent>(0, 0)->scene3D, turned);
}

// What refreshes the stage meanwhile, such as a file that has changed, does not take the device out of the
// hand.
TEST_F(ModelDevices, StaysInTheHandUnderARefresh) {
    load(testing::smallFilmWithDevice());
    DeviceScene3D turned = *state().edited().content<DeviceContent>(0, 0)->scene3D;
    turned.tiltDegrees.y = 40;
    model->liveUpdateScene3D(0, 0, turned);
    time.advance(0.1);
    maker->applied.clear();
    model->refreshNow();
    time.advance(1);
    ASSERT_FALSE(maker->applied.empty()) << "the new stage is told, too";
    EXPECT_EQ(maker->applied.back().first, turned);
    EXPECT_TRUE(state().showsLiveFrame());
    EXPECT_TRUE(maker->isLive);
}

// Whatever happens to the document while a device is in the hand, the drag is a step of its own before it.
TEST_F(ModelDevices, LetsGoBeforeAnythingElseHappens) {
    CompositionSpec film = testing::smallFilmWithDevice();
    film.scenes[0].layers.push_back(film.scenes[0].layers[0]);
    const struct {
        const char* name;
        std::function<void()> happens;
        std::size_t steps;
    } cases[] = {
        {"undo", [&] { model->undo(); }, 0},
        {"a layer goes",
            [&] { model->update("Delete", [](EditState& s) { LayerOperations::deleteLayer(s, 0, 0); }); }, 2},
        {"another device", [&] { model->liveUpdateScene3D(0, 1, DeviceScene3D{}); }, 1},
        {"a text", [&] { model->applySpecJSON(encodedJson(testing::smallFilm())); }, 2},
    };
    for (const bool isDrag : {true, false})
        for (const auto& c : cases) {
            load(film);
            if (isDrag) {
                model->beginDeviceDrag(0, 0);
                model->dragDeviceScale(50);
            } else {
                DevicePlacementSpec placement;
                placement.track = {{0, {0.4, 0}, 1}};
                model->liveUpdatePlacement(0, 0, placement);
            }
            time.advance(0.05);
            c.happens();
            EXPECT_EQ(model->history().stepCount(), c.steps) << c.name;
            const CompositionSpec after = spec();
            model->dragDeviceScale(90);   // a hand that has not noticed
            model->endDeviceDrag();
            if (c.steps != 1) model->commitLiveEdits();
            EXPECT_EQ(spec(), after) << c.name;
            while (model->history().undoName()) model->undo();
            EXPECT_EQ(spec(), film) << c.name;
        }
}

TEST_F(ModelDevices, GivesADragUpWithoutATrace) {
    for (const bool isFlat : {false, true}) {
        CompositionSpec film = testing::smallFilmWithDevice();
        if (isFlat) std::get<DeviceContent>(film.scenes[0].layers[0].content).scene3D.reset();
        load(film);
        model->beginDeviceDrag(0, 0);
        for (int i = 0; i < 10; ++i) {
            model->dragDeviceMove(10 * i, 5, 500, DeviceOperations::DeviceMoveAxis::free);
            time.advance(0.05);
        }
        EXPECT_TRUE(state().hasUnsavedChanges());
        model->cancelGesture();
        EXPECT_FALSE(model->deviceDragStart());
        EXPECT_EQ(spec(), film);
        EXPECT_FALSE(state().hasUnsavedChanges());
        EXPECT_EQ(model->history().stepCount(), 0u);
        time.advance(1);
        EXPECT_FALSE(state().showsLiveFrame());
        EXPECT_EQ(maker->built.back().spec, film);
    }
}

TEST_F(ModelDevices, IgnoresLayersThatAreNoDevices) {
    load(testing::smallFilmWithDevice());
    const CompositionSpec before = spec();
    DevicePlacementSpec placement;
    placement.track = {{0, {9, 9}, 3}};
    model->liveUpdatePlacement(1, 0, placement);   // a shape
    model->liveUpdatePlacement(7, 0, placement);
    model->liveSetRestTilt(1, 0, DeviceKeyframes::TiltAxis::x, 4);
    EXPECT_FALSE(state().hasUnsavedChanges());
    model->liveUpdateScene3D(0, 0, DeviceScene3D{});
    model->commitLiveEdits();
    EXPECT_EQ(state().edited().content<DeviceContent>(0, 0)->placement,
        std::get<DeviceContent>(before.scenes[0].layers[0].content).placement)
        << "nothing of what was ignored is left";
}

}   // namespace
}   // namespace tavix
