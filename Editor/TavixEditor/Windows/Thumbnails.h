// Small pictures of films: of bundles, made once and kept until the bundle changes, and of any moment.
#pragma once

#include <QImage>

#include <filesystem>
#include <memory>

namespace tavix {
class FrameSource;
class Stage;
struct CompositionSpec;
}   // namespace tavix

namespace tavix::editor {

// A film drawn small. Used by one thread at a time; may throw what drawing throws.
class SmallFilm {
public:
    // The longer side of its frames is as long as told.
    SmallFilm(const CompositionSpec& spec, const std::filesystem::path& assetRoot, int sidePx);
    ~SmallFilm();
    SmallFilm(const SmallFilm&) = delete;
    SmallFilm& operator=(const SmallFilm&) = delete;

    QImage at(double fraction);   // of the film, 0 to 1
    QImage atSec(double sec);

private:
    std::unique_ptr<Stage> stage_;
    std::shared_ptr<FrameSource> source_;
};

// A frame from the middle of its longest scene, its longer side as long as told, or a null image of what
// cannot be drawn. Blocks, for as long as a frame takes to build; kept in the folder under a name of the
// bundle and of the time that its document was written.
QImage thumbnailOf(const std::filesystem::path& bundle, const std::filesystem::path& cacheFolder, int sidePx);

}   // namespace tavix::editor
