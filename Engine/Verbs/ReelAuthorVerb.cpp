#include "Engine/Verbs/ReelAuthorVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Reel/ReelRecording.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Theme/BackgroundSelector.h"
#include "TavixReel/Authoring/ThemeAuthor.h"
#include "TavixReel/Camera/EffectsAuthor.h"
#include "TavixReel/Captions/CaptionAuthor.h"
#include "TavixReel/Captions/CaptionPace.h"
#include "TavixReel/Captions/CaptionRoom.h"
#include "TavixReel/Cards/TypographyAuthor.h"
#include "TavixReel/Choreography/FlowTransitions.h"
#include "TavixReel/Choreography/SideCaptionChoreography.h"
#include "TavixReel/Lint/FlowSpecLint.h"

#include <algorithm>
#include <system_error>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

// Wrong words on the command line are wrong use, whoever finds them.
auto asUsage(auto&& read) {
    try {
        return read();
    } catch (const Failure& failure) {
        throw UsageError(failure.message());
    }
}

Json jsonOf(const std::vector<std::string>& lines) {
    JsonArray all;
    for (const std::string& line : lines) all.emplace_back(line);
    return all;
}

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

MotionSpec motionOf(const FlowSpec* flow) {
    return flow && flow->motion ? *flow->motion : MotionSpec::smoothGlide;
}

}   // namespace

void ReelAuthorVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("recording", recording_,
        "A .tavixproj bundle, or a video with its sidecar beside it.",
        "reel author needs a recording: a .tavixproj bundle or a video.");
    arguments.text("--flow", flow_, "FILE", "The flow that was driven. The bundle's own by default.");
    arguments.choice<ReelFormat>("--format", format_,
        {{"deviceNative", ReelFormat::deviceNative}, {"vertical", ReelFormat::vertical},
            {"horizontal", ReelFormat::horizontal}},
        "The frame; as large as the recording by default.");
    arguments.text("--background", background_, "SELECTOR",
        "A background's name, a colour, gradient[:<hex>,<hex>[@angle]] or a picture.");
    arguments.text(
        "--typography", typography_, "VALUE", "auto, on, off, an intensity, or PRESET[:INTENSITY].");
    brand_.declare(arguments);
    arguments.flag("--captions", captions_, "Write a caption for each step that the camera goes to.");
    arguments.text("-o,--output", output_, "FILE", "The document. Where the recording keeps it by default.");
    arguments.flag("--replace", replaces_, "Replace a document that is there already.");
    arguments.jsonFlag(terminal);
}

std::optional<FlowSpec> ReelAuthorVerb::flow(const ReelRecording& recording, Terminal& terminal) const {
    std::error_code ignored;
    if (!flow_ && !fs::is_regular_file(recording.parts.flow, ignored)) return std::nullopt;
    const fs::path file = flow_ ? fs::path(*flow_) : recording.parts.flow;
    FlowSpec read = readFlow(file, terminal);
    for (const auto& finding : FlowSpecLint::lint(read))
        terminal.warn(Finding::warning(finding.code, finding.message, file.string()),
            file.string() + ": " + finding.message);
    return read;
}

// A picture is looked for where the document is, so its path is told from there.
Background ReelAuthorVerb::background(const fs::path& target) const {
    Background background;
    if (!background_) return background;
    background.fill = asUsage([&] { return BackgroundSelector::resolve(*background_); });
    auto* image = std::get_if<BackgroundImage>(&background.fill);
    if (!image || !image->path) return background;
    std::error_code error;
    if (!fs::is_regular_file(*image->path, error))
        throw Failure("The background \"" + *image->path + "\" is no file that can be read.");
    const fs::path folder = fs::absolute(target).parent_path();
    const fs::path relative = fs::proximate(fs::absolute(*image->path), folder, error);
    const bool isInside = !error && !relative.empty() && *relative.begin() != "..";
    image->path = isInside ? relative.generic_string() : fs::absolute(*image->path).generic_string();
    return background;
}

