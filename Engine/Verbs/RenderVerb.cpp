#include "Engine/Verbs/RenderVerb.h"

#include "Engine/Arguments.h"
#include "Engine/AssetFiles.h"
#include "Engine/Errors.h"
#include "Engine/Findings.h"
#include "Engine/FinishedFile.h"
#include "Engine/Interruption.h"
#include "Engine/SystemWatch.h"
#include "Engine/Terminal.h"
#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Names.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/ExportGeometry.h"

#include <utility>
#include <vector>

namespace tavix::engine {

namespace {

template <NamedEnum E> std::vector<std::pair<std::string_view, E>> wordsOf() {
    std::vector<std::pair<std::string_view, E>> words;
    for (const E value : allCases<E>()) words.emplace_back(nameOf(value), value);
    return words;
}

// A rate that can be rendered.
FrameRate rateNamed(const std::string& text) {
    const std::optional<FrameRate> rate = FrameRate::parsed(text);
    if (!rate || *rate < minFps || FrameRate(maxFps) < *rate)
        throw UsageError("--fps takes frames a second from " + std::to_string(minFps) + " to " +
                         std::to_string(maxFps) + ", as in 30, 29.97 or 30000/1001, not \"" + text + "\".");
    return *rate;
}

JsonObject resultOf(const CompositionRenderer::Config& config, const std::filesystem::path& target) {
    const CompositionOutput& output = config.spec.output;
    const std::int64_t frames = CompositionRenderer::frameCount(config.spec);
    return JsonObject{{"output", target.string()}, {"frames", frames}, {"seconds", output.fps.secAt(frames)},
        {"widthPx", output.widthPx}, {"heightPx", output.heightPx},
        {"fps", Codec<FrameRate>::write(output.fps)}, {"sizeBytes", fileSize(target)}};
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
    arguments.value(
        "--fps", "N", [this](const std::string& text) { fps_ = rateNamed(text); },
        "Frames a second, as in 30, 29.97 or 30000/1001; the document's own by default.");
    arguments.flag("--no-lint", isUnjudged_, "Render a document that has errors, as well as it goes.");
    arguments.quietFlag(terminal);
    arguments.jsonFlag(terminal);
}

CompositionSpec RenderVerb::scaledSpec(const DocumentFile& document, ExportFormat format) const {
    if (format == ExportFormat::gif && fps_ && FrameRate(ReelExporter::animatedFpsCap) < *fps_)
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
    return scaledExportSpec(document.spec, size, ReelExporter::targetFps(fps_.value_or(output.fps), format));
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
        requirePassing(document);
    requireRenderable(document);
    const OutputChoice choice = chooseOutput(request_, document.name);
    requireNoAsset(choice.target, document);
    CompositionRenderer::Config config = this->config(document, choice);
    const SystemWatch::Task task("to render the film");
    writeFinished(choice.target, interruption, [&](const std::filesystem::path& unfinished) {
        config.output = unfinished;
        CompositionExport::write(
            config, terminal.log(), [&](double fraction) { terminal.progress(fraction); },
            interruption.token());
    });
    terminal.tell("✓ Wrote " + choice.target.string());
    if (terminal.mode() == Terminal::Mode::json) terminal.report(resultOf(config, choice.target));
}

}   // namespace tavix::engine
