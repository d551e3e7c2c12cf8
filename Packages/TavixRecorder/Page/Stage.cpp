#include "TavixRecorder/Page/Stage.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixRecorder/Browser/Base64.h"
#include "TavixRecorder/Browser/WholeNumber.h"
#include "TavixRecorder/Page/Scripts.h"
#include "TavixRecorder/Page/SiteFolder.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace tavix::recorder {

namespace {

constexpr const char* driverWorld = "tavix";
// A noon of long ago, so that every recording shows the same date: 2025-06-02 09:41 UTC.
constexpr double pageEpochSec = 1748857260;
// Before the page is there, its clock overtakes the one of the first, empty frames; frames never go back in
// time.
constexpr double headStartMs = 2000;
// The browser cuts times off to whole microseconds, also those that only just miss the next one.
constexpr double hairMs = 0.0004;
constexpr double mostLoadingSec = 30;       // of the page's clock
constexpr double requestPatienceSec = 10;   // of ours
// Keys and buttons reach the page at once, while its time stands still; movements and touches reach it with
// the next frame, and are answered then.
constexpr double pressSec = 2, inputSec = 1;

std::string textAt(const Json& json, std::string_view key) {
    const Json* value = json.find(key);
    return value ? value->stringValue().value_or("") : "";
}

double numberAt(const Json& json, std::string_view key) {
    const Json* value = json.find(key);
    return value ? value->doubleValue().value_or(0) : 0;
}

double monotonicMs() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

double wallSec() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

Json header(const char* name, std::string value) {
    return JsonObject{{"name", name}, {"value", std::move(value)}};
}

}   // namespace

Stage::Stage(DevTools& devTools, StageSettings settings, AllowedOrigins origins, const SiteFolder* site)
    : devTools_(devTools), settings_(std::move(settings)), origins_(std::move(origins)), site_(site),
      times_(settings_.fps) {}

void Stage::note(std::string sentence) {
    if (std::ranges::find(notes_, sentence) == notes_.end()) notes_.push_back(std::move(sentence));
}

void Stage::open() {
    listen();
    prepare();
    load();
}

void Stage::listen() {
    devTools_.on("Emulation.virtualTimeBudgetExpired", [this](const Json&) { ++expired_; });
    devTools_.on("Fetch.requestPaused", [this](const Json& request) { answerRequest(request); });
    devTools_.on("Page.loadEventFired", [this](const Json&) { isLoaded_ = true; });
    devTools_.on("Inspector.targetCrashed", [](const Json&) { throw Failure("The page crashed."); });
    devTools_.on("Page.javascriptDialogOpening", [this](const Json& dialog) {
        note(
            "The page asked \"" + textAt(dialog, "message") + "\" in a dialog, which was answered with yes.");
        devTools_.post("Page.handleJavaScriptDialog", {{"accept", true}});
    });
    devTools_.on("Runtime.executionContextCreated", [this](const Json& event) {
        const Json* context = event.find("context");
        const Json* more = context ? context->find("auxData") : nullptr;
        if (!more || textAt(*context, "name") != driverWorld || textAt(*more, "frameId") != mainFrame_)
            return;
        world_ = static_cast<std::int64_t>(numberAt(*context, "id"));
    });
    devTools_.on("Runtime.executionContextsCleared", [this](const Json&) { world_.reset(); });
    devTools_.on("Network.requestWillBeSent", [this](const Json& event) {
        const Json* request = event.find("request");
        if (!request) return;
        // Streams of events end with the page, and what lies within the browser is not told to end.
        const std::string url = textAt(*request, "url");
        if (textAt(event, "type") != "EventSource" && !url.starts_with("blob:"))
            requests_[textAt(event, "requestId")] = url;
        if (textAt(event, "type") == "Document" && textAt(event, "frameId") == mainFrame_)
            pageRequest_ = textAt(event, "requestId");
    });
    devTools_.on("Network.responseReceived", [this](const Json& event) {
        const Json* response = event.find("response");
        if (response && textAt(event, "type") == "Document" && textAt(event, "frameId") == mainFrame_)
            pageStatus_ = static_cast<std::int64_t>(numberAt(*response, "status"));
    });
    devTools_.on("Network.loadingFailed", [this](const Json& event) {
        requests_.erase(textAt(event, "requestId"));
        if (textAt(event, "requestId") == pageRequest_ && !isLoaded_) loadFault_ = textAt(event, "errorText");
    });
    devTools_.on("Network.loadingFinished",
        [this](const Json& event) { requests_.erase(textAt(event, "requestId")); });
}

