#include "ManualReelEditor.h"

#include "TavixBase/Failure.h"

namespace tavix::testing {

EffectsSpec ManualReelEditor::firstSpec() {
    EffectsSpec spec;
    spec.output = {100, 200, 30};
    spec.cameraTrack = {{0, 1, {50, 100}}};
    return spec;
}

ReelProject ManualReelEditor::load(const std::filesystem::path& path) {
    time.spend(loadSec[path.filename().string()]);
    if (!std::filesystem::exists(path)) throw Failure("There is no recording.");
    ReelProject project;
    project.bundle = path;
    project.rawVideo = path / "raw.mov";
    project.timelineFile = path / "timeline.json";
    project.effectsFile = path / "effects.json";
    project.probe = {.widthPx = 100, .heightPx = 200, .fps = 30};
    project.rawDurationSec = project.trimEndSec = rawSec;
    project.timeline = sidecar;
    if (auto text = ReelOnDisk::textIn(project.effectsFile))
        project.onDisk = ReelOnDisk::of(*text);
    else
        project.onDisk.spec = firstSpec();
    return project;
}

void ManualReelEditor::start() {
    model.reset();
    time.settle();
    model.emplace(ReelEditorModel::Services{.main = main,
        .render = render,
        .workers = workers,
        .load = [this](const std::filesystem::path& path) { return load(path); },
        .preview = [this](const EffectsSpec& spec, const ReelFootage& footage, const auto&,
                       imaging::Size) -> ReelPreview {
            time.spend(buildSec);
            if (isBroken) throw Failure("The phone is gone.");
            builtAtSec.push_back(time.nowSec());
            built.push_back(spec);
            const double totalSec = ReelTimeline::outputDurationSec(reelSegments(spec, footage));
            return {std::make_shared<FakeSource>(time, int(built.size()), totalSec, 0.001), {},
                [this](const Vector3& tilt) { turns.push_back(tilt); }};
        },
        .recents = recents ? &*recents : nullptr,
        .watcher = &watcher,
        .stateFolder = stateFolder,
        .backups = backups ? &*backups : nullptr,
        .exportLog = [this](const Finding& finding) { told.push_back(finding.message); }});
    model->setStageSink([this](const StagePicture& picture) { shown = numberOf(picture); });
}

void ManualReelEditor::open(const std::string& name) {
    std::filesystem::create_directories(bundle(name));
    model->open(bundle(name));
    time.advance(1);
}

}   // namespace tavix::testing
