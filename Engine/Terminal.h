// Where the command speaks: results and the log of a render on standard output, messages and the progress bar
// on standard error. Nothing is coloured or redrawn unless standard error is a terminal and NO_COLOR is
// unset.
#pragma once

#include "TavixCore/Support/Json.h"

#include <string>

namespace tavix::engine {

class Terminal {
public:
    enum class Mode {
        people,
        quiet,   // no log and no bar
        json,    // the same, and the result is one JSON value
    };

    Terminal();
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    Mode mode() const { return mode_; }
    void setMode(Mode mode) { mode_ = mode; }

    // What was asked for. Throws `Failure` when standard output cannot take it.
    void result(const std::string& text);
    void result(const Json& json);
    // A line about the work, for a person.
    void tell(const std::string& line);
    void warn(const std::string& sentence);
    void complain(const std::string& sentence);
    void progress(double fraction);   // 0 to 1

private:
    void message(const char* color, const std::string& label, const std::string& sentence);
    void clearBar();

    Mode mode_ = Mode::people;
    bool isRich_ = false;
    bool hasBar_ = false;
};

}   // namespace tavix::engine
