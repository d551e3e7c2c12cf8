#include "Engine/Verbs/MeasureVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Judge/Findings.h"
#include "Engine/Output/FrameSize.h"
#include "Engine/System/Errors.h"
#include "TavixLive/Measure/Rehearsal.h"

#include <cmath>
#include <cstdio>
#include <mutex>
#include <vector>

namespace tavix::engine {

namespace {

constexpr std::size_t mostLayersTold = 5;

std::string line(const char* format, auto... values) {
    char text[256];
    std::snprintf(text, sizeof text, format, values...);
    return std::string(text) + "\n";
}

std::string linesOf(const RehearsalReport& report) {
    std::string lines = line("stage          %d × %d pixels", report.stage.width, report.stage.height);
    lines += line("first picture  %.0f ms", report.firstPictureMs);
    lines += line("playback       %.1f pictures a second, %.1f %% dropped, over %.1f s",
        report.picturesPerSec, report.droppedShare * 100, report.playedSec);
    lines += line("scrubs         %.0f ms, 95 of 100 within %.0f ms", report.scrubMs.medianMs(),
        report.scrubMs.p95Ms());
    lines += line(
        "light edits    %.0f ms, 95 of 100 within %.0f ms", report.editMs.medianMs(), report.editMs.p95Ms());
    if (report.dragPicturesPerSec > 0)
        lines += line("drags in space %.1f pictures a second", report.dragPicturesPerSec);
    lines += line("sound          pictures within %.0f ms of it", report.driftMs);
    lines += line("main executor  held for %.1f ms at most", report.mainHoldMs);
    for (std::size_t i = 0; i < std::min(mostLayersTold, report.layers.size()); ++i) {
        const auto& layer = report.layers[i];
        lines += line("scenes[%zu].layers[%zu]  %s: %.0f ms to build, %.1f ms a frame", layer.scene,
            layer.layer, layer.name.c_str(), layer.buildMs, layer.frameMs);
    }
    return lines;
}

double rounded(double value) { return std::round(value * 1000) / 1000; }

Json jsonOf(const Latencies& latencies) {
    return JsonObject{{"median", rounded(latencies.medianMs())}, {"p95", rounded(latencies.p95Ms())},
        {"count", latencies.all.size()}};
}

Json jsonOf(const RehearsalReport& report) {
    JsonArray layers;
    for (const auto& layer : report.layers)
        layers.push_back(JsonObject{{"path", "scenes[" + std::to_string(layer.scene) + "].layers[" +
                                                 std::to_string(layer.layer) + "]"},
            {"name", layer.name}, {"buildMs", rounded(layer.buildMs)}, {"frameMs", rounded(layer.frameMs)}});
    return JsonObject{
        {"stage", JsonObject{{"widthPx", report.stage.width}, {"heightPx", report.stage.height}}},
        {"playback", JsonObject{{"fps", rounded(report.picturesPerSec)},
                         {"droppedShare", rounded(report.droppedShare)}, {"sec", rounded(report.playedSec)}}},
        {"scrubMs", jsonOf(report.scrubMs)}, {"editMs", jsonOf(report.editMs)},
        {"dragFps", rounded(report.dragPicturesPerSec)}, {"firstPictureMs", rounded(report.firstPictureMs)},
        {"driftMs", rounded(report.driftMs)}, {"mainHoldMs", rounded(report.mainHoldMs)},
        {"layers", std::move(layers)}};
}

// Told from several threads; heard when the work is done.
class Gathered {
public:
    RenderLog log() {
        return [this](const Finding& finding) {
            if (finding.level == Finding::Level::progress) return;   // what single pictures took
            const std::lock_guard lock(mutex_);
            findings_.push_back(finding);
        };
    }
    void tellTo(Terminal& terminal) const {
        const RenderLog once = onceEach(terminal.log());
        for (const Finding& finding : findings_) once(finding);
    }

private:
    std::mutex mutex_;
    std::vector<Finding> findings_;
};

}   // namespace

void MeasureVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "measure needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.value(
        "--stage", "WxH", [this](const std::string& text) { stage_ = sizeNamed(text, 16, 8192, "--stage"); },
        "The room that the preview has, in pixels; 540x960 by default.");
    arguments.number("--play", playSec_, "SEC", "How much of the film is played at most; 20 by default.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

void MeasureVerb::run(Terminal& terminal) {
    DocumentFile document = openDocument(document_);
    resolveTimes(document);
    requireRenderable(document);
    RehearsalPlan plan;
    if (stage_) plan.room = *stage_;
    if (playSec_) {
        if (!(*playSec_ > 0)) throw UsageError("--play takes a length above 0, in seconds.");
        plan.mostPlayedSec = *playSec_;
    }
    Gathered gathered;
    const RehearsalReport report = rehearse(document.spec, document.assetRoot, plan, gathered.log());
    gathered.tellTo(terminal);
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(jsonOf(report));
    else
        terminal.result(linesOf(report));
}

}   // namespace tavix::engine
