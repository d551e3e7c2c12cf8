// A page before the camera: time goes on by one frame whenever a picture of it is taken, and not otherwise.
#pragma once

#include "TavixCore/Support/Json.h"
#include "TavixRecorder/Browser/DevTools.h"
#include "TavixRecorder/Page/FrameTimes.h"
#include "TavixRecorder/Page/Origin.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::recorder {

class SiteFolder;

// The browser waits for itself and will not draw again, while the page goes on. Nothing wakes it, and a new
// one mostly does the same work without it.
class StandStill : public Failure {
public:
    using Failure::Failure;
};

enum class Hand { finger, mouse };

struct StageSettings {
    std::string url;
    int widthPt = 0, heightPt = 0;
    double pixelsPerPoint = 1;
    int fps = 60;
    Hand hand = Hand::finger;
    double drawingBoundSec = 15;   // of our time: what the browser may take for one frame
    Json initialState;             // handed to the page as `tavix.initialState`
};

// Used by one thread. Whatever talks to the browser throws as `DevTools` does.
class Stage {
public:
    // `site` answers requests at its origin, if there is one; what the origins do not allow gets no answer.
    Stage(DevTools& devTools, StageSettings settings, AllowedOrigins origins, const SiteFolder* site);

    // Opens the page and lets it load. Throws `Failure` when it does not.
    void open();

    // Time goes on by a frame. The picture is a PNG in base 64; it shows what was done to the page before.
    // Throws `StandStill` too.
    const std::string& nextFrame();
    // Whether that picture differs from the one before it.
    bool hasChanged() const { return hasChanged_; }
    // The same picture again: what is there when something has gone wrong.
    const std::string& lastFrame() const { return picture_; }

    // Calls a function of the driver in the page, see driver.js. Null while the page changes to another one.
    Json ask(std::string_view function, JsonArray arguments = {});
    // Tells the page's own scripts, as an event of that name.
    void tell(std::string_view event, const Json& detail);

    // Points of the window. Touches and movements reach the page with the next frame, a button at once.
    enum class Phase { down, move, up };
    void touch(Phase phase, double x, double y);
    void mouse(Phase phase, double x, double y);
    void hover(double x, double y);
    // One character, as far as keyboards have it; text of any kind otherwise.
    void type(std::string_view character);
    void goBack();

    // Requests under way.
    std::size_t openRequests() const { return requests_.size(); }
    double pixelsPerPoint() const { return settings_.pixelsPerPoint; }
    const StageSettings& settings() const { return settings_; }
    // What was refused to the page or done for it, once each.
    const std::vector<std::string>& notes() const { return notes_; }

private:
    void listen();
    void prepare();
    void answerRequest(const Json& request);
    void serve(const std::string& id, std::string_view url, const Json& request);
    void load();
    void advance(double milliseconds);
    double inputTimestamp() const;
    void note(std::string sentence);

    DevTools& devTools_;
    StageSettings settings_;
    AllowedOrigins origins_;
    const SiteFolder* site_;
    FrameTimes times_;
    std::int64_t frame_ = 0;
    double baseMs_ = 0, epochSec_ = 0;   // of the page's clock; from that clock to the one of input events
    int expired_ = 0;                    // how often time has stopped again
    bool waitsForRequests_ = true, isLoaded_ = false, hasChanged_ = false;
    std::optional<std::int64_t> world_;   // where the driver lives
    std::map<std::string, std::string> requests_;
    std::optional<std::int64_t> pageStatus_;   // of HTTP
    std::vector<int> inputs_;                  // on their way
    std::string picture_, mainFrame_, pageRequest_, loadFault_;
    std::vector<std::string> notes_;
};

}   // namespace tavix::recorder
