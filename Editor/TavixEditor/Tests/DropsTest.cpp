// Files that are dropped on the window.
#include "EditorWindow.h"
#include "TavixEditor/Stage/QtPoints.h"

#include "TavixEditor/Stage/StageView.h"
#include "TavixEditor/Windows/Drops.h"

#include <QAction>
#include <QDropEvent>
#include <QImage>
#include <QMimeData>
#include <QUrl>

#include <gmock/gmock.h>

#include <set>

namespace tavix::editor {
namespace {

namespace fs = std::filesystem;

class Drops : public EditorWindow {
protected:
    fs::path home() const { return home_.path().toStdString(); }
    fs::path picture(const std::string& name, QColor color, QSize size = {40, 20}) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(color);
        const fs::path file = home() / name;
        fs::create_directories(file.parent_path());
        EXPECT_TRUE(image.save(QString::fromStdString(file.string())));
        return file;
    }
    static std::set<std::string> namesIn(const fs::path& folder) {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.insert(entry.path().filename().string());
        return names;
    }
    void dropOn(QPointF point, const std::vector<fs::path>& files) {
        QMimeData data;
        QList<QUrl> urls;
        for (const fs::path& file : files) urls << QUrl::fromLocalFile(QString::fromStdString(file.string()));
        data.setUrls(urls);
        QDragEnterEvent enter(point.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.get(), &enter);
        ASSERT_TRUE(enter.isAccepted());
        QDropEvent event(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.get(), &event);
    }
};

TEST_F(Drops, AFileGetsANameOfItsOwnAndNoneIsReplaced) {
    const fs::path bundle = makeBundle("square"), assets = bundle / "assets";
    const fs::path red = picture("a/shot.png", Qt::red), blue = picture("b/shot.png", Qt::blue);
    EXPECT_EQ(takeIn(red, bundle).path, "assets/shot.png");
    EXPECT_EQ(takeIn(red, bundle).path, "assets/shot.png") << "the same bytes are there already";
    EXPECT_EQ(takeIn(blue, bundle).path, "assets/shot-2.png");
    EXPECT_EQ(takeIn(assets / "shot-2.png", bundle).path, "assets/shot-2.png");
    EXPECT_EQ(namesIn(assets), (std::set<std::string>{"shot.png", "shot-2.png"}));
    EXPECT_EQ(
        QImage(QString::fromStdString((assets / "shot.png").string())).pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(
        QImage(QString::fromStdString((assets / "shot-2.png").string())).pixelColor(0, 0), QColor(Qt::blue));
    std::ofstream(home() / "notes.txt") << "words";
    EXPECT_THROW(takeIn(home() / "notes.txt", bundle), Failure);
    EXPECT_THROW(takeIn(home() / "gone.png", bundle), Failure);
    EXPECT_EQ(namesIn(assets).size(), 2u) << "nothing is left of what failed";
}

TEST_F(Drops, APictureStandsWhereItIsDroppedFromThePlayheadOn) {
    const fs::path bundle = makeBundle("square");
    open(bundle);
    studio->model.seek(0.5);
    ASSERT_TRUE(until([&] { return state().currentTime() == 0.5; }));
    const StageView& stage = window->editor().stage();
    ASSERT_TRUE(until([&] { return !stage.frame().isNull(); }));
    const QPointF at = stage.mapTo(window.get(), qPoint(stage.viewport().toView({100, 300})));
    dropOn(at, {picture("shot.png", Qt::red), picture("large.png", Qt::green, {800, 800})});
    const auto& layers = [&]() -> const std::vector<CompositionLayer>& {
        return state().edited().spec.scenes[0].layers;
    };
    ASSERT_TRUE(until([&] { return layers().size() == 3; }));
    EXPECT_NEAR(layers()[1].position.x, 100, 1);
    EXPECT_NEAR(layers()[1].position.y, 300, 1);
    EXPECT_EQ(layers()[1].fromSec, 0.5);
    EXPECT_EQ(state().edited().selection, (Selection{0, 2}));
    // The small one keeps its pixels; the large one fits.
    EXPECT_FALSE(std::get<ImageContent>(layers()[1].content).heightFraction);
    EXPECT_EQ(std::get<ImageContent>(layers()[2].content).heightFraction, 0.8);
    ASSERT_TRUE(until([&] {
        const QImage frame = stage.frame();
        const double scale = double(frame.width()) / 400;
        return QColor(frame.pixel(int(20 * scale), int(390 * scale))) == QColor(Qt::green) ||
               QColor(frame.pixel(int(100 * scale), int(300 * scale))) == QColor(Qt::green);
    }));
    window->actions().undo->trigger();
    EXPECT_EQ(layers().size(), 1u) << "one step";
    EXPECT_EQ(namesIn(bundle / "assets").size(), 2u) << "but no file goes";
}

TEST_F(Drops, MusicBecomesTheMusicAndABundleOpens) {
    open(makeBundle("square"));
    std::ofstream(home() / "tune.wav") << "RIFF";
    dropOn({5, 5}, {home() / "tune.wav"});
    ASSERT_TRUE(until([&] { return state().edited().spec.audio.has_value(); }));
    EXPECT_EQ(state().edited().spec.audio->music->path, "assets/tune.wav");
    EXPECT_EQ(state().edited().spec.scenes[0].layers.size(), 1u);
    window->actions().undo->trigger();
    EXPECT_FALSE(state().edited().spec.audio && state().edited().spec.audio->music);
    const fs::path other = makeBundle("other");
    window->actions().save->trigger();
    ASSERT_TRUE(until([&] { return !state().hasUnsavedChanges(); }));
    dropOn({5, 5}, {picture("shot.png", Qt::red), other});
    ASSERT_TRUE(until([&] { return state().bundle() == other && state().isLoaded(); }));
}

TEST_F(Drops, WhatIsOfNoUseIsToldAndTheRestIsTakenIn) {
    open(makeBundle("square"));
    std::ofstream(home() / "notes.txt") << "words";
    dropOn({5, 5}, {home() / "notes.txt", picture("shot.png", Qt::red)});
    ASSERT_TRUE(until([&] { return state().errorMessage().has_value(); }));
    EXPECT_THAT(*state().errorMessage(), ::testing::StartsWith("\"notes.txt\" is no picture"));
    EXPECT_EQ(state().edited().spec.scenes[0].layers.size(), 2u);
}

TEST(DropPlaces, AClipOfAnotherShapeStandsWholeWithinTheCanvas) {
    EditState state;
    state.spec.output.widthPx = 1000;
    state.spec.output.heightPx = 500;
    state.spec.scenes.resize(2);
    state.spec.scenes[0].durationSec = state.spec.scenes[1].durationSec = 3;
    for (const double x : {0.0, 200.0, 999.0})
        for (const imaging::Size size : {imaging::Size{1080, 1920}, imaging::Size{3000, 300}}) {
            EditState changed = state;
            addDropped(changed, {{DropKind::clip, "assets/a.mp4", size}}, {4, std::pair(x, 480.0)});
            ASSERT_EQ(changed.spec.scenes[1].layers.size(), 1u) << "in the scene of that time";
            const CompositionLayer& layer = changed.spec.scenes[1].layers[0];
            EXPECT_EQ(layer.fromSec, 1);
            const auto& rect = std::get<VideoContent>(layer.content).rect;
            ASSERT_TRUE(rect);
            EXPECT_GE(rect->x, 0);
            EXPECT_LE(rect->x + rect->width, 1 + 1e-9);
            EXPECT_LE(rect->y + rect->height, 1 + 1e-9);
            EXPECT_NEAR(rect->width * 1000 / (rect->height * 500), double(size.width) / size.height, 1e-9);
        }
    addDropped(state, {{DropKind::clip, "assets/a.mp4", {1920, 960}}}, {0, {}});
    EXPECT_FALSE(std::get<VideoContent>(state.spec.scenes[0].layers[0].content).rect)
        << "it fills the canvas";
}

}   // namespace
}   // namespace tavix::editor
