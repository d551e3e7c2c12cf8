#include "Engine/Verbs/RenderVerb.h"

#include "Engine/Arguments.h"
#include "Engine/Errors.h"
#include "Engine/Findings.h"
#include "Engine/FinishedFile.h"
#include "Engine/Interruption.h"
#include "Engine/RenderNotes.h"
#include "Engine/Terminal.h"
#include "TavixCore/Support/Names.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/ExportGeometry.h"
#include "TavixRender/Export/FrameSequenceEncoder.h"

#include <cmath>
#include <utility>
#include <vector>

namespace tavix::engine {

namespace {

template <NamedEnum E> std::vector<std::pair<std::string_view, E>> wordsOf() {
    std::vector<std::pair<std::string_view, E>> words;
    for (const E value : allCases<E>()) words.emplace_back(nameOf(value), value);
    return words;
}

std::string fast(int percent) { return std::to_string(percent) + "% fast"; }

void warnOfHaste(int fps, RenderNotes& notes) {
    const double stampedFps =
        double(FrameSequenceEncoder::timescale) / (FrameSequenceEncoder::timescale / fps);
    const int percent = static_cast<int>(std::lround((stampedFps / fps - 1) * 100));
    if (percent >= 1)
        notes.warn(
            "At " + std::to_string(fps) + " frames a second the film runs " + fast(percent) +
            ", because frames stand at whole 1/600 seconds; 24, 25, 30, 50, 60, 100 and 120 are exact.");
}

Json resultOf(const CompositionRenderer::Config& config, const std::filesystem::path& target,
    const RenderNotes& notes) {
    const CompositionOutput& output = config.spec.output;
    const std::int64_t frames = CompositionRenderer::frameCount(config.spec);
    return JsonObject{{"output", target.string()}, {"frames", frames},
        {"seconds", double(frames) / double(output.fps)}, {"widthPx", output.widthPx},
        {"heightPx", output.heightPx}, {"fps", output.fps}, {"sizeBytes", fileSize(target)},
        {"warnings", notes.warnings()}};
}

}   // namespace

void RenderVerb::declare(Arguments& arguments, Terminal& terminal) {
    using media::EncodingEffort;
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "render needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.text("-o,--output", request_.output, "FILE",
        "The film; its extension tells the format. The document's name with .mp4 by default.");
    arguments.choice<EncodingEffort>("--effort", effort_,
        {{"fast", EncodingEffort::fast}, {"balanced", EncodingEffort::balanced},
            {"best", EncodingEffort::best}},
        "Quicker, or better pictures at the same bit rate.");
    arguments.choice("--format", request_.format, wordsOf<ExportFormat>(), "A film or an animated GIF.");
    arguments.choice<VideoCodec>("--codec", request_.codec,
        {{"h264", VideoCodec::h264}, {"hevc", VideoCodec::hevc}, {"prores422hq", VideoCodec::proRes422HQ},
            {"prores4444", VideoCodec::proRes4444}},
        "How the film is coded.");
    arguments.choice("--container", request_.container, wordsOf<ExportContainer>(), "The kind of film file.");
    arguments.choice<ResolutionPreset>("--resolution", resolution_,
        {{"native", ResolutionPreset::native}, {"1080p", ResolutionPreset::p1080},
            {"4k", ResolutionPreset::k4}},
        "The shorter side of the frame; the document's own by default.");
    arguments.wholeNumber(
        "--fps", fps_, minFps, maxFps, "N", "Frames a second; the document's own by default.");
    arguments.flag("--no-lint", isUnjudged_, "Render a document that has errors, as well as it goes.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

CompositionSpec RenderVerb::scaledSpec(const DocumentFile& document, ExportFormat format) const {
    if (format == ExportFormat::gif && fps_ > ReelExporter::animatedFpsCap)
        throw UsageError("A GIF shows at most " + std::to_string(ReelExporter::animatedFpsCap) +
                         " frames a second; give --fps that or less.");
    const CompositionOutput& output = document.spec.output;
    const imaging::Size native{static_cast<int>(output.widthPx), static_cast<int>(output.heightPx)};
    const imaging::Size size =
        ReelExporter::targetDimensions(native, resolution_.value_or(ResolutionPreset::native), format);
    if (std::max(size.width, size.height) > maxSidePx)
        throw UsageError("--resolution makes frames of " + std::to_string(size.width) + " × " +
                         std::to_string(size.height) + " pixels here; no side may be longer than " +
                         std::to_string(maxSidePx) + ".");
    const int fps = ReelExporter::targetFps(fps_.value_or(static_cast<int>(output.fps)), format);
    return scaledExportSpec(document.spec, size, fps);
}

CompositionRenderer::Config RenderVerb::config(
    const DocumentFile& document, const OutputChoice& choice) const {
    CompositionRenderer::Config config;
    config.spec = scaledSpec(document, choice.format);
    config.assetRoot = document.assetRoot;
    config.fileFormat = choice.format;
    config.videoCodec = choice.codec;
    config.container = choice.container;
    config.effort = effort_.value_or(media::EncodingEffort::fast);
    return config;
}

void RenderVerb::run(Terminal& terminal) {
    const Interruption interruption;
    DocumentFile document = openDocument(document_);
    if (isUnjudged_)
        resolveTimes(document);
    else
        requireSound(document);
    requireRenderable(document);
    const OutputChoice choice = chooseOutput(request_, document.name);
    CompositionRenderer::Config config = this->config(document, choice);
    RenderNotes notes(terminal);
    if (choice.format == ExportFormat::video) warnOfHaste(static_cast<int>(config.spec.output.fps), notes);
    writeFinished(choice.target, interruption, [&](const std::filesystem::path& unfinished) {
        config.output = unfinished;
        CompositionExport::write(
            config, notes.log(), [&](double fraction) { terminal.progress(fraction); }, interruption.token());
    });
    terminal.tell("✓ Wrote " + choice.target.string());
    if (terminal.mode() == Terminal::Mode::json) terminal.result(resultOf(config, choice.target, notes));
}

}   // namespace tavix::engine
