// What a recording of a web page is asked with: the options that `run` and `demo` share.
#pragma once

#include "TavixRecorder/Driver/Recorder.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix::engine {

class Arguments;
class Interruption;
class Terminal;

class RecordingArguments {
public:
    void declare(Arguments& arguments);

    // Reads the flow, and finds the browser. Throws a `UsageError` for what cannot be meant, and a `Failure`
    // without a browser.
    recorder::RecorderSettings settings(const std::string& flow, Terminal& terminal) const;

private:
    struct Frame {
        imaging::Size sizePx;
        double pixelsPerPoint;
    };
    Frame frame(const FlowSpec& flow) const;

    std::optional<std::string> url_, device_, snapshots_;
    std::optional<imaging::Size> size_;
    std::optional<double> scale_, wait_;
    std::optional<int> fps_;
    std::optional<recorder::Hand> hand_;
    std::vector<std::string> allowed_;
    bool hasMarks_ = false;
};

// Where a recording goes. Throws a `UsageError` for what is no bundle, and a `Failure` when it has a
// recording that is not to be replaced.
std::filesystem::path recordingBundle(std::filesystem::path named, bool replaces);

// Records into the bundle, all of it or nothing, and tells what people should know. A step that fails is a
// `DocumentError` of the flow, and the page as it was then is kept beside the bundle.
recorder::Recording recordBundle(recorder::RecorderSettings settings, const std::string& flow,
    const std::filesystem::path& bundle, const Interruption& interruption, Terminal& terminal);

}   // namespace tavix::engine
