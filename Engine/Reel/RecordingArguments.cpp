#include "Engine/Reel/RecordingArguments.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/Output/FrameSize.h"
#include "Engine/Reel/ReelRecording.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixCore/Support/Document.h"
#include "TavixRecorder/Browser/Browser.h"
#include "TavixReel/Lint/FlowSpecLint.h"
#include "TavixReel/Project/ReelProjectBundle.h"

#include <cmath>
#include <system_error>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

constexpr int leastSidePx = 64, mostSidePx = 4096, mostFps = 120;
constexpr double devicePixelsPerPoint = 3;   // of every phone of the catalog
constexpr double narrowestDesktopPt = 768;   // a window less wide is worked with a finger
constexpr imaging::Size verticalSize{1170, 2532}, landscapeSize{2880, 1800};
constexpr double verticalScale = 3, landscapeScale = 2;

imaging::Size screenOf(const BundledDevice& device) {
    return {static_cast<int>(std::lround(device.screen.width * device.pictureWidthPx)),
        static_cast<int>(std::lround(device.screen.height * device.pictureHeightPx))};
}

fs::path requiredBrowser() {
    if (auto found = recorder::findBrowser()) return *found;
    throw Failure("There is no browser to record with. Install chromium-headless-shell, as with apt install "
                  "chromium-headless-shell, or name the program in the environment variable TAVIX_BROWSER.");
}

std::string originNamed(const std::string& text) {
    if (auto origin = recorder::originOf(text)) return *origin;
    throw UsageError("--allow takes an origin, as in https://fonts.example, not \"" + text + "\".");
}

std::string pictureBeside(const fs::path& bundle, const std::string& png) {
    fs::path file = bundle;
    file.replace_extension();
    file += "-failed.png";
    writeBytesAtomically(png, file);
    return file.string();
}

}   // namespace

void RecordingArguments::declare(Arguments& arguments) {
    arguments.text(
        "--url", url_, "URL", "The page: http, https, or its file or folder, which needs no server.");
    arguments.value(
        "--size", "WxH",
        [this](const std::string& text) { size_ = sizeNamed(text, leastSidePx, mostSidePx); },
        "The film's size in pixels; by the flow's aspect 1170x2532 or 2880x1800.");
    arguments.number(
        "--scale", scale_, "N", "Pixels per point of the page; 3 for a finger and 2 for a mouse by default.");
    arguments.text("--device", device_, "ID", "The screen of a phone, as tavix presets devices names it.");
    arguments.wholeNumber("--fps", fps_, 1, mostFps, "N", "Frames a second; 60 by default.");
    arguments.choice<recorder::Hand>("--hand", hand_,
        {{"finger", recorder::Hand::finger}, {"mouse", recorder::Hand::mouse}},
        "What works the page; a finger where it is narrow.");
    arguments.texts(
        "--allow", allowed_, "ORIGIN", "Another origin that the page may reach. May be repeated.");
    arguments.number("--wait", wait_, "SEC", "How long a target may take to be there; 10 by default.");
    arguments.text("--snapshots", snapshots_, "FOLDER", "Keep a picture of the page after each step there.");
    arguments.flag(
        "--marks", hasMarks_, "Flash at both ends, and mark actions and ends of motions in the corner.");
}

RecordingArguments::Frame RecordingArguments::frame(const FlowSpec& flow) const {
    if (device_ && size_) throw UsageError("--device and --size say the same; give one of them.");
    const bool isVertical = flow.output.aspect == OutputConfig::Aspect::vertical;
    Frame frame{size_.value_or(isVertical ? verticalSize : landscapeSize),
        isVertical ? verticalScale : landscapeScale};
    if (device_) {
        const BundledDevice* device = DeviceCatalog::device(*device_);
        if (!device)
            throw UsageError("There is no device \"" + *device_ + "\"; tavix presets devices lists them.");
        frame = {screenOf(*device), devicePixelsPerPoint};
    }
    if (scale_ && !(*scale_ >= 0.5 && *scale_ <= 5))
        throw UsageError("--scale takes a number from 0.5 to 5.");
    frame.pixelsPerPoint = scale_.value_or(frame.pixelsPerPoint);
    return frame;
}

