// How far a render is, for programs: one JSON object in each line of standard output, and a last one that
// says whether it was done or at which stage it failed.
#pragma once

#include "TavixCore/Support/Json.h"

#include <exception>
#include <string>

namespace tavix::engine {

class ProgressLines {
public:
    // Nothing is written when they are not asked for.
    explicit ProgressLines(bool isOn) : isOn_(isOn) {}

    bool isOn() const { return isOn_; }
    void stage(std::string name);     // what is done from here on
    void progress(double fraction);   // 0 to 1; told in steps of a hundredth
    void done(JsonObject result);
    void failed(const std::exception& error);

private:
    void write(JsonObject line);

    bool isOn_;
    std::string stage_ = "read";
    double told_ = -1;
};

}   // namespace tavix::engine
