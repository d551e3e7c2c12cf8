// What the build of a document leaves to the next one, so that an edit costs what it touched: layers and
// backgrounds whose inputs stayed the same, and decoded pictures.
#pragma once

#include "TavixRender/Assets/StillImageCache.h"
#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/LayerInputs.h"
#include "TavixRender/Composition2D/ResolvedCompositionLayer.h"
#include "TavixRender/Composition2D/ScreenShelf.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavix {

struct DeviceDarkroom;

// Shared by the builds of one document with one evaluator and one pool, one after another, and by what they
// draw: all of it is used by one thread at a time.
class BuildMemory {
public:
    // Of decoded files.
    static constexpr std::size_t mostPictureBytes = 64u << 20;

    // What holds for a whole build. Where it changes, nothing is taken over.
    struct Canvas {
        imaging::Rect bounds;
        double framesPerSec = 0;
        std::optional<std::filesystem::path> assetRoot;
        bool operator==(const Canvas&) const = default;
    };

    BuildMemory();
    ~BuildMemory();
    BuildMemory(const BuildMemory&) = delete;
    BuildMemory& operator=(const BuildMemory&) = delete;

    // The log is told of pictures that cannot be read, with the place that the build has come to.
    void begin(const Canvas& canvas, RenderLog log);
    void goTo(std::string path) { path_ = std::move(path); }
    void end();   // forgets what this build did not ask for

    struct Layer {
        std::shared_ptr<CompositionLayerContentRenderer> renderer;
        // Equal for layers that look the same at the same time of their own, and never used again.
        std::uint64_t lookID = 0;
    };
    // Of one build each layer is handed out once, so that no two places share it.
    template <class Make>
    Layer layer(const LayerInputs& inputs, const CompositionLayer& record, const LayerWindow& window,
        const Make& make) {
        KeptLayer& kept = taken(inputs);
        if (!kept.renderer) kept.renderer = make();
        return shown(kept, record, window);
    }

    struct Background {
        std::optional<imaging::Image> image;
        std::uint64_t lookID = 0;
    };
    template <class Draw>
    Background background(const BackgroundFill& fill, std::vector<UsedFile> files, const Draw& draw) {
        if (const KeptBackground* kept = known(fill, files)) return kept->background;
        return backgrounds_.emplace_back(KeptBackground{fill, std::move(files), {draw(), ++lastID_}})
            .background;
    }
    std::uint64_t transitionID(const SceneTransition& transition);

    StillImageCache& images() { return images_; }
    const std::shared_ptr<DeviceDarkroom>& darkroom() const { return darkroom_; }
    ScreenShelf& screens() { return screens_; }

private:
    struct KeptLayer {
        LayerInputs inputs;
        std::shared_ptr<CompositionLayerContentRenderer> renderer;
        std::optional<CompositionLayer> record;
        LayerWindow window;
        std::uint64_t lookID = 0;
    };
    struct KeptBackground {
        BackgroundFill fill;
        std::vector<UsedFile> files;
        Background background;
    };
    struct KeptTransition {
        SceneTransition transition;
        std::uint64_t id;
    };
    KeptLayer& taken(const LayerInputs& inputs);
    Layer shown(KeptLayer& kept, const CompositionLayer& record, const LayerWindow& window);
    const KeptBackground* known(const BackgroundFill& fill, const std::vector<UsedFile>& files);

    Canvas canvas_;
    RenderLog log_;
    std::string path_;
    StillImageCache images_;
    std::shared_ptr<DeviceDarkroom> darkroom_;
    ScreenShelf screens_;
    std::vector<KeptLayer> layersBefore_, layers_;   // of the last build and of this one
    std::vector<KeptBackground> backgroundsBefore_, backgrounds_;
    std::vector<KeptTransition> transitionsBefore_, transitions_;
    std::uint64_t lastID_ = 0;
};

}   // namespace tavix
