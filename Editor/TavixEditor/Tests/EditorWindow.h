// A main window with a small composition of its own, in folders of its own.
#pragma once

#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/Document.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/Windows/EditorView.h"
#include "TavixEditor/Windows/MainWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

namespace tavix::editor {

class EditorWindow : public ::testing::Test {
protected:
    EditorWindow() { begin(); }
    void begin() {
        const std::filesystem::path home = home_.path().toStdString();
        window.reset();
        studio.reset();
        studio = std::make_unique<Studio>(
            system::StandardFolders{home / "config", home / "state", home / "cache", home / "data"},
            Sound::nowhere);
        window = std::make_unique<MainWindow>(*studio);
        window->show();
    }
    // One shape in the middle of a square of 400 pixels.
    std::filesystem::path makeBundle(const std::string& name) {
        CompositionSpec spec;
        spec.output.widthPx = spec.output.heightPx = 400;
        CompositionScene scene;
        scene.durationSec = 2;
        CompositionLayer layer;
        layer.position = {200, 200};
        ShapeContent shape;
        shape.widthFraction = shape.heightFraction = 0.25;
        layer.content = shape;
        scene.layers = {layer};
        spec.scenes = {scene};
        const std::filesystem::path bundle =
            std::filesystem::path(home_.path().toStdString()) / (name + ".tavixcomp");
        std::filesystem::create_directories(bundle);
        std::ofstream(CompositionProjectBundle::specFile(bundle)) << encodedJson(spec);
        return bundle;
    }
    void open(const std::filesystem::path& bundle) {
        window->openDocument(bundle);
        ASSERT_TRUE(until([&] { return state().isLoaded() && state().outputDuration() > 0; }));
    }
    static std::string fileOf(const std::filesystem::path& bundle) {
        std::ifstream in(CompositionProjectBundle::specFile(bundle));
        return (std::stringstream() << in.rdbuf()).str();
    }
    // Lets the event loop run until it is so; false after ten seconds.
    template <class Condition> static bool until(Condition condition) {
        return QTest::qWaitFor(condition, 10000);
    }
    void click(QWidget* top, const QString& words) {
        for (auto* button : top->findChildren<QAbstractButton*>())
            if (button->isVisible() && button->text().remove(QLatin1Char('&')) == words)
                return QTest::mouseClick(button, Qt::LeftButton);
        FAIL() << "no button says " << words.toStdString();
    }
    // The question or sheet of that name, once it is open.
    QWidget* dialog(const char* name) {
        QWidget* found = nullptr;
        until([&] {
            found = window->findChild<QWidget*>(QLatin1String(name));
            return found && found->isVisible();
        });
        return found;
    }
    EditorState& state() { return studio->model.state; }
    const CompositionLayer& layer() { return state().edited().spec.scenes[0].layers[0]; }
    void edit() {
        studio->model.update("Fade", [](EditState& changed) { changed.layer(0, 0)->opacity = 0.5; });
    }

    QTemporaryDir home_;
    std::unique_ptr<Studio> studio;
    std::unique_ptr<MainWindow> window;
};

}   // namespace tavix::editor
