// What the window of the editor costs to draw, in milliseconds of processor time, with a document of 200
// layers in ten scenes: the timeline whole and for a step of the playhead, the inspector of another layer and
// as it stands, and the stage with a frame that is ready.
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/Document.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/Stage/StageView.h"
#include "TavixEditor/Windows/EditorView.h"
#include "TavixEditor/Windows/MainWindow.h"

#include <QApplication>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

namespace tavix::editor {
namespace {

constexpr int sceneCount = 10, layersOfScene = 20;

CompositionSpec largeDocument() {
    CompositionSpec spec;
    spec.output = {1080, 1920, 30};
    for (int i = 0; i < sceneCount; ++i) {
        CompositionScene scene;
        scene.durationSec = 3;
        for (int k = 0; k < layersOfScene; ++k) {
            CompositionLayer layer;
            layer.id = "layer-" + std::to_string(i) + "-" + std::to_string(k);
            layer.position = {100.0 + 40 * k, 200.0 + 70 * k};
            layer.fromSec = 0.1 * k;
            if (k % 2 == 0) {
                TextContent text;
                text.text = "Layer " + std::to_string(k);
                layer.content = text;
            } else {
                ShapeContent shape;
                shape.widthFraction = shape.heightFraction = 0.05;
                layer.content = shape;
            }
            PropertyTrack track;
            track.property = AnimProperty::opacity;
            for (int t = 0; t < 3; ++t) track.keyframes.push_back({.t = 0.3 * t, .value = 0.3 * t});
            layer.tracks = {track};
            scene.layers.push_back(layer);
        }
        spec.scenes.push_back(scene);
    }
    return spec;
}

// One window for all benchmarks, of 1600 x 1000 points, as it stands once the first picture is there.
class Window {
public:
    Window() : studio(folders(), Sound::nowhere), window(studio) {
        const std::filesystem::path bundle = home() / "large.tavixcomp";
        std::filesystem::create_directories(bundle);
        std::ofstream(CompositionProjectBundle::specFile(bundle)) << encodedJson(largeDocument());
        window.show();
        window.openDocument(bundle);
        window.showNormal();
        window.resize(1600, 1000);
        if (!QTest::qWaitFor([this] { return !window.editor().stage().frame().isNull(); }, 30000))
            throw std::runtime_error("No picture comes.");
        studio.model.selectLayer(0, 0);
        QApplication::processEvents();
    }
    QWidget* named(const char* name) {
        for (QWidget* const each : window.findChildren<QWidget*>())
            if (each->isVisible() && each->accessibleName() == QLatin1String(name)) return each;
        throw std::runtime_error(std::string("The window has no ") + name + ".");
    }

    static Window& only() {
        static Window all;
        return all;
    }

    QTemporaryDir place_;
    Studio studio;
    MainWindow window;

private:
    std::filesystem::path home() const { return place_.path().toStdString(); }
    system::StandardFolders folders() const {
        return {home() / "config", home() / "state", home() / "cache", home() / "data"};
    }
};

void paint(benchmark::State& state, QWidget* widget, const QRegion& region) {
    QImage target(widget->size(), QImage::Format_RGB32);
    for (auto _ : state) widget->render(&target, region.boundingRect().topLeft(), region);
    qint64 points = 0;
    for (const QRect& rect : region) points += qint64(rect.width()) * rect.height();
    state.counters["points"] = double(points);
}

void timelineWhole(benchmark::State& state) {
    QWidget* const timeline = Window::only().named("Timeline");
    paint(state, timeline, timeline->rect());
}
BENCHMARK(timelineWhole)->Unit(benchmark::kMillisecond);

// The strip where it was and the one where it is.
void timelinePlayheadStep(benchmark::State& state) {
    QWidget* const timeline = Window::only().named("Timeline");
    paint(state, timeline, QRegion(300, 0, 11, timeline->height()) + QRegion(330, 0, 11, timeline->height()));
}
BENCHMARK(timelinePlayheadStep)->Unit(benchmark::kMillisecond);

void inspectorWhole(benchmark::State& state) {
    QWidget* const inspector = Window::only().named("Inspector");
    paint(state, inspector, inspector->rect());
}
BENCHMARK(inspectorWhole)->Unit(benchmark::kMillisecond);

// Of a layer of another kind: all rows are made anew.
void inspectorOfAnotherLayer(benchmark::State& state) {
    Window& window = Window::only();
    QWidget* const inspector = window.named("Inspector");
    QImage target(inspector->size(), QImage::Format_RGB32);
    std::size_t layer = 0;
    for (auto _ : state) {
        window.studio.model.selectLayer(0, layer = 1 - layer);
        inspector->render(&target);
    }
}
BENCHMARK(inspectorOfAnotherLayer)->Unit(benchmark::kMillisecond);

void stageWithAFrame(benchmark::State& state) {
    QWidget& stage = Window::only().window.editor().stage();
    paint(state, &stage, stage.rect());
}
BENCHMARK(stageWithAFrame)->Unit(benchmark::kMillisecond);

}   // namespace
}   // namespace tavix::editor

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
