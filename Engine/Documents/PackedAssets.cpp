#include "Engine/Documents/PackedAssets.h"

#include "Engine/Console/Terminal.h"
#include "Engine/Documents/AssetFiles.h"
#include "Engine/System/Errors.h"
#include "Engine/System/SystemWatch.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Time/CompositionMarks.h"
#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixReel/Project/ReelProjectBundle.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <system_error>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

bool hasPicture(const fs::path& file) {
    media::VideoFile film(file);
    const auto frames = film.framesFrom(0, std::numeric_limits<double>::infinity(), media::Pace::onDemand);
    return frames->next().has_value();
}

// Why the file is not of that kind; nothing when it is.
std::optional<std::string> faultOf(AssetKind kind, const fs::path& file) try {
    switch (kind) {
    case AssetKind::picture: media::loadStillImage(file); return std::nullopt;
    case AssetKind::clip:
    case AssetKind::recording:
        if (hasPicture(file)) return std::nullopt;
        return "No picture of the film \"" + file.string() + "\" can be decoded.";
    case AssetKind::reel:
        if (!ReelProjectBundle::isBundle(file))
            return "\"" + file.string() + "\" is no reel: a folder with a " +
                   std::string(ReelProjectBundle::rawVideoName) + ", whose name ends in ." +
                   std::string(ReelProjectBundle::pathExtension) + ".";
        return faultOf(AssetKind::clip, ReelProjectBundle::parts(file).rawVideo);
    case AssetKind::sound:
        if (media::probeAudio(file)) return std::nullopt;
        return "There is no sound in \"" + file.string() + "\".";
    case AssetKind::font:
    case AssetKind::wishedFont: break;
    }
    if (text::FontBook(std::vector<fs::path>{}).withFile(file)) return std::nullopt;
    return "\"" + file.string() + "\" is not a font.";
} catch (const media::MediaError& error) {
    return error.what();
}

void requireDecodable(const AssetFile& asset) {
    const SystemWatch::Task task("to read \"" + asset.path.filename().string() + "\"");
    if (asset.kind != AssetKind::reel && !isFile(asset.path)) return;
    if (const auto fault = faultOf(asset.kind, asset.path))
        throw Failure(*fault + " It is not packed; name another file in the document.");
    if (asset.kind != AssetKind::recording) return;
    const fs::path marks = CompositionMarks::sidecarFile(asset.path);
    if (isFile(marks) && !CompositionMarks::loadTimeline(marks))
        throw Failure("\"" + marks.string() +
                      "\" holds no marks of a recording and is not packed; move it away from \"" +
                      asset.path.filename().string() + "\".");
}

std::string listed(const std::vector<std::string>& names) {
    std::string all;
    for (const std::string& name : names) all.append(all.empty() ? "\"" : ", \"").append(name) += "\"";
    return all;
}

}   // namespace

void requirePackable(const DocumentFile& document, OutsideFiles outside, Terminal& terminal) {
    const std::vector<AssetFile> assets = assetFilesOf(document);
    std::vector<std::string> strangers;
    for (const AssetFile& asset : assets) {
        const bool isTold = std::ranges::find(strangers, asset.path.string()) != strangers.end();
        const bool isTaken = asset.kind != AssetKind::wishedFont || isFile(asset.path);
        if (isTaken && !isTold && !isWithin(asset.path, document.folder))
            strangers.push_back(asset.path.string());
    }
    if (!strangers.empty() && outside == OutsideFiles::refused)
        throw Failure("Outside of the document's folder and not packed: " + listed(strangers) +
                      ". If they are meant, say --allow-outside.");
    for (const std::string& stranger : strangers)
        terminal.warn("packed-from-outside",
            "\"" + stranger + "\", from outside of the document's folder, is packed.", stranger);
    for (const AssetFile& asset : assets) requireDecodable(asset);
}

}   // namespace tavix::engine
