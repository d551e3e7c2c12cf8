#include "TavixAgent/Document/DocumentFile.h"

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixAgent/Document/DocumentLimits.h"
#include "TavixCore/Project/BundlePath.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Project/CompositionProjectService.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Export/CompositionRenderer.h"

#include <cstdint>
#include <string_view>
#include <system_error>

namespace tavix {

namespace {

namespace fs = std::filesystem;

bool isFolder(const fs::path& path) {
    std::error_code unreadable;
    return fs::is_directory(path, unreadable);
}

// A bundle's document may be named in place of the bundle.
fs::path bundleOf(const fs::path& given) {
    if (isFolder(given)) return fs::absolute(given).lexically_normal();
    const fs::path folder = given.has_parent_path() ? given.parent_path() : fs::path(".");
    const bool isItsDocument = given.filename() == CompositionProjectBundle::specName;
    return isItsDocument && CompositionProjectBundle::isBundle(fs::absolute(folder)) ? fs::absolute(folder)
                                                                                     : fs::path();
}

fs::path assetRootOf(const CompositionSpec& spec, const fs::path& file) {
    const fs::path folder = fs::absolute(file).parent_path();
    return spec.assetRoot ? folder / *spec.assetRoot : folder;   // an absolute one stands alone
}

constexpr std::string_view notRenderable = "not-renderable";

DocumentFile decoded(const std::string& given) {
    try {
        if (const fs::path bundle = bundleOf(given); !bundle.empty()) {
            CompositionSpec spec = CompositionProjectService::load(bundle).spec;
            const std::string name = lastComponent(bundle).stem().string();
            return {given, name, bundle, bundle, std::move(spec), CompositionProjectBundle::specFile(bundle)};
        }
        CompositionSpec spec = decodeFile<CompositionSpec>(given);
        const fs::path assetRoot = assetRootOf(spec, given);
        return {given, fs::path(given).stem().string(), fs::absolute(given).parent_path(), assetRoot,
            std::move(spec), given};
    } catch (const DecodingError& error) {
        throw DocumentError(given, error.path(), error.message());
    }
}

}   // namespace

DocumentFile readDocument(const std::string& given) {
    DocumentFile document = decoded(given);
    requireBounded(document);
    return document;
}

void requireRenderable(const FilmClaim& film) {
    const auto requireSide = [&](const char* path, std::int64_t sidePx) {
        if (sidePx < minSidePx || sidePx > maxSidePx)
            throw DocumentError(film.file, path,
                std::to_string(sidePx) + " pixels cannot be rendered; use " + std::to_string(minSidePx) +
                    " to " + std::to_string(maxSidePx) + " pixels.",
                notRenderable);
    };
    requireSide("output.widthPx", film.widthPx);
    requireSide("output.heightPx", film.heightPx);
    if (film.fps < minFps || FrameRate(maxFps) < film.fps)
        throw DocumentError(film.file, "output.fps",
            film.fps.shown() + " frames a second cannot be rendered; use " + std::to_string(minFps) + " to " +
                std::to_string(maxFps) + " frames a second.",
            notRenderable);
    if (!(film.lengthSec <= maxHours * 3600))
        throw DocumentError(film.file, film.lengthPath,
            "The film would be longer than " + std::to_string(int(maxHours)) + " hours, which is the most; " +
                film.lengthRemedy + ".",
            notRenderable);
}

void requireRenderable(const DocumentFile& document) {
    const CompositionOutput& output = document.spec.output;
    requireRenderable({document.shownPath, output.widthPx, output.heightPx, output.fps,
        CompositionTimeline(document.spec).totalSec, "scenes", "shorten its scenes"});
    if (CompositionRenderer::frameCount(document.spec) < 1)
        throw DocumentError(document.shownPath, "scenes",
            "The film would have no frames; add a scene and give it a durationSec.", notRenderable);
}

}   // namespace tavix
