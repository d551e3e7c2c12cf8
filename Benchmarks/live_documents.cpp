// What a long document costs the main executor of an editor, in milliseconds: the longest time that it is
// held by an edit, a selection, an undo that is whole and one that is packed, with pauses in between as
// people make them; beside them the copy and the comparison of such a document.
#include "TavixCore/Support/Document.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixLive/Tests/EmptyMaker.h"
#include "TavixPlatform/System/ManualTime.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace tavix {
namespace {

double msOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// Notes how long its jobs take.
class HeldExecutor final : public system::SerialExecutor {
public:
    explicit HeldExecutor(system::ManualTime& time) : inner_(time) {}
    void post(system::Job job) override { inner_.post(noted(std::move(job))); }
    system::Timer after(double sec, system::Job job) override {
        return inner_.after(sec, noted(std::move(job)));
    }
    double nowSec() const override { return inner_.nowSec(); }
    double longestMs = 0;

private:
    system::Job noted(system::Job job) {
        return [this, job = std::move(job)] { longestMs = std::max(longestMs, msOf(job)); };
    }
    system::ManualExecutor inner_;
};

// Scenes of twenty texts that move, as many as make up that many megabytes.
CompositionSpec longDocument(double megabytes) {
    CompositionScene scene;
    scene.durationSec = 1;
    for (int i = 0; i < 20; ++i) {
        CompositionLayer layer;
        TextContent text;
        text.text = "A line of words that somebody wrote, number " + std::to_string(i);
        layer.content = text;
        layer.position = {540, 90.0 * i};
        for (const AnimProperty property : {AnimProperty::x, AnimProperty::opacity}) {
            PropertyTrack track{property, {}};
            for (int k = 0; k < 6; ++k) {
                CompositionKeyframe keyframe;
                keyframe.t = 0.1 * k;
                keyframe.value = 0.1 * k;
                track.keyframes.push_back(keyframe);
            }
            layer.tracks.push_back(track);
        }
        scene.layers.push_back(layer);
    }
    CompositionSpec spec;
    spec.scenes = {scene};
    const double each = double(encodedJson(spec).size());
    spec.scenes.resize(std::size_t(megabytes * 1e6 / each) + 1, scene);
    return spec;
}

void hold(benchmark::State& state) {
    system::ManualTime time;
    HeldExecutor main(time);
    system::ManualExecutor render(time), workers(time);
    CompositionEditorModel model(
        {.executors = {main, render, workers}, .maker = std::make_shared<testing::EmptyMaker>()});
    model.loadInMemory(longDocument(double(state.range(0))), "/nowhere");
    time.advance(1);
    const std::size_t last = model.state.edited().spec.scenes.size() - 1;
    double editMs = 0, selectMs = 0, undoMs = 0, packedUndoMs = 0;
    const auto held = [&](double& worst, const std::function<void()>& work) {
        main.longestMs = 0;
        const double now = msOf(work);
        time.advance(0.5);
        worst = std::max({worst, now, main.longestMs});
    };
    constexpr int steps = 12;
    for (auto _ : state) {
        for (int i = 0; i < steps; ++i) {
            held(editMs, [&] {
                model.update("Fade", [&](EditState& changed) {
                    changed.layer(i % 2 ? last : 0, std::size_t(i))->opacity = 0.5 + 0.01 * i;
                });
            });
            held(selectMs, [&] { model.selectLayer(i % 2 ? 0 : last, 3); });
        }
        held(undoMs, [&] { model.undo(); });
        while (model.history().undoName()) held(packedUndoMs, [&] { model.undo(); });
    }
    const CompositionSpec spec = model.state.edited().spec, other = spec;
    state.counters["editMs"] = editMs;
    state.counters["selectMs"] = selectMs;
    state.counters["undoMs"] = undoMs;
    state.counters["packedUndoMs"] = packedUndoMs;
    state.counters["copyMs"] = msOf([&] {
        const CompositionSpec copy = spec;
        benchmark::DoNotOptimize(&copy);
    });
    state.counters["compareMs"] = msOf([&] { benchmark::DoNotOptimize(spec == other); });
}
BENCHMARK(hold)->Arg(1)->Arg(10)->Iterations(1)->Unit(benchmark::kMillisecond);

}   // namespace
}   // namespace tavix