void Stage::prepare() {
    devTools_.call("Browser.setDownloadBehavior", {{"behavior", "deny"}});
    const Json target = devTools_
                            .call("Target.createTarget",
                                {{"url", "about:blank"}, {"width", settings_.widthPt},
                                    {"height", settings_.heightPt}, {"enableBeginFrameControl", true}})
                            .result;
    mainFrame_ = textAt(target, "targetId");   // its frame has the same name
    const Json attached =
        devTools_.call("Target.attachToTarget", {{"targetId", mainFrame_}, {"flatten", true}}).result;
    devTools_.attach(textAt(attached, "sessionId"));
    for (const char* domain : {"Page.enable", "Runtime.enable", "Network.enable", "Inspector.enable"})
        devTools_.call(domain);
    const bool isTouched = settings_.hand == Hand::finger;
    devTools_.call("Emulation.setDeviceMetricsOverride",
        {{"width", settings_.widthPt}, {"height", settings_.heightPt},
            {"deviceScaleFactor", settings_.pixelsPerPoint}, {"mobile", isTouched}});
    devTools_.call("Emulation.setTouchEmulationEnabled", {{"enabled", isTouched}});
    devTools_.call("Emulation.setFocusEmulationEnabled", {{"enabled", true}});
    devTools_.call("Network.setBypassServiceWorker", {{"bypass", true}});
    devTools_.call("Page.setInterceptFileChooserDialog", {{"enabled", true}});
    devTools_.call("Fetch.enable", {{"patterns", JsonArray{JsonObject{{"urlPattern", "*"}}}}});
    devTools_.call(
        "Page.addScriptToEvaluateOnNewDocument", {{"source", driverScript}, {"worldName", driverWorld}});
    devTools_.call("Page.addScriptToEvaluateOnNewDocument",
        {{"source", std::string(clockScript) + "(" + std::to_string(settings_.fps) + ")"}});
    const Json own = JsonObject{{"isDriven", true}, {"initialState", settings_.initialState}};
    devTools_.call(
        "Page.addScriptToEvaluateOnNewDocument", {{"source", "globalThis.tavix = " + writeJson(own)}});
    const Json began = devTools_
                           .call("Emulation.setVirtualTimePolicy",
                               {{"policy", "pause"}, {"initialVirtualTime", pageEpochSec}})
                           .result;
    // Frames lie at whole tenths of a millisecond of the machine's clock, so that none depends on when the
    // browser was started.
    const double startMs = numberAt(began, "virtualTimeTicksBase");
    baseMs_ = std::ceil((startMs + headStartMs) * 10) / 10;
    epochSec_ = std::round(wallSec() * 1000 - monotonicMs()) / 1000;
    advance(baseMs_ - startMs);
}

// Only what the origins allow goes out; what belongs to the site is answered here.
void Stage::answerRequest(const Json& event) {
    const std::string id = textAt(event, "requestId");
    const Json* request = event.find("request");
    if (!request) return;
    const std::string url = textAt(*request, "url");
    if (!origins_.allows(url)) {
        const auto origin = originOf(url);
        note(origin ? "The page asked for something at " + *origin + " and got nothing; --allow " + *origin +
                          " lets it."
                    : "The page asked for \"" + url.substr(0, 80) + "\" and got nothing.");
        devTools_.post("Fetch.failRequest", {{"requestId", id}, {"errorReason", "BlockedByClient"}});
    } else if (site_ && originOf(url) == SiteFolder::origin) {
        serve(id, url, *request);
    } else {
        devTools_.post("Fetch.continueRequest", {{"requestId", id}});
    }
}

