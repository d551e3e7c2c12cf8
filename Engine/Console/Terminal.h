// Where the command speaks: results and the log of a render on standard output, messages and the progress bar
// on standard error. Nothing is coloured or redrawn unless standard error is a terminal and NO_COLOR is
// unset. Findings are records up to here; their marks and colours are made here.
#pragma once

#include "TavixBase/Finding.h"
#include "TavixCore/Support/Json.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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
    // The JSON of a verb's work, with all warnings so far under "warnings", and notes under "notes" where
    // there are any.
    void report(JsonObject result);
    // A record that may be kept as it is printed: with warnings only where there are any.
    void reportRecord(const Json& record);
    // A line about the work, for a person.
    void tell(const std::string& line);
    // What a render says: for a person a line with a mark; elsewhere warnings are messages.
    void tell(const Finding& finding);
    std::function<void(const Finding&)> log();   // that tells so; not to outlive the terminal
    void warn(Finding finding);
    void warn(Finding finding, const std::string& shown);   // as a person sees it, with its place
    void warn(std::string_view code, std::string sentence, std::string file = {});
    void complain(const std::string& sentence);
    std::span<const Finding> warnings() const { return warnings_; }
    void progress(double fraction);   // 0 to 1

private:
    void message(const char* color, const std::string& label, const std::string& sentence);
    void clearBar();

    Mode mode_ = Mode::people;
    std::vector<Finding> warnings_, notes_;   // told so far
    bool isRich_ = false;
    bool hasBar_ = false;
};

}   // namespace tavix::engine
