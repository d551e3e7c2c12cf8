// Records a flow on a web page: a film, and what happened in it and when.
#pragma once

#include "TavixBase/Failure.h"
#include "TavixCore/Timeline/Timeline.h"
#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixRecorder/Page/Stage.h"
#include "TavixReel/Flow/FlowSpec.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace tavix::recorder {

struct RecorderSettings {
    FlowSpec flow;
    std::string address;                // http or https, or a page's file or folder, which needs no server
    std::vector<std::string> allowed;   // origins besides the address's own
    std::filesystem::path browser;      // the program
    imaging::Size sizePx{1170, 2532};
    double pixelsPerPoint = 3;
    int fps = 60;
    Hand hand = Hand::finger;
    bool hasMarks = false;         // flashes at both ends, and squares at actions and ends of motions
    double patienceSec = 10;       // of the page's time, for what a step needs
    double drawingBoundSec = 15;   // of our time: what the browser may take for one frame
    std::filesystem::path video;   // written, as QuickTime
    std::optional<std::filesystem::path> snapshots;   // a folder for a picture after each step
    std::function<void(double fraction)> onProgress;
};

struct Recording {
    Timeline timeline;
    std::int64_t frameCount = 0;
    std::vector<std::string> notes;   // what people should know about it
};

// A step that could not be played, with the page at that moment.
class StepFailure : public Failure {
public:
    StepFailure(std::size_t position, const std::string& message, std::string picturePng)
        : Failure(message), position_(position), picturePng_(std::move(picturePng)) {}
    std::size_t position() const { return position_; }   // among the flow's steps, from 0
    const std::string& picturePng() const { return picturePng_; }

private:
    std::size_t position_;
    std::string picturePng_;
};

// Throws `StepFailure`, `Failure` for all else that goes wrong, and `RenderStopped`.
Recording record(const RecorderSettings& settings, const std::stop_token& stop);

}   // namespace tavix::recorder
