// The windows of the program: one for each composition that is open, and one to begin with.
#pragma once

#include "TavixEditor/App/OneInstance.h"
#include "TavixEditor/App/ThemeChoice.h"
#include "TavixPlatform/System/StandardFolders.h"

#include <QStringList>

#include <filesystem>
#include <memory>
#include <vector>

namespace tavix::editor {

class GalleryWindow;
class Studio;

class Application {
public:
    explicit Application(system::StandardFolders folders);
    ~Application();

    // One that is open already comes to the front, and the others stand in windows of their own, the first of
    // them in one that shows nothing yet. Without any, a window comes to the front.
    void open(const QStringList& bundles);

private:
    struct Place;
    Place& emptyPlace();
    Place* placeOf(const std::filesystem::path& bundle);
    void leave(Place& place);
    void share(Place& place);
    void closeNext();
    static void refreshEngines(Studio& studio);

    system::StandardFolders folders_;
    ThemeChoice themes_;
    std::vector<std::unique_ptr<Place>> places_;
    bool isQuitting_ = false;
    std::unique_ptr<GalleryWindow> gallery_;   // once it was asked for
};

}   // namespace tavix::editor
