// The timeline, the inspector and the stage as pictures, in both themes, compared with pictures that a person
// has looked at. Text is left out, since letters differ from machine to machine. The suite runs this at scale
// 1 and 2. With TAVIX_ACCEPT_GOLDEN=1 in the environment the pictures are replaced by what is drawn now.
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "EditorTestKit.h"
#include "EditorWindow.h"
#include "TavixEditor/Inspector/InspectorView.h"
#include "TavixEditor/Stage/StageView.h"
#include "TavixEditor/Timeline/TimelineCanvas.h"
#include "TestSupport/SourceTree.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <numbers>

namespace tavix::editor {
namespace {

using testing::QuietStudio;

constexpr int sameDifference = 40;             // of a channel: antialiased edges may differ by some
constexpr double mostDifferentShare = 0.002;   // of all pixels

design::Theme wordless(design::Theme theme) {
    for (QColor* const color : {&theme.text, &theme.secondary, &theme.disabled, &theme.onAccent})
        *color = Qt::transparent;
    return theme;
}

const design::Theme& themeNamed(const std::string& name) {
    static const design::Theme darkOne = wordless(design::dark()), lightOne = wordless(design::light());
    return name == "dark" ? darkOne : lightOne;
}

double differentShare(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return 1;
    long different = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb one = a.pixel(x, y), other = b.pixel(x, y);
            const int most = std::max({std::abs(qRed(one) - qRed(other)),
                std::abs(qGreen(one) - qGreen(other)), std::abs(qBlue(one) - qBlue(other))});
            different += most > sameDifference;
        }
    return double(different) / (double(a.width()) * a.height());
}

// Once it stands still: what is laid out may ask for being laid out again.
QImage pictureOf(QWidget& widget) {
    QImage picture, before;
    for (int turn = 0; turn < 20 && (turn < 2 || picture != before); ++turn) {
        before = picture;
        QApplication::processEvents();
        picture = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    return picture;
}

QString fileOf(const std::string& view, const std::string& theme) {
    const auto folder = testsupport::inSourceTree("Editor/TavixEditor/Tests/Data/Golden");
    const int scale = int(std::lround(qApp->devicePixelRatio()));
    return QString::fromStdString(
        (folder / (view + "-" + theme + "-" + std::to_string(scale) + ".png")).string());
}

void expectGolden(const QImage& actual, const std::string& view, const std::string& theme) {
    const QString file = fileOf(view, theme);
    if (qEnvironmentVariableIntValue("TAVIX_ACCEPT_GOLDEN")) {
        ASSERT_TRUE(actual.save(file)) << file.toStdString();
    }
    const QImage expected = QImage(file).convertToFormat(QImage::Format_RGB32);
    ASSERT_FALSE(expected.isNull()) << file.toStdString() << " is not there to compare with.";
    const double share = differentShare(actual, expected);
    EXPECT_LE(share, mostDifferentShare) << file.toStdString();
    if (share > mostDifferentShare) {
        const QString here =
            QDir::temp().filePath(QStringLiteral("tavix-actual-") + QFileInfo(file).fileName());
        actual.save(here);
        ADD_FAILURE() << "What is drawn now is in " << here.toStdString() << ".";
    }
}

// Something of everything that the timeline draws.
struct FullStudio : QuietStudio {
    FullStudio() {
        model.update("Fill", [](EditState& state) {
            for (CompositionScene& scene : state.spec.scenes)
                for (CompositionLayer& layer : scene.layers)
                    std::get<TextContent>(layer.content).text = "\u00a0";   // a bar without letters
            CompositionLayer& middle = state.spec.scenes[0].layers[1];
            PropertyTrack track{AnimProperty::scale, {{}, {}, {}}};
            track.keyframes[1].t = 0.8;
            track.keyframes[1].value = 1.5;
            track.keyframes[2].t = 2;
            middle.tracks.push_back(track);
            MusicBed& music = state.spec.audio.emplace().music.emplace();
            music.path = "song.wav";
            music.bpm = 120;
            state.spec.audio->cues.emplace_back().atSec = 4;
        });
        model.selectLayer(0, 1);
        model.state.currentTime = 2.2;
        model.state.cachedRanges = std::vector<FilmRange>{{0, 3.5}};
    }
};

std::shared_ptr<const Waveform> tone() {   // that swells twice
    std::vector<float> samples(11025 * 10);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double sec = double(i) / 11025;
        samples[i] = float(std::sin(sec * 2000) * std::abs(std::sin(sec * std::numbers::pi / 5)));
    }
    return std::make_shared<const Waveform>(samples, 11025);
}

struct GoldenViews : ::testing::TestWithParam<std::string> {
    GoldenViews() { design::Style::apply(*qApp, themeNamed(GetParam())); }
    ~GoldenViews() override { design::Style::apply(*qApp, design::dark()); }
};

TEST_P(GoldenViews, Timeline) {
    FullStudio studio;
    TimelineCanvas canvas(studio.model);
    canvas.resize(720, 260);
    BeatAnalysis heard;
    heard.durationSec = 10;
    heard.dropSec = 5;
    heard.sections = {{0, -30}, {5, -8}};
    canvas.setMusic(tone(), heard);
    const QImage picture = pictureOf(canvas);
    expectGolden(picture, "timeline", GetParam());
    // A bar that stands elsewhere is another picture.
    studio.model.update("Move", [](EditState& state) { state.layer(0, 1)->fromSec += 0.1; });
    EXPECT_GT(differentShare(pictureOf(canvas), picture), mostDifferentShare);
}

TEST_P(GoldenViews, Inspector) {
    FullStudio studio;
    const std::unique_ptr<QWidget> view(makeInspectorView(studio.model, nullptr));
    view->resize(304, 900);
    view->show();
    const QImage picture = pictureOf(*view);
    expectGolden(picture, "inspector", GetParam());
    // So is one with a row more.
    studio.model.update("Add", [](EditState& state) { state.content<TextContent>(0, 1)->shadow.emplace(); });
    EXPECT_GT(differentShare(pictureOf(*view), picture), mostDifferentShare);
}

struct GoldenStage : EditorWindow, ::testing::WithParamInterface<std::string> {
    GoldenStage() { design::Style::apply(*qApp, themeNamed(GetParam())); }
    ~GoldenStage() override { design::Style::apply(*qApp, design::dark()); }
};

TEST_P(GoldenStage, HandlesAndSafeAreas) {
    open(makeBundle("golden"));
    StageView& stage = window->editor().stage();
    // A stage of one size, whatever stands around it.
    stage.setFixedSize(420, 420);
    stage.setSafeAreasShown(true);
    studio->model.selectLayer(0, 0);
    QAccessibleInterface* const layers = QAccessible::queryAccessibleInterface(&stage);
    // Frames are as large as the stage, but never larger than the canvas.
    const double room = stage.viewport().drawnRect().width * stage.devicePixelRatioF();
    const int side = int(std::min(room, 400.0));
    ASSERT_TRUE(until([&] {
        return layers->childCount() == 1 && layers->child(0)->state().selected &&
               stage.frame().size() == QSize(side, side);
    }));
    EXPECT_EQ(
        layers->child(0)->text(QAccessible::Description), QStringLiteral("100 × 100 pixels at 150, 150"));
    const QImage picture = pictureOf(stage);
    expectGolden(picture, "stage", GetParam());
    studio->model.clearSelection();
    EXPECT_GT(differentShare(pictureOf(stage), picture), mostDifferentShare);
}

const auto nameOfTheme = [](const auto& info) { return info.param; };
INSTANTIATE_TEST_SUITE_P(Themes, GoldenViews, ::testing::Values("dark", "light"), nameOfTheme);
INSTANTIATE_TEST_SUITE_P(Themes, GoldenStage, ::testing::Values("dark", "light"), nameOfTheme);

}   // namespace
}   // namespace tavix::editor
