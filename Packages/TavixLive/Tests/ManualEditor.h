// A model of an editor in virtual time.
#pragma once

#include "FakeMaker.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixPlatform/System/ManualFolderWatcher.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace tavix::testing {

class ManualEditor : public ::testing::Test {
protected:
    ManualEditor() { start(); }
    // A new session; the one before ends in health.
    void start() {
        CompositionEditorModel::Services services{{main, render, workers}, maker};
        services.watcher = &watcher;
        services.stateFolder = stateFolder;
        services.backups = backups ? &*backups : nullptr;
        services.logs.render = [this](const Finding& finding) { told.push_back(finding.message); };
        model.reset();
        time.settle();
        model.emplace(services);
        model->setStageSink([this](const StagePicture& picture) {
            shown.push_back({picture.atSec, time.nowSec(), numberOf(picture)});
        });
    }
    void load(const CompositionSpec& spec) {
        model->loadInMemory(spec, "/nowhere");
        time.advance(1);
        maker->built.clear();
        shown.clear();
    }
    // A light edit of the first scene's first layer; another one each time.
    void tint() {
        model->update("Tint", [&](EditState& state) { state.layer(0, 0)->opacity = 0.2 + 0.5 / ++tints_; });
    }
    EditorState& state() { return model->state; }
    const CompositionSpec& spec() { return model->state.edited().spec; }

    system::ManualTime time;
    system::ManualExecutor main{time}, render{time}, workers{time};
    system::ManualFolderWatcher watcher;
    std::filesystem::path stateFolder;
    std::optional<Backups> backups;
    std::vector<std::string> told;
    std::shared_ptr<FakeMaker> maker = std::make_shared<FakeMaker>(time);
    std::vector<ManualStudio::Shown> shown;
    std::optional<CompositionEditorModel> model;

private:
    int tints_ = 0;
};

}   // namespace tavix::testing