void Stage::serve(const std::string& id, std::string_view url, const Json& request) {
    const Json* headers = request.find("headers");
    std::string range = headers ? textAt(*headers, "Range") : "";
    SiteAnswer answer = site_->answer(url, range);
    JsonArray told{header("Cache-Control", "no-store"), header("Accept-Ranges", "bytes")};
    if (!answer.contentType.empty()) told.push_back(header("Content-Type", answer.contentType));
    if (!answer.contentRange.empty()) told.push_back(header("Content-Range", answer.contentRange));
    if (answer.status == 404 && !url.ends_with("/favicon.ico"))
        note("The page asked for " + std::string(url) + ", which is not in its folder.");
    devTools_.post("Fetch.fulfillRequest", {{"requestId", id}, {"responseCode", answer.status},
                                               {"responseHeaders", told}, {"body", base64(answer.body)}});
}

void Stage::load() {
    // By a script, so that the page's clock begins by the clock that stands still, and not by the machine's.
    devTools_.post(
        "Runtime.evaluate", {{"expression", "location.replace(" + writeJson(settings_.url) + ")"}});
    // Time begins when the page answers, and not while it is asked for.
    devTools_.waitUntil([this] { return pageStatus_ || !loadFault_.empty(); }, requestPatienceSec);
    const std::int64_t most = times_.framesIn(mostLoadingSec);
    bool isSettled = false;
    for (int calm = 0; calm < 3 && frame_ < most;) {
        nextFrame();
        if (!loadFault_.empty()) throw Failure(settings_.url + " cannot be opened: " + loadFault_ + ".");
        if (pageStatus_ && *pageStatus_ >= 400)
            throw Failure(settings_.url + " answered with the status " + std::to_string(*pageStatus_) + ".");
        const Json settled = isLoaded_ && requests_.empty() ? ask("settled") : Json();
        isSettled = settled.boolean() && *settled.boolean();
        calm = isSettled && !picture_.empty() ? calm + 1 : 0;
    }
    if (!isLoaded_ || picture_.empty())
        throw Failure(settings_.url + " did not load within " + std::to_string(int(mostLoadingSec)) +
                      " seconds of its own time.");
    if (!isSettled)
        note("The page was still loading after " + std::to_string(int(mostLoadingSec)) +
             " seconds; the recording began all the same.");
}

// While requests are under way the page's clock stands still, so a slow server takes time and none of the
// film's. One that never ends, as of a stream, is waited for once.
void Stage::advance(double milliseconds) {
    const int before = expired_;
    const char* patient = "pauseIfNetworkFetchesPending";
    const auto budget = [&](const char* policy) {
        devTools_.post(
            "Emulation.setVirtualTimePolicy", {{"policy", policy}, {"budget", milliseconds + hairMs}});
    };
    budget(waitsForRequests_ ? patient : "advance");
    const auto isOver = [&] { return expired_ > before; };
    if (waitsForRequests_ && !devTools_.waitUntil(isOver, requestPatienceSec)) {
        waitsForRequests_ = false;
        for (const auto& [id, url] : requests_)
            note("A request to " + url.substr(0, 120) + " did not end; time went on without it.");
        requests_.clear();
        budget("advance");
    }
    if (!devTools_.waitUntil(isOver, DevTools::usualBoundSec))
        throw Failure("The page did not give its next frame within " +
                      std::to_string(int(DevTools::usualBoundSec)) + " seconds; a script may never end.");
}

const std::string& Stage::nextFrame() {
    ++frame_;
    const double stepMs = times_.millisecondsBefore(frame_);
    advance(stepMs);
    const int drawing = devTools_.send("HeadlessExperimental.beginFrame",
        {{"frameTimeTicks", baseMs_ + times_.millisecondsAt(frame_) + hairMs}, {"interval", stepMs},
            {"screenshot", JsonObject{{"format", "png"}, {"optimizeForSpeed", true}}}});
    if (!devTools_.waitUntil([&] { return devTools_.isAnswered(drawing); }, settings_.drawingBoundSec))
        throw StandStill(
            "The browser did not draw a frame within " + whole(settings_.drawingBoundSec) + " seconds.");
    Reply reply = devTools_.await(drawing);
    devTools_.settle(std::exchange(inputs_, {}), inputSec);
    hasChanged_ = !reply.picture.empty() && reply.picture != picture_;
    if (hasChanged_) picture_ = std::move(reply.picture);
    return picture_;
}

