#include "Engine/Output/OutputChoice.h"

#include "Engine/Output/OutputPath.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Support/Names.h"
#include "TavixRender/Encoding/FrameNames.h"
#include "TavixRender/Export/HardwareFilm.h"

namespace tavix::engine {

namespace {

// What the extension of a file says about what is in it.
struct Kind {
    ExportFormat format;
    ExportContainer container;   // of a video
};

std::string extensionOf(const Kind& kind) {
    return "." +
           std::string(kind.format == ExportFormat::video ? nameOf(kind.container) : nameOf(kind.format));
}

Kind kindOfExtension(const std::filesystem::path& path) {
    for (const Kind kind :
        {Kind{ExportFormat::video, ExportContainer::mp4}, Kind{ExportFormat::video, ExportContainer::mov},
            Kind{ExportFormat::video, ExportContainer::webm}, Kind{ExportFormat::gif, {}},
            Kind{ExportFormat::webp, {}}, Kind{ExportFormat::png, {}}})
        if (lowerExtension(path) == extensionOf(kind)) return kind;
    throw UsageError("\"" + path.string() +
                     "\" has an extension that is not written; use .mp4, .mov, .webm, .gif, .webp or .png.");
}

bool asksForAlphaInWebm(const OutputRequest& request) { return request.codec == VideoCodec::vp9Alpha; }

bool asksForProRes(const OutputRequest& request) { return request.codec && isProRes(*request.codec); }

// The kind that the flags alone ask for.
Kind kindOfFlags(const OutputRequest& request) {
    if (request.format && *request.format != ExportFormat::video) {
        const auto refuse = [&](const std::string& flag) {
            throw UsageError(flag + " is for video, and a " + std::string(displayName(*request.format)) +
                             " has none; drop one of the two.");
        };
        if (request.codec) refuse("--codec");
        if (request.container) refuse("--container");
        return {*request.format, {}};
    }
    if (asksForProRes(request) && request.container == ExportContainer::mp4)
        throw UsageError("ProRes is written to QuickTime files only; use --container mov.");
    if (asksForAlphaInWebm(request) &&
        request.container.value_or(ExportContainer::webm) != ExportContainer::webm)
        throw UsageError(
            "VP9 keeps alpha in WebM files only; use --container webm, or --codec prores4444 in .mov.");
    const auto byCodec = asksForProRes(request)        ? ExportContainer::mov
                         : asksForAlphaInWebm(request) ? ExportContainer::webm
                                                       : ExportContainer::mp4;
    return {ExportFormat::video, request.container.value_or(byCodec)};
}

[[noreturn]] void failWithConflict(const std::filesystem::path& path, const std::string& wish) {
    throw UsageError("\"" + path.string() + "\" does not go with " + wish + "; change the one or the other.");
}

// WebM takes open codecs alone, and QuickTime does not know them.
void requireRoomFor(
    const std::optional<VideoCodec>& codec, ExportContainer container, const std::filesystem::path& path) {
    if (!codec) return;
    const bool isOpen =
        *codec == VideoCodec::vp9 || *codec == VideoCodec::vp9Alpha || *codec == VideoCodec::av1;
    const std::string name(displayName(*codec));
    if (codec == VideoCodec::vp9Alpha && container != ExportContainer::webm)
        failWithConflict(path, name + ", which is written to .webm files only");
    if (isOpen && container == ExportContainer::mov)
        failWithConflict(path, name + ", which is written to .mp4 and .webm files");
    if (!isOpen && container == ExportContainer::webm)
        failWithConflict(path, name + ", which is not written to .webm files");
}

void requireAgreement(
    const OutputRequest& request, const Kind& asked, const std::filesystem::path& path, const Kind& named) {
    if (request.format && named.format != asked.format)
        failWithConflict(path, "--format " + std::string(nameOf(*request.format)));
    if (named.format != ExportFormat::video) {
        if (request.codec) failWithConflict(path, "--codec, which is for video");
        if (request.container) failWithConflict(path, "--container, which is for video");
        return;
    }
    if (request.container && named.container != *request.container)
        failWithConflict(path, "--container " + std::string(nameOf(*request.container)));
    if (asksForProRes(request) && named.container != ExportContainer::mov)
        failWithConflict(path, "ProRes, which is written to .mov files only");
    requireRoomFor(request.codec, named.container, path);
}

// Pictures go into a folder, or under names that have a place for their number.
std::filesystem::path picturesPath(const OutputRequest& request, const std::string& documentName) {
    if (!request.output) return std::filesystem::path(documentName + "-frames") / FrameNames::usual;
    const std::filesystem::path given = *request.output;
    if (lowerExtension(given) != ".png") return given / FrameNames::usual;
    if (FrameNames::parsed(given)) return given;
    throw UsageError("\"" + given.string() + "\" is one picture, and a film has many: number them, as in \"" +
                     (given.parent_path() / given.stem() / FrameNames::usual).string() + "\".");
}

// A folder has no extension; what has another one than pictures is no place for them.
bool asksForPictures(const OutputRequest& request) {
    if (!request.output) return request.format == ExportFormat::png;
    const std::string extension = lowerExtension(*request.output);
    if (extension == ".png") return request.format.value_or(ExportFormat::png) == ExportFormat::png;
    const bool isName = !request.output->empty() && *request.output != "-";
    return request.format == ExportFormat::png && extension.empty() && isName;
}

}   // namespace

namespace {

// An encoder has one codec, which need not be asked for too.
OutputRequest withItsCodec(OutputRequest request) {
    if (!request.hardware) return request;
    if (request.format.value_or(ExportFormat::video) != ExportFormat::video)
        throw UsageError("--encoder is for video, and a " + std::string(displayName(*request.format)) +
                         " has none; drop one of the two.");
    const VideoCodec codec = HardwareFilm::codecOf(*request.hardware);
    if (request.codec.value_or(codec) != codec)
        throw UsageError("--encoder " + request.hardware->name + " writes " +
                         std::string(displayName(codec)) + " and not " +
                         std::string(displayName(*request.codec)) + "; drop --codec, or choose another.");
    request.codec = codec;
    return request;
}

}   // namespace

OutputChoice chooseOutput(const OutputRequest& wishes, const std::string& documentName) {
    const OutputRequest request = withItsCodec(wishes);
    const Kind asked = kindOfFlags(request);
    const std::filesystem::path target = asksForPictures(request)
                                             ? picturesPath(request, documentName)
                                             : outputPath(request.output, documentName, extensionOf(asked));
    const Kind named = kindOfExtension(target);
    requireAgreement(request, asked, target, named);
    const bool isWebm = named.format == ExportFormat::video && named.container == ExportContainer::webm;
    const VideoCodec usual = isWebm ? VideoCodec::vp9 : VideoCodec::h264;
    return {target, named.format, request.codec.value_or(usual), named.container, request.hardware};
}

}   // namespace tavix::engine
