#include "TavixEditor/App/Application.h"

#include "Editor/EditorToolchain/CLIInstaller.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Windows/EditorView.h"
#include "TavixEditor/Windows/GalleryWindow.h"
#include "TavixEditor/Windows/MainWindow.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>
#include <exception>
#include <system_error>
#include <utility>

namespace tavix::editor {

struct Application::Place {
    Place(const system::StandardFolders& folders, ThemeChoice& themes)
        : studio(folders, Sound::desktop), window(studio, &themes) {}

    Studio studio;
    MainWindow window;
    Connection exporting = {};
};

Application::Application(system::StandardFolders folders)
    : folders_(std::move(folders)), themes_(UserDefaults(folders_.config)) {}

Application::~Application() = default;

// A window that shows the welcome screen: in one with the editor a document is open, or on its way.
Application::Place& Application::emptyPlace() {
    for (const auto& place : places_)
        if (place->window.isVisible() && !place->window.editor().isVisible()) return *place;
    const bool isFirst = places_.empty();
    places_.push_back(std::make_unique<Place>(folders_, themes_));
    Place& made = *places_.back();
    made.window.onClosed = [this, &made] { leave(made); };
    share(made);
    if (isFirst) {
        made.studio.model.findLostWork();
        refreshEngines(made.studio);
    }
    return made;
}

// Keys that are changed in one window hold in all, there is one gallery for all of them, and all quit
// together.
void Application::share(Place& of) {
    of.window.shortcuts().onChange = [this, &of] {
        for (const auto& other : places_)
            if (other.get() != &of) other->window.shortcuts().takeFrom(of.window.shortcuts());
    };
    of.window.onQuit = [this] {
        isQuitting_ = true;
        closeNext();
    };
    of.window.onStayed = [this] { isQuitting_ = false; };
    of.window.windowOf = [this](const std::filesystem::path& bundle) {
        Place* const place = placeOf(bundle);
        return place ? &place->window : nullptr;
    };
    of.window.onGallery = [this, &of] {
        if (!gallery_) gallery_ = std::make_unique<GalleryWindow>();
        gallery_->present(of.studio.model);
    };
}

// Engines that were installed by an earlier version follow this one. In silence: without a home folder, say,
// there is nothing to refresh.
void Application::refreshEngines(Studio& studio) {
    studio.workers().post([defaults = studio.defaults] {
        try {
            CLIInstaller(ToolchainPlaces::ofThisMachine(), defaults).autoUpdateIfNeeded();
        } catch (const std::exception&) {
            // The sheet of agents tells what is wrong once somebody asks.
        }
    });
}

void Application::open(const QStringList& bundles) {
    Place* front = nullptr;
    for (const QString& bundle : bundles) {
        front = placeOf(pathOf(bundle));
        if (front) continue;
        front = &emptyPlace();
        front->window.show();
        front->window.openDocument(pathOf(bundle));
    }
    const auto visible = std::find_if(
        places_.rbegin(), places_.rend(), [](const auto& place) { return place->window.isVisible(); });
    if (!front) front = visible != places_.rend() ? visible->get() : &emptyPlace();
    front->window.present();
}

Application::Place* Application::placeOf(const std::filesystem::path& bundle) {
    const auto found = std::find_if(places_.begin(), places_.end(), [&](const auto& place) {
        const auto& open = place->window.document();
        std::error_code unknown;
        return place->window.isVisible() && open && std::filesystem::equivalent(*open, bundle, unknown);
    });
    return found == places_.end() ? nullptr : found->get();
}

// One after another, each with its question; who stays ends it.
void Application::closeNext() {
    const auto next = std::find_if(
        places_.begin(), places_.end(), [](const auto& place) { return place->window.isVisible(); });
    if (next == places_.end()) {
        isQuitting_ = false;
        return;
    }
    (*next)->window.close();
}

// An export goes on without its window; the program stays until it has ended.
void Application::leave(Place& left) {
    if (gallery_) gallery_->leave(left.studio.model);
    if (isQuitting_) QTimer::singleShot(0, QCoreApplication::instance(), [this] { closeNext(); });
    const auto forget = [this, &left] {
        QTimer::singleShot(0, QCoreApplication::instance(), [this, &left] {
            std::erase_if(places_, [&](const auto& one) { return one.get() == &left; });
            if (places_.empty()) QCoreApplication::quit();
        });
    };
    if (!left.studio.model.state.isExporting()) return forget();
    left.exporting = watch(
        [&left, forget] {
            if (!left.studio.model.state.isExporting()) forget();
        },
        left.studio.model.state.isExporting);
}

}   // namespace tavix::editor
