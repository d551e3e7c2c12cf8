#include "Engine/Reel/ReelFilmFile.h"

#include "TavixReel/Project/ReelAssets.h"
#include "TavixReelRender/Export/ReelExport.h"

namespace tavix::engine {

void renderReel(const ReelDocument& reel, const ReelFilmWishes& wishes, const FilmRender::Tellers& tellers) {
    requireRenderable(reel);
    const OutputChoice choice = wishes.film.choose(reel.name);
    requireNoPart(choice.target, reel);
    const imaging::Size size = wishes.film.size(reel.size(), choice.format);
    const ReelExport::Config config{.spec = ReelAssets::scaled(reel.spec, size.width, size.height),
        .footage = reel.footage(),
        .assetRoot = reel.assetRoot,
        .fps = wishes.film.rate(reel.spec.output.fps, choice.format),
        .file = wishes.film.file(choice, choice.target)};
    wishes.render.write(ReelExport::filmOf(config), choice, tellers);
}

}   // namespace tavix::engine
