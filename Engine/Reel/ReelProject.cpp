#include "Engine/Reel/ReelProject.h"

#include "Engine/System/Errors.h"
#include "TavixCore/Project/BundlePath.h"
#include "TavixCore/Support/Document.h"
#include "TavixReel/Authoring/TeaserAuthor.h"
#include "TavixReel/Project/ReelProjectBundle.h"
#include "TavixRender/Encoding/FilmWriter.h"

#include <functional>
#include <string>
#include <system_error>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

void requireFreshProject(const fs::path& bundle) {
    const std::string extension = std::string(".").append(ReelProjectBundle::pathExtension);
    if (lastComponent(bundle).extension() != extension)
        throw UsageError("A reel's bundle has a name that ends in " + extension + "; call it \"" +
                         lastComponent(bundle).string() + extension + "\".");
    if (fs::exists(fs::symlink_status(bundle)))
        throw Failure("\"" + bundle.string() + "\" is there already and is left alone; choose another name.");
}

// What `fill` leaves unfinished is removed with the folder.
void make(const fs::path& bundle, const std::function<void()>& fill) {
    requireFreshProject(bundle);
    std::error_code error;
    fs::create_directories(bundle, error);
    if (error) throw Failure("Cannot make \"" + bundle.string() + "\": " + error.message() + ".");
    try {
        fill();
    } catch (...) {
        fs::remove_all(bundle, error);
        throw;
    }
}

void copyFile(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::copy_file(from, to, error);
    if (error) throw Failure("Cannot copy \"" + from.string() + "\": " + error.message() + ".");
}

// Nothing of it is seen, so it is as small as a film can be.
void writeBlankRecording(const fs::path& video) {
    constexpr imaging::Size size{64, 64};
    const imaging::Image black =
        imaging::Image::solid(imaging::Color::black()).cropped({0, 0, size.width, size.height});
    const FrameRate fps = 30;
    imaging::Evaluator evaluator;
    FilmWriter::write(
        {size, fps, FilmWriter::frameCount(TeaserAuthor::sourceSeconds, fps), [&](double) { return black; }},
        {.output = video, .container = ExportContainer::mov}, evaluator, {});
}

}   // namespace

void writeProject(const fs::path& bundle, const ReelProjectParts& parts) {
    make(bundle, [&] {
        if (parts.sidecar) copyFile(*parts.sidecar, bundle / ReelProjectBundle::timelineName);
        if (parts.flow) copyFile(*parts.flow, bundle / ReelProjectBundle::flowName);
        copyFile(parts.video, bundle / ReelProjectBundle::rawVideoName);
    });
}

fs::path writeCardProject(const fs::path& bundle, const EffectsSpec& spec) {
    make(bundle, [&] {
        writeFile(spec, bundle / ReelProjectBundle::effectsName);
        writeBlankRecording(bundle / ReelProjectBundle::rawVideoName);
    });
    return bundle / ReelProjectBundle::effectsName;
}

}   // namespace tavix::engine
