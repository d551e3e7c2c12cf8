// A model of a reel editor in virtual time: a bundle on the disk whose recording is none, and previews that
// take as long to build as the test says.
#pragma once

#include "../../TavixLive/Tests/ManualStudio.h"
#include "TavixPlatform/System/ManualFolderWatcher.h"
#include "TavixReelLive/Model/ReelEditorModel.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tavix::testing {

class ManualReelEditor : public ::testing::Test {
protected:
    static constexpr double recordingSec = 10;

    ManualReelEditor() { start(); }
    // A new session; the one before ends in health.
    void start();
    // The bundle is made when it is not there.
    void open(const std::string& name = "walk.tavixproj");
    // A step that leaves the clock alone; another one each time.
    void edit(double padding) {
        model->update("Pad", [padding](EffectsSpec& spec) { spec.background.padding = padding; });
    }
    std::filesystem::path bundle(const std::string& name = "walk.tavixproj") const { return folder / name; }
    std::filesystem::path effects() const { return bundle() / "effects.json"; }
    ReelEditorState& state() { return model->state; }
    const EffectsSpec& spec() { return model->state.spec(); }
    static EffectsSpec firstSpec();

    testsupport::TemporaryFolder folder;
    system::ManualTime time;
    system::ManualExecutor main{time}, render{time}, workers{time};
    system::ManualFolderWatcher watcher;
    std::filesystem::path stateFolder;
    std::optional<Backups> backups;
    std::map<std::string, double> loadSec;   // by the name of a bundle
    double rawSec = recordingSec;
    std::optional<Timeline> sidecar;
    std::optional<RecentProjects> recents;
    double buildSec = 0.01;
    bool isBroken = false;   // no preview can be built
    std::vector<EffectsSpec> built;
    std::vector<double> builtAtSec;
    std::vector<Vector3> turns;   // of the device, as the shown preview was told
    std::vector<std::string> told;
    int shown = 0;   // the number of the preview that the stage shows
    std::optional<ReelEditorModel> model;

private:
    ReelProject load(const std::filesystem::path& path);
};

}   // namespace tavix::testing