// A background that was asked for stays, and a reel without captions remains without them.
void ReelAuthorVerb::theme(EffectsSpec& spec) const {
    const BackgroundFill fill = spec.background.fill;
    const bool hasNarration = spec.narration.has_value();
    const BrandKit brand = *spec.brand;   // the document moves
    spec = ThemeAuthor::apply(brand, std::move(spec));
    if (background_) spec.background.fill = fill;
    if (!hasNarration) spec.narration.reset();
}

void ReelAuthorVerb::addCaptions(
    EffectsSpec& spec, const ReelRecording& recording, const FlowSpec* flow, Words& words) const {
    const CaptionAuthor::Options options;
    spec.narration =
        CaptionAuthor::author(flow, recording.timeline, motionOf(flow), options, ProvidedCopySource());
    if (!spec.narration) words.notes.push_back("No hero beats to caption.");
}

void ReelAuthorVerb::addTypography(
    EffectsSpec& spec, const ReelRecording& recording, const FlowSpec* flow, Words& words) const {
    const auto override = asUsage([&] { return TypographyOverride::parse(typography_.value_or("auto")); });
    const auto directives = TypographyResolver::resolve(flow, override, false);
    const bool movesPhone = !directives || directives->phoneChoreography != "off";
    if (spec.output.isLandscape() && spec.narration && movesPhone) {
        spec.sideCaptions.emplace().firstParkLeft =
            SideCaptionChoreography::seededFirstParkLeft(SideCaptionChoreography::seed(*spec.narration));
        SideCaptionChoreography::replanForLandscape(spec);
    }
    if (!directives) return;
    auto report = TypographyAuthor::apply(spec, *directives, flow, recording.timeline);
    if (spec.sideCaptions) SideCaptionChoreography::replanForLandscape(spec);
    std::ranges::move(report.notes, std::back_inserter(words.notes));
    std::ranges::move(report.errors, std::back_inserter(words.errors));
}

EffectsSpec ReelAuthorVerb::author(
    const ReelRecording& recording, const FlowSpec* flow, const fs::path& target, Words& words) const {
    EffectsSpec spec = EffectsAuthor::author(
        recording.timeline, background(target), motionOf(flow), format_.value_or(ReelFormat::deviceNative));
    spec.brand = brand_.read(words.notes);
    if (flow) spec.setTransitions(transitionsOf(*flow, recording.timeline));
    if (captions_) addCaptions(spec, recording, flow, words);
    CaptionPace::keepUnderCaptions(spec);
    CaptionRoom::makeBelow(spec);
    if (spec.brand) theme(spec);
    addTypography(spec, recording, flow, words);
    CaptionRoom::seatBelow(spec);
    return spec;
}

void ReelAuthorVerb::run(Terminal& terminal) {
    asUsage(
        [&] { return TypographyOverride::parse(typography_.value_or("auto")); });   // before the long part
    const ReelRecording recording = openRecording(recording_, terminal);
    const fs::path file = newDocument(output_, recording.parts.effects, replaces_);
    const std::optional<FlowSpec> driven = flow(recording, terminal);
    if (!recording.hasSidecar)
        terminal.warn("no-sidecar",
            "There is no sidecar \"" + recording.parts.timeline.string() + "\", so the camera stands still.");
    Words words;
    const EffectsSpec spec = author(recording, driven ? &*driven : nullptr, file, words);
    writeFile(spec, file);
    for (const std::string& note : words.notes) terminal.tell("  " + note);
    for (const std::string& error : words.errors) terminal.complain(error);
    const std::size_t captions = spec.narration ? spec.narration->captions.size() : 0;
    terminal.tell("✓ Wrote " + file.string() + ": " + counted(spec.cameraTrack.size(), "camera keyframe") +
                  ", " + counted(captions, "caption") + ", " + counted(spec.titleCards.size(), "card") +
                  ", " + counted(spec.cuts.size() + spec.retimeTrack.size(), "shortened gap"));
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report({{"output", file.string()}, {"cameraKeyframes", spec.cameraTrack.size()},
            {"captions", captions}, {"cards", spec.titleCards.size()}, {"cuts", spec.cuts.size()},
            {"retimes", spec.retimeTrack.size()}, {"transitions", spec.transitions().size()},
            {"notes", jsonOf(words.notes)}, {"errors", jsonOf(words.errors)}});
}

}   // namespace tavix::engine