recorder::RecorderSettings RecordingArguments::settings(const std::string& flow, Terminal& terminal) const {
    if (!url_) throw UsageError("--url is missing: the page to record, as in --url https://app.example.");
    if (wait_ && !(*wait_ >= 0 && *wait_ <= 600)) throw UsageError("--wait takes seconds from 0 to 600.");
    recorder::RecorderSettings settings;
    for (const std::string& origin : allowed_) settings.allowed.push_back(originNamed(origin));
    settings.flow = readFlow(flow, terminal);
    for (const auto& finding : FlowSpecLint::lint(settings.flow))
        terminal.warn(Finding::warning(finding.code, finding.message, flow), flow + ": " + finding.message);
    if (settings.flow.steps.empty()) throw DocumentError(flow, "steps", "There is no step to record.");
    const Frame frame = this->frame(settings.flow);
    settings.address = *url_;
    settings.browser = requiredBrowser();
    settings.sizePx = frame.sizePx;
    settings.pixelsPerPoint = frame.pixelsPerPoint;
    settings.fps = fps_.value_or(60);
    const bool isNarrow = frame.sizePx.width / frame.pixelsPerPoint < narrowestDesktopPt;
    settings.hand = hand_.value_or(isNarrow ? recorder::Hand::finger : recorder::Hand::mouse);
    settings.hasMarks = hasMarks_;
    settings.patienceSec = wait_.value_or(settings.patienceSec);
    if (snapshots_) {
        settings.snapshots = *snapshots_;
        std::error_code error;
        if (fs::create_directories(*snapshots_, error); !fs::is_directory(*snapshots_, error))
            throw Failure("There can be no folder \"" + *snapshots_ + "\" for snapshots.");
    }
    return settings;
}

fs::path recordingBundle(fs::path named, bool replaces) {
    const std::string extension = std::string(".").append(ReelProjectBundle::pathExtension);
    if (!named.has_filename()) named = named.parent_path();
    if (named.extension() != extension)
        throw UsageError("A recording is a bundle; give -o a name that ends in " + extension + ".");
    std::error_code ignored;
    if (fs::exists(named, ignored) && !fs::is_directory(named, ignored))
        throw UsageError("\"" + named.string() + "\" is no folder and is left alone; name another with -o.");
    if (!replaces && fs::exists(named / ReelProjectBundle::rawVideoName, ignored))
        throw Failure(
            "\"" + named.string() + "\" has a recording already; give --replace, or another name with -o.");
    return named;
}

recorder::Recording recordBundle(recorder::RecorderSettings settings, const std::string& flow,
    const fs::path& bundle, const Interruption& interruption, Terminal& terminal) {
    std::error_code ignored;
    const bool isNew = !fs::exists(bundle, ignored);
    const ReelProjectBundle::Parts parts = ReelProjectBundle::parts(bundle);
    recorder::Recording recording;
    std::optional<DocumentError> fault;   // of the flow, not of the file that is written
    settings.onProgress = [&](double fraction) { terminal.progress(fraction); };
    const SystemWatch::Task task("to record the page");
    try {
        writeFinished(
            bundle / ReelProjectBundle::rawVideoName, interruption, [&](const fs::path& unfinished) {
                settings.video = unfinished;
                try {
                    recording = recorder::record(settings, interruption.token());
                } catch (const recorder::StepFailure& failure) {
                    fault.emplace(flow, "steps[" + std::to_string(failure.position()) + "].target",
                        failure.message() + " The page as it was then is in \"" +
                            pictureBeside(bundle, failure.picturePng()) + "\".",
                        "step-failed");
                    throw;
                }
            });
        writeFile(recording.timeline, bundle / ReelProjectBundle::timelineName);
        writeFile(settings.flow, bundle / ReelProjectBundle::flowName);
    } catch (...) {
        if (isNew) fs::remove(bundle, ignored);   // where there is nothing in it
        if (fault) throw *fault;
        throw;
    }
    for (const std::string& note : recording.notes) terminal.warn("recording", note);
    return recording;
}

}   // namespace tavix::engine