Json Stage::ask(std::string_view function, JsonArray arguments) {
    if (!world_) return {};
    JsonArray values{JsonObject{{"value", function}}};
    for (Json& argument : arguments) values.push_back(JsonObject{{"value", std::move(argument)}});
    Json answer;
    try {
        answer = devTools_
                     .call("Runtime.callFunctionOn",
                         {{"functionDeclaration",
                              "function(name, ...given) { return tavixDriver[name](...given) }"},
                             {"executionContextId", *world_}, {"arguments", std::move(values)},
                             {"returnByValue", true}})
                     .result;
    } catch (const Refusal&) {   // the page that was asked is no more
        return {};
    }
    if (const Json* fault = answer.find("exceptionDetails")) {
        const Json* exception = fault->find("exception");
        throw Failure("The page could not be asked (" + std::string(function) +
                      "): " + (exception ? textAt(*exception, "description") : textAt(*fault, "text")) + ".");
    }
    const Json* result = answer.find("result");
    const Json* value = result ? result->find("value") : nullptr;
    return value ? *value : Json();
}

void Stage::tell(std::string_view event, const Json& detail) {
    const std::string word = writeJson(Json(event));
    devTools_.call("Runtime.evaluate", {{"expression", "dispatchEvent(new CustomEvent(" + word +
                                                           ", {detail: " + writeJson(detail) + "}))"}});
}

// Events carry the time of the page's clock, in seconds since 1970 as this machine's clock of events counts
// them, so that speeds come out the same on every machine.
double Stage::inputTimestamp() const {
    return epochSec_ + (baseMs_ + times_.millisecondsAt(frame_) + hairMs) / 1000;
}

void Stage::touch(Phase phase, double x, double y) {
    const char* types[] = {"touchStart", "touchMove", "touchEnd"};
    JsonArray points;
    if (phase != Phase::up) points.push_back(JsonObject{{"x", x}, {"y", y}});
    inputs_.push_back(devTools_.send("Input.dispatchTouchEvent",
        {{"type", types[static_cast<int>(phase)]}, {"touchPoints", std::move(points)},
            {"timestamp", inputTimestamp()}}));
}

void Stage::mouse(Phase phase, double x, double y) {
    const char* types[] = {"mousePressed", "mouseMoved", "mouseReleased"};
    JsonObject event{{"type", types[static_cast<int>(phase)]}, {"x", x}, {"y", y}, {"button", "left"},
        {"clickCount", phase == Phase::move ? 0 : 1}, {"timestamp", inputTimestamp()},
        {"buttons", phase == Phase::up ? 0 : 1}};
    if (phase == Phase::move)
        inputs_.push_back(devTools_.send("Input.dispatchMouseEvent", std::move(event)));
    else
        devTools_.offer("Input.dispatchMouseEvent", std::move(event), pressSec);
}

void Stage::hover(double x, double y) {
    inputs_.push_back(devTools_.send("Input.dispatchMouseEvent",
        {{"type", "mouseMoved"}, {"x", x}, {"y", y}, {"button", "none"}, {"timestamp", inputTimestamp()}}));
}

void Stage::type(std::string_view character) {
    const bool isKey = character.size() == 1 && static_cast<unsigned char>(character[0]) < 127;
    if (!isKey) return devTools_.offer("Input.insertText", {{"text", character}}, pressSec);
    const bool isEnter = character == "\n";
    const std::string key = isEnter ? "Enter" : std::string(character), text = isEnter ? "\r" : key;
    JsonObject press{{"type", "keyDown"}, {"key", key}, {"text", text}, {"timestamp", inputTimestamp()}};
    if (isEnter) press.set("windowsVirtualKeyCode", 13);
    devTools_.offer("Input.dispatchKeyEvent", press, pressSec);
    press.set("type", "keyUp");
    press.remove("text");
    devTools_.offer("Input.dispatchKeyEvent", press, pressSec);
}

void Stage::goBack() {
    const Json history = devTools_.call("Page.getNavigationHistory").result;
    const auto index = static_cast<std::int64_t>(numberAt(history, "currentIndex"));
    const Json* entries = history.find("entries");
    if (index < 1 || !entries || !entries->array()) throw Failure("There is no page to go back to.");
    const Json& before = entries->array()->at(static_cast<std::size_t>(index - 1));
    devTools_.post("Page.navigateToHistoryEntry", {{"entryId", numberAt(before, "id")}});
}

}   // namespace tavix::recorder
