#include "TavixRecorder/Driver/Recorder.h"

#include "TavixCore/Support/Document.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixRecorder/Browser/Base64.h"
#include "TavixRecorder/Browser/Browser.h"
#include "TavixRecorder/Driver/StepPlayer.h"
#include "TavixRecorder/Driver/Take.h"
#include "TavixRecorder/Film/Film.h"
#include "TavixRecorder/Page/SiteFolder.h"
#include "TavixReel/Recording/SyncFlash.h"
#include "TavixReel/Recording/TimelineBuilder.h"
#include "TavixRender/Encoding/RenderStopped.h"

#include <algorithm>
#include <cmath>
#include <system_error>

namespace tavix::recorder {

namespace {

// Something to look at before the first step and after the last one.
constexpr double leadInSec = 0.5, leadOutSec = 0.8;
constexpr int mostAttempts = 3;

struct Address {
    std::optional<SiteFolder> site;
    std::string url, origin;
};

Address addressOf(const std::string& given) {
    if (const auto origin = originOf(given)) return {std::nullopt, given, *origin};
    if (given.find("://") != given.npos || given.starts_with("data:"))
        throw Failure(
            "\"" + given.substr(0, 80) +
            "\" cannot be recorded; give an address that begins with http:// or https://, or the page's file or folder.");
    Address address{SiteFolder(given), {}, std::string(SiteFolder::origin)};
    address.url = address.site->startUrl();
    return address;
}

// The page that the flow begins on, where it names one.
std::string urlOf(const Address& address, const EntryPoint& entry, std::vector<std::string>& notes) {
    const std::string& view = entry.rootViewType;
    if (view.starts_with('/')) return address.origin + view;
    if (view.starts_with('#') || view.starts_with('?'))
        return address.url.substr(0, address.url.find_first_of(view.front() == '#' ? "#" : "?#")) + view;
    if (!view.empty())
        notes.push_back(
            "entry.rootViewType \"" + view +
            "\" is no place of a site, as /, ?tab=1 or #today are; the address was opened as it is.");
    return address.url;
}

Json initialState(const FlowSpec& flow) {
    return flow.entry.initialState ? writeValue(typeOf<MockState>(), &*flow.entry.initialState) : Json();
}

StageSettings stageSettings(const RecorderSettings& settings, std::string url) {
    const auto points = [&](int pixels) {
        return static_cast<int>(std::ceil(pixels / settings.pixelsPerPoint - 1e-6));
    };
    return {.url = std::move(url),
        .widthPt = points(settings.sizePx.width),
        .heightPt = points(settings.sizePx.height),
        .pixelsPerPoint = settings.pixelsPerPoint,
        .fps = settings.fps,
        .hand = settings.hand,
        .drawingBoundSec = settings.drawingBoundSec,
        .initialState = initialState(settings.flow)};
}

std::string pngOf(const Stage& stage) {
    const auto bytes = fromBase64(stage.lastFrame());
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

class Session {
public:
    Session(const RecorderSettings& settings, Stage& stage, Film& film)
        : settings_(settings), take_(stage, film), player_(take_, {.patienceSec = settings.patienceSec,
                                                                      .areMarked = settings.hasMarks,
                                                                      .paceSeed = settings.flow.name}) {}

    DoneReport play() {
        flash();
        take_.hold(leadInSec);
        const auto& steps = settings_.flow.steps;
        for (std::size_t i = 0; i < steps.size(); ++i) {
            step(steps[i], i);
            if (settings_.onProgress) settings_.onProgress(double(i + 1) / double(steps.size() + 1));
        }
        take_.hold(leadOutSec);
        report_.flowEnd = take_.nowSec();
        flash();
        report_.displayScale = settings_.pixelsPerPoint;
        report_.logicalSize =
            LogicalSize{double(take_.stage().settings().widthPt), double(take_.stage().settings().heightPt)};
        return report_;
    }

    const std::vector<std::string>& notes() const { return player_.notes(); }

private:
    void flash() {
        if (!settings_.hasMarks) return;
        take_.setFlash(true);
        take_.hold(std::ceil(SyncFlash::holdMs / 1000.0 * settings_.fps) / settings_.fps);
        take_.setFlash(false);
    }

    void step(const Step& step, std::size_t position) {
        try {
            report_.steps.push_back(player_.play(step));
        } catch (const RenderStopped&) {
            throw;
        } catch (const StandStill&) {
            throw;
        } catch (const Failure& failure) {
            throw StepFailure(position, failure.message(), pngOf(take_.stage()));
        }
        if (settings_.snapshots)
            writeBytesAtomically(
                pngOf(take_.stage()), *settings_.snapshots / ("step-" + std::to_string(step.index) + ".png"));
    }

    const RecorderSettings& settings_;
    Take take_;
    StepPlayer player_;
    DoneReport report_;
};

Recording recordOnce(const RecorderSettings& settings, const std::stop_token& stop) {
    Recording recording;
    const Address address = addressOf(settings.address);
    const std::string url = urlOf(address, settings.flow.entry, recording.notes);
    AllowedOrigins origins(address.origin, settings.allowed);
    if (Browser::runsWithoutSandbox())
        recording.notes.push_back(
            "The browser runs without its sandbox, as it must for root; record pages that you trust.");
    Browser browser(
        {.program = settings.browser, .pixelsPerPoint = settings.pixelsPerPoint, .hosts = origins.hosts()},
        stop);
    Stage stage(
        browser.devTools(), stageSettings(settings, url), origins, address.site ? &*address.site : nullptr);
    stage.open();
    const FrameTimes times(settings.fps);
    Film film({.file = settings.video,
        .sizePx = settings.sizePx,
        .pixelsPerPoint = settings.pixelsPerPoint,
        .fps = settings.fps,
        .lagFrames = settings.hasMarks ? times.framesIn(StepPlayer::calmSec) + 4 : 0});
    Session session(settings, stage, film);
    const DoneReport report = session.play();
    film.finish();
    const Timeline::Video video{settings.sizePx.width + settings.sizePx.width % 2,
        settings.sizePx.height + settings.sizePx.height % 2, double(settings.fps)};
    recording.timeline = TimelineBuilder::build(report, 0, video, 1);
    recording.frameCount = film.frameCount();
    std::ranges::copy(session.notes(), std::back_inserter(recording.notes));
    std::ranges::copy(stage.notes(), std::back_inserter(recording.notes));
    return recording;
}

}   // namespace

// The same flow gives the same film, so one that a standstill cut off is made from its beginning.
Recording record(const RecorderSettings& settings, const std::stop_token& stop) try {
    for (int attempt = 1;; ++attempt) {
        try {
            Recording recording = recordOnce(settings, stop);
            if (attempt > 1)
                recording.notes.push_back("The browser stood still, so the recording was begun " +
                                          std::to_string(attempt) + " times.");
            return recording;
        } catch (const StandStill& standStill) {
            if (attempt == mostAttempts)
                throw Failure(standStill.message() + " The recording was begun " + std::to_string(attempt) +
                              " times; try it again when the machine has less to do.");
        }
    }
} catch (const std::system_error& error) {
    throw Failure(std::string(error.what()) + ".");
}

}   // namespace tavix::recorder
