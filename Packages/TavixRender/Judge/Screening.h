// A film drawn small, for whoever judges it by its pixels.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixRender/Assets/RenderLog.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"
#include "TavixRender/Judge/ContrastRules.h"

#include <filesystem>
#include <optional>

namespace tavix {

// Within 384 x 288 pixels, and at most 60 frames a second.
CompositionSpec smallFilm(const CompositionSpec& spec);

// Used by one thread at a time. The document outlives it.
class Screening {
public:
    Screening(const CompositionSpec& small, const std::optional<std::filesystem::path>& assetRoot,
        const RenderLog& log);

    imaging::Bitmap frame(double globalSec) { return drawn(resolved_.frame(globalSec)); }
    imaging::Bitmap scene(std::size_t index, double localSec) {
        return drawn(resolved_.renderScene(index, localSec));
    }

private:
    imaging::Bitmap drawn(const imaging::Image& image);

    imaging::Evaluator evaluator_;
    Composition3DRendererPool stages_;
    ResolvedComposition resolved_;
};

// What lies under the texts of a film, by its pixels: pictures, clips, phones.
class PicturedGround {
public:
    PicturedGround(const CompositionSpec& spec, const std::optional<std::filesystem::path>& assetRoot,
        const RenderLog& log);

    // Of a scene at a time of its own, with no text in it. The result may outlive this.
    FilmJudge::GroundAt at(std::size_t scene, double localSec);

private:
    CompositionSpec small_;
    imaging::Rect canvas_;   // of the film as it is
    Screening screening_;
};

}   // namespace tavix
