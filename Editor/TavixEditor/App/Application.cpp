#include "TavixEditor/App/Application.h"

#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Windows/MainWindow.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>
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

Application::Place& Application::emptyPlace() {
    for (const auto& place : places_)
        if (!place->studio.model.state.isLoaded() && place->window.isVisible()) return *place;
    const bool isFirst = places_.empty();
    places_.push_back(std::make_unique<Place>(folders_, themes_));
    Place& made = *places_.back();
    made.window.onClosed = [this, &made] { leave(made); };
    if (isFirst) made.studio.model.findLostWork();
    return made;
}

void Application::open(const QStringList& bundles) {
    for (const QString& bundle : bundles) {
        Place& place = emptyPlace();
        place.window.show();
        place.window.openDocument(pathOf(bundle));
    }
    const bool isAnyVisible = std::any_of(
        places_.begin(), places_.end(), [](const auto& place) { return place->window.isVisible(); });
    Place& front = isAnyVisible ? *places_.back() : emptyPlace();
    front.window.show();
    front.window.raise();
    front.window.activateWindow();
}

// An export goes on without its window; the program stays until it has ended.
void Application::leave(Place& left) {
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
